// SPDX-License-Identifier: MIT
#include "api/classes/cls_search.h"

#include <comutil.h>

#include <optional>
#include <vector>

#include "api/classes/owner_window.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "comkit/base/variant_array.h"
#include "data/connect/ado_value.h"
#include "data/connect/command.h"
#include "data/connect/database.h"
#include "logon/session.h"

namespace vndesk {

_Connection& Search::Connection() {
    if (!connection_)
        connection_ = NewConnection();
    return *connection_.Get();
}

void Search::CheckConnection(HRESULT code) {
    CheckCall(code, connection_.Get(), __uuidof(_Connection));
}

std::wstring Search::ConnectionText() {
    _bstr_t text;
    CheckConnection(Connection().get_ConnectionString(text.GetAddress()));
    return FromBstr(text.GetBSTR());
}

bool Search::ConnectionIsOpen() {
    long state = adStateClosed;
    CheckConnection(Connection().get_State(&state));
    return (state & adStateOpen) != 0;
}

void Search::CloseLostConnection() {
    if (opened_.empty() || !ConnectionIsOpen() || Answers(connection_))
        return;
    connection_->Close();
    // An opened one may have forgotten the password.
    CheckConnection(connection_->put_ConnectionString(_bstr_t(opened_.c_str())));
}

AdoConnection Search::ConnectionFor(const VARIANT& given) {
    const _variant_t connection = Resolved(given);
    AdoConnection found;
    switch (V_VT(&connection)) {
    case VT_ERROR: // left out
        CloseLostConnection();
        if (!ConnectionIsOpen()) {
            opened_ = ConnectionText();
            Open(Connection(), opened_, CurrentSettings());
        }
        return connection_;
    case VT_BSTR:
        found = NewConnection();
        Open(*found.Get(), FromBstr(V_BSTR(&connection)), CurrentSettings());
        return found;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        if (V_UNKNOWN(&connection))
            V_UNKNOWN(&connection)->QueryInterface(IID_PPV_ARGS(&found));
        break;
    }
    if (!found)
        throw ComError(E_INVALIDARG,
                       L"The connection is no ADODB.Connection and no connection string.");
    return found;
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
        opened_.clear();
    });
}

STDMETHODIMP Search::get_TableSearch(BSTR* value) {
    return Get(value, [&] { return ToBstr(table_); });
}

STDMETHODIMP Search::put_TableSearch(BSTR value) {
    return Guard([&] { table_ = FromBstr(value); });
}

STDMETHODIMP Search::get_Result(BSTR* value) {
    return Get(value, [&] { return ToBstr(condition_.text); });
}

// The condition can be read only after the dialog has closed, so every style shows it modally.
STDMETHODIMP Search::Show(long* modal, VARIANT ownerForm) {
    return Guard([&] {
        if (!modal)
            throw ComError(E_POINTER);
        // Cleared first: after a failure no earlier condition must pass for this call's.
        condition_ = {};
        const HWND owner = OwnerWindow(ownerForm);
        const Settings settings = CurrentSettings();
        CloseLostConnection();
        const std::wstring given = connection_ ? ConnectionText() : L"";
        // Without a connection of its own the search runs on the session's.
        std::optional<SessionConnection> own;
        if (connection_ && ConnectionIsOpen())
            own.emplace(Database{connection_, KindOf(given), given, settings});
        else if (!given.empty())
            own.emplace(given, settings);
        if (own && own->Ended())
            return;
        Database database = own ? **own : CurrentDatabase();
        database.settings = settings;
        condition_ = ShowFindDialog(database, table_, owner);
    });
}

STDMETHODIMP Search::get_ParameterizedResult(BSTR* value) {
    return Get(value, [&] { return ToBstr(condition_.parameterized.text); });
}

STDMETHODIMP Search::get_Parameters(VARIANT* value) {
    return Guard([&] {
        GiveArray(value, condition_.parameterized.values,
                  [](const BoundValue& bound) { return ToAdoValue(bound).value; });
    });
}

STDMETHODIMP Search::get_ParameterTypes(VARIANT* value) {
    return Guard([&] {
        GiveArray(value, condition_.parameterized.values, [](const BoundValue& bound) {
            return _variant_t(static_cast<long>(ToAdoValue(bound).type));
        });
    });
}

STDMETHODIMP Search::CreateCommand(BSTR selectText, VARIANT connection, IDispatch** command) {
    return Guard([&] {
        IDispatch*& result = ClearedOut(command);
        Statement statement = condition_.parameterized;
        const std::wstring where = statement.text.empty() ? L"" : L" Where ";
        statement.text = FromBstr(selectText) + where + statement.text;
        CheckHr(NewCommand(ConnectionFor(connection), statement).CopyTo(&result));
    });
}

} // namespace vndesk
