// SPDX-License-Identifier: MIT
#include "support/engine_variant.h"

#include <windows.h>

#include "support/env.h"
#include "support/text.h"

namespace vndesk::test {

namespace {

constexpr EngineVariant kVariants[] = {
    {.name = "Embedded", .server = false},
    {.name = "Server", .server = true},
    {.name = "PostgreSql", .server = true, .dialect = vnDialectPostgreSql, .asWritten = true},
    {.name = "PostgreSqlBound",
     .server = true,
     .dialect = vnDialectPostgreSql,
     .bound = true,
     .asWritten = true},
    {.name = "MariaDb", .server = false, .dialect = vnDialectMySql, .asWritten = true},
    {.name = "MariaDbBound",
     .server = false,
     .dialect = vnDialectMySql,
     .bound = true,
     .asWritten = true},
    {.name = "SqlServer", .server = true, .dialect = vnDialectSqlServer},
    {.name = "SqlServerBound", .server = true, .dialect = vnDialectSqlServer, .bound = true},
};

const EngineVariant* current = &kVariants[0];

std::wstring TraceFile() {
    const std::wstring folder = OutDir() + L"\\tsql";
    CreateDirectoryW(folder.c_str(), nullptr);
    return folder + L"\\" + std::to_wstring(GetCurrentProcessId()) + L".txt";
}

} // namespace

const EngineVariant& CurrentVariant() {
    return *current;
}

VariantInUse::VariantInUse(std::string_view name) {
    const EngineVariant* found = nullptr;
    for (const EngineVariant& variant : kVariants)
        if (variant.name == name)
            found = &variant;
    if (!found)
        Fail(L"there is no such variant");
    current = found;
    if (current->asWritten)
        SetEnvironmentVariableW(L"VNDESK_ADO_AS_WRITTEN", L"1");
    if (current->dialect == vnDialectSqlServer)
        SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", TraceFile().c_str());
}

VariantInUse::~VariantInUse() {
    if (current->asWritten)
        SetEnvironmentVariableW(L"VNDESK_ADO_AS_WRITTEN", nullptr);
    if (current->dialect == vnDialectSqlServer)
        SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", nullptr);
    current = &kVariants[0];
}

} // namespace vndesk::test
