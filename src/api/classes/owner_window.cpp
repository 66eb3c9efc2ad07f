// SPDX-License-Identifier: MIT
#include "api/classes/owner_window.h"

#include <comutil.h>
#include <wrl/client.h>

#include "api/classes/window_handle.h"
#include "comkit/base/com_error.h"
#include "comkit/base/variant.h"

namespace vndesk {

using Microsoft::WRL::ComPtr;

namespace {

// The window handle in a number of any type.
HWND WindowOfNumber(const _variant_t& given) {
    _variant_t number = Resolved(given);
    CheckHr(VariantChangeType(&number, &number, 0, VT_I8));
    return ToWindow(number.llVal);
}

// The window of a host's form, or none when the object has no property hWnd.
HWND WindowOfForm(IDispatch* form) {
    auto* name = const_cast<wchar_t*>(L"hWnd");
    DISPID id = 0;
    if (!form || FAILED(form->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)))
        return nullptr;
    DISPPARAMS none = {};
    _variant_t window;
    CheckHr(form->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &window,
                         nullptr, nullptr));
    return WindowOfNumber(window);
}

} // namespace

HWND OwnerWindow(const VARIANT& given) {
    const _variant_t owner = Resolved(given);
    switch (owner.vt) {
    case VT_ERROR: // left out
    case VT_EMPTY:
    case VT_NULL:
        return nullptr;
    case VT_DISPATCH:
        return WindowOfForm(owner.pdispVal);
    case VT_UNKNOWN: {
        ComPtr<IDispatch> form;
        if (owner.punkVal)
            owner.punkVal->QueryInterface(IID_PPV_ARGS(&form));
        return WindowOfForm(form.Get());
    }
    default:
        return WindowOfNumber(owner);
    }
}

} // namespace vndesk
