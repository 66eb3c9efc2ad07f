// SPDX-License-Identifier: MIT
#include "api/classes/cls_search.h"

#include <comutil.h>

#include <optional>

#include "api/classes/window_handle.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "data/connect/database.h"
#include "find/find_dialog.h"
#include "logon/session.h"

namespace vndesk {

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

HWND OwnerWindow(const VARIANT& ownerForm) {
    const _variant_t owner = Resolved(ownerForm);
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

} // namespace

_Connection& Search::Connection() {
    if (!connection_)
        connection_ = NewConnection();
    return *connection_.Get();
}

void Search::CheckConnection(HRESULT code) {
    CheckCall(code, connection_.Get(), __uuidof(_Connection));
}

STDMETHODIMP Search::get_ActiveConnection(VARIANT* value) {
    return Guard([&] {
        if (!value)
            throw ComError(E_POINTER);
        VariantInit(value);
        CheckHr(Connection().QueryInterface(IID_PPV_ARGS(&value->pdispVal)));
        value->vt = VT_DISPATCH;
    });
}

STDMETHODIMP Search::put_ActiveConnection(VARIANT value) {
    return Guard([&] {
        _variant_t text = Resolved(value);
        CheckHr(VariantChangeType(&text, &text, 0, VT_BSTR));
        CheckConnection(Connection().put_ConnectionString(text.bstrVal));
    });
}

STDMETHODIMP Search::get_TableSearch(BSTR* value) {
    return Get(value, [&] { return ToBstr(table_); });
}

STDMETHODIMP Search::put_TableSearch(BSTR value) {
    return Guard([&] { table_ = FromBstr(value); });
}

STDMETHODIMP Search::get_Result(BSTR* value) {
    return Get(value, [&] { return ToBstr(result_); });
}

// The condition can be read only after the dialog has closed, so every style shows it modally.
STDMETHODIMP Search::Show(long* modal, VARIANT ownerForm) {
    return Guard([&] {
        if (!modal)
            throw ComError(E_POINTER);
        // Cleared first: after a failure no earlier condition must pass for this call's.
        result_.clear();
        const HWND owner = OwnerWindow(ownerForm);
        _bstr_t text;
        long state = adStateClosed;
        if (connection_) {
            CheckConnection(connection_->get_ConnectionString(text.GetAddress()));
            CheckConnection(connection_->get_State(&state));
        }
        const std::wstring given = FromBstr(text.GetBSTR());
        // Without a connection of its own the search runs on the session's.
        std::optional<SessionConnection> own;
        if (state & adStateOpen)
            own.emplace(Database{connection_, KindOf(given), given, CurrentSettings()});
        else if (!given.empty())
            own.emplace(given, CurrentSettings());
        Database database = own ? **own : CurrentDatabase();
        database.settings = CurrentSettings();
        result_ = ShowFindDialog(database, table_, owner);
    });
}

STDMETHODIMP Search::get_ParameterizedResult(BSTR* value) {
    return Get(value, [&] { return ToBstr(L""); });
}

STDMETHODIMP Search::get_Parameters(VARIANT*) {
    return E_NOTIMPL;
}

STDMETHODIMP Search::get_ParameterTypes(VARIANT*) {
    return E_NOTIMPL;
}

STDMETHODIMP Search::CreateCommand(BSTR, VARIANT, IDispatch**) {
    return E_NOTIMPL;
}

} // namespace vndesk
