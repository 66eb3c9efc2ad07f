// SPDX-License-Identifier: MIT
// The ODBC drivers that programs of this bitness find.
#include "check/probes.h"

#include <windows.h>
#include <sqlext.h>

#include "check/machine.h"

namespace vndesk::check {

namespace {

std::wstring DriverNames() {
    SQLHENV environment = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment)))
        return {};
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                  0);
    std::wstring names;
    SQLWCHAR name[256], attributes[1024];
    SQLSMALLINT length = 0, ignored = 0;
    for (SQLUSMALLINT direction = SQL_FETCH_FIRST; SQL_SUCCEEDED(
             SQLDriversW(environment, direction, name, 256, &length, attributes, 1024, &ignored));
         direction = SQL_FETCH_NEXT)
        names += (names.empty() ? L"" : L", ") + std::wstring(reinterpret_cast<wchar_t*>(name));
    SQLFreeHandle(SQL_HANDLE_ENV, environment);
    return names;
}

} // namespace

void ProbeOdbc(Findings& findings) {
    const std::wstring names = DriverNames();
    if (names.empty())
        findings.push_back({Id::OdbcNone, {kBitsText}});
    else
        findings.push_back({Id::OdbcDrivers, {kBitsText, names}});
}

} // namespace vndesk::check
