// SPDX-License-Identifier: MIT
// ODBC data sources of the machine, written as the registry entries that they are.
#pragma once

#include <string_view>

namespace vndesk {

struct SqlServerSource {
    std::wstring_view name;
    std::wstring_view description;
    std::wstring_view database;
    std::wstring_view server;
    // What the list of data sources shows beside the name.
    std::wstring_view title;
};

struct ExcelSource {
    std::wstring_view name;
    std::wstring_view defaultFolder;
    std::wstring_view workbook;
    std::wstring_view fileType;
    // Empty for the driver's usual one.
    std::wstring_view driverId;
};

void CreateDataSource(const SqlServerSource& source);
void CreateDataSource(const ExcelSource& source);

} // namespace vndesk
