// SPDX-License-Identifier: MIT
// The engine and the language that a test's statements are for. Tests that run on several of them
// name one by their parameter; it holds for all settings that are made while the test runs.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "vndesk_idl.h"

namespace vndesk::test {

struct EngineVariant {
    std::string_view name;
    bool server; // PostgreSQL, or else the embedded database or MariaDB
    Dialects dialect = vnDialectAuto;
    // With a dialect: BindParameters of every host, whatever the test asks for.
    bool bound = false;
    // The bridge rewrites nothing.
    bool asWritten = false;
};

// Of the running test; "Embedded" outside of such tests.
const EngineVariant& CurrentVariant();

// Whether the hosts of the test have named a dialect.
inline bool InDialect() {
    return CurrentVariant().dialect != vnDialectAuto;
}

// Whether hosts that ask for bound values get them.
inline bool BindsValues() {
    return !InDialect() || CurrentVariant().bound;
}

// Whether texts are written with the prefix of SQL Server.
inline bool PrefixesTexts() {
    return InDialect() ? CurrentVariant().dialect == vnDialectSqlServer : CurrentVariant().server;
}

// From its making to its end. In the language of SQL Server, which a PostgreSQL server understands
// with the bridge's help, every statement is also left in OutDir() for a parser of that language.
class VariantInUse {
public:
    explicit VariantInUse(std::string_view name);
    ~VariantInUse();
    VariantInUse(const VariantInUse&) = delete;
    VariantInUse& operator=(const VariantInUse&) = delete;
};

// Each case on both databases, as 1.0 speaks to them.
#define INSTANTIATE_DATABASES(suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(Databases, suite, testing::Values("Embedded", "Server"),              \
                             [](const auto& info) { return std::string(info.param); })

// Each case in the languages that are named.
#define INSTANTIATE_DIALECTS(suite, ...)                                                           \
    INSTANTIATE_TEST_SUITE_P(Dialects, suite, testing::Values(__VA_ARGS__),                        \
                             [](const auto& info) { return std::string(info.param); })

} // namespace vndesk::test
