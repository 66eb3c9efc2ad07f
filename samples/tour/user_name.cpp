// SPDX-License-Identifier: MIT
#include "user_name.h"

#include "late_bound.h"

std::wstring ReadUserName(const std::wstring& connect, long code) {
    const std::wstring statement =
        L"SELECT [Name] FROM [User] WHERE [Code]=" + std::to_wstring(code);
    LateBound users(L"ADODB.Recordset");
    users.Call(L"Open", {statement.c_str(), connect.c_str()});
    _variant_t name;
    if (!static_cast<bool>(users.Get(L"EOF"))) {
        LateBound field(LateBound(users.Get(L"Fields")).Get(L"Item", {L"Name"}));
        name = field.Get(L"Value");
    }
    users.Call(L"Close");
    return name.vt == VT_BSTR && name.bstrVal ? name.bstrVal : L"";
}
