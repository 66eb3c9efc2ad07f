// SPDX-License-Identifier: MIT
#include "ado/engine/driver_error_code.h"

namespace vndesk::ado {

namespace {

// OLE DB's codes, as its provider for ODBC gives them.
constexpr auto kSyntax = static_cast<HRESULT>(0x80040E14L);
constexpr auto kNoTable = static_cast<HRESULT>(0x80040E37L);
constexpr auto kIntegrity = static_cast<HRESULT>(0x80040E2FL);
constexpr auto kOverflow = static_cast<HRESULT>(0x80040E57L);
constexpr auto kPermission = static_cast<HRESULT>(0x80040E09L);
constexpr auto kAuthentication = static_cast<HRESULT>(0x80040E4DL);

struct Row {
    std::wstring_view start; // of the SQLSTATE, or a part of the description
    HRESULT code;
};

// Longer starts first.
constexpr Row kByState[] = {{L"42P01", kNoTable},     {L"42S02", kNoTable}, {L"42501", kPermission},
                            {L"42", kSyntax},         {L"37", kSyntax},     {L"23", kIntegrity},
                            {L"28", kAuthentication}, {L"22003", kOverflow}};

// SQLite's driver knows one state only.
constexpr Row kByDescription[] = {
    {L"no such table", kNoTable},       {L"no such column", kSyntax},
    {L"no such function", kSyntax},     {L"syntax error", kSyntax},
    {L"unrecognized token", kSyntax},   {L"incomplete input", kSyntax},
    {L"constraint failed", kIntegrity}, {L"has no column named", kSyntax}};

} // namespace

HRESULT ErrorCodeOf(std::wstring_view sqlState, std::wstring_view description) noexcept {
    for (const auto& [start, code] : kByState)
        if (sqlState.substr(0, start.size()) == start)
            return code;
    if (sqlState == L"HY000")
        for (const auto& [part, code] : kByDescription)
            if (description.find(part) != std::wstring_view::npos)
                return code;
    return E_FAIL;
}

} // namespace vndesk::ado
