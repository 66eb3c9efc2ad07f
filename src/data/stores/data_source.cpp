// SPDX-License-Identifier: MIT
#include "data/stores/data_source.h"

#include <windows.h>

#include <initializer_list>
#include <string>

#include "data/stores/registry.h"

namespace vndesk {

namespace {

constexpr std::wstring_view kSources = L"SOFTWARE\\ODBC\\ODBC.INI\\";
constexpr std::wstring_view kListOfSources = L"ODBC Data Sources";
constexpr std::wstring_view kExcelDriver = L"Microsoft Excel Driver (*.xls)";
constexpr std::wstring_view kUsualDriverId = L"790";
constexpr std::wstring_view kExcelDescription = L"VN";

struct Entry {
    std::wstring_view name;
    std::wstring_view text;
};

void WriteEntries(std::wstring_view key, std::initializer_list<Entry> entries) {
    const RegistryKey opened =
        RegistryKey::Create(HKEY_LOCAL_MACHINE, std::wstring(kSources).append(key));
    if (!opened)
        return;
    for (const Entry& entry : entries)
        opened.Write(entry.name, entry.text);
}

} // namespace

void CreateDataSource(const SqlServerSource& source) {
    WriteEntries(source.name, {{L"Database", source.database},
                               {L"Description", source.description},
                               {L"Driver", L""},
                               {L"LastUser", L"sa"},
                               {L"Server", source.server},
                               {L"AnsiNPW", L"No"}});
    WriteEntries(kListOfSources, {{source.name, source.title}});
}

void CreateDataSource(const ExcelSource& source) {
    const std::wstring_view driverId = source.driverId.empty() ? kUsualDriverId : source.driverId;
    WriteEntries(source.name, {{L"DBQ", source.workbook},
                               {L"Description", kExcelDescription},
                               {L"DefaultDir", source.defaultFolder},
                               {L"DRIVER", kExcelDriver},
                               {L"DriverId", driverId},
                               {L"FIL", source.fileType},
                               {L"UID", L"admin"},
                               {L"SafeTransactions", L"0"},
                               {L"ReadOnly", L"1"},
                               {L"PageTimeout", L"5"},
                               {L"MaxBufferSize", L"512"}});
    WriteEntries(std::wstring(source.name) + L"\\Engines\\Excel", {{L"FirstRowHasNames", L"01"},
                                                                   {L"ImplicitCommitSync", L"Yes"},
                                                                   {L"Threads", L"3"},
                                                                   {L"UserCommitSync", L"Yes"}});
    WriteEntries(kListOfSources, {{source.name, kExcelDriver}});
}

} // namespace vndesk
