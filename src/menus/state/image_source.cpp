// SPDX-License-Identifier: MIT
#include "menus/state/image_source.h"

#include <comutil.h>

#include "comkit/base/com_error.h"
#include "comkit/base/variant.h"
#include "forms/look/common_controls.h"

namespace vndesk {

namespace {

// Image lists are memory, not window handles: 32-bit numbers are not sign-extended.
HIMAGELIST ToHandle(const VARIANT& given) {
    _variant_t value = Resolved(given);
    _variant_t number;
    ULONG_PTR handle = 0;
    if (SUCCEEDED(VariantChangeTypeEx(&number, &value, LOCALE_INVARIANT, 0, VT_I4)))
        handle = static_cast<ULONG>(V_I4(&number));
    else if (SUCCEEDED(VariantChangeTypeEx(&number, &value, LOCALE_INVARIANT, 0, VT_I8)))
        handle = static_cast<ULONG_PTR>(V_I8(&number));
    else
        throw ComError(DISP_E_TYPEMISMATCH, L"An ImageList object or handle is needed.");
    return reinterpret_cast<HIMAGELIST>(handle);
}

bool IsReadable(const void* place) {
    constexpr DWORD kUnreadable = PAGE_NOACCESS | PAGE_GUARD | PAGE_EXECUTE;
    MEMORY_BASIC_INFORMATION memory;
    return VirtualQuery(place, &memory, sizeof memory) == sizeof memory &&
           memory.State == MEM_COMMIT && !(memory.Protect & kUnreadable);
}

// A number that the host mistook for an image list must not take the process down.
bool IsImageList(HIMAGELIST list) {
    const auto* begin = reinterpret_cast<const char*>(list);
    return list && IsReadable(begin) && IsReadable(begin + 2 * sizeof(void*) - 1) &&
           Controls6().ImageList_GetImageCount(list) > 0;
}

} // namespace

ImageSource::ImageSource(const VARIANT& value) {
    const _variant_t source = Resolved(value);
    switch (source.vt) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
        return;
    case VT_DISPATCH:
        object_ = V_DISPATCH(&source);
        return;
    case VT_UNKNOWN:
        if (V_UNKNOWN(&source))
            CheckHr(V_UNKNOWN(&source)->QueryInterface(IID_PPV_ARGS(&object_)));
        return;
    default:
        handle_ = ToHandle(source);
    }
}

HIMAGELIST ImageSource::Handle() const {
    HIMAGELIST list = handle_;
    if (object_) {
        LPOLESTR name = const_cast<LPOLESTR>(L"hImageList");
        DISPID id = DISPID_UNKNOWN;
        DISPPARAMS none = {};
        _variant_t value;
        if (SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id)) &&
            SUCCEEDED(object_->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none,
                                      &value, nullptr, nullptr)))
            Trap([&] { list = ToHandle(value); }); // what is no number is no image list
    }
    return IsImageList(list) ? list : nullptr;
}

} // namespace vndesk
