// SPDX-License-Identifier: MIT
// The scripts that make the tables of 1.1 are alike for all engines, and described.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "docs/tree.h"

namespace {

using Columns = std::vector<std::string>;

constexpr const char* kEngines[] = {"jet", "sqlserver", "postgresql", "sqlite", "mariadb"};

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    return text;
}

// Each table with its columns in their order, in small letters and without the engine's quotes.
std::map<std::string, Columns> TablesOf(const std::string& script, const std::string& engine) {
    const auto file = docs::Root() / "schema/upgrade" / (script + "." + engine + ".sql");
    std::map<std::string, Columns> tables;
    Columns* columns = nullptr;
    static const std::regex table(R"(create table (?:if not exists )?[[`"]?(\w+)[\]`"]? \()");
    static const std::regex column(R"( +[[`"]?(\w+)[\]`"]? .*)");
    for (const std::string& whole : docs::Lines(docs::ReadFile(file))) {
        const std::string line = Lower(whole);
        std::smatch match;
        if (std::regex_match(line, match, table))
            columns = &tables[match[1]];
        else if (line.starts_with(")"))
            columns = nullptr;
        else if (columns && !line.starts_with("    index ") &&
                 std::regex_match(line, match, column))
            columns->push_back(match[1]);
    }
    return tables;
}

TEST(UpgradeScriptsTest, AllEnginesGetTheSameTablesAndColumns) {
    const struct {
        const char* script;
        const char* table;
        std::size_t columns;
    } scripts[] = {{"accounts", "vnuser", 8}, {"audit", "vnaudit", 10}};
    for (const auto& [script, table, count] : scripts) {
        const auto first = TablesOf(script, kEngines[0]);
        ASSERT_EQ(1u, first.size()) << script;
        ASSERT_TRUE(first.contains(table));
        EXPECT_EQ(count, first.at(table).size());
        for (const char* engine : kEngines)
            EXPECT_EQ(first, TablesOf(script, engine)) << script << ", " << engine;
    }
}

TEST(UpgradeScriptsTest, EveryColumnIsDescribed) {
    for (const char* name : {"docs/database.md", "schema/README.md"}) {
        const std::string page = Lower(docs::ReadFile(docs::Root() / name));
        for (const char* script : {"accounts", "audit"})
            for (const auto& [table, columns] : TablesOf(script, "sqlite")) {
                EXPECT_NE(std::string::npos, page.find("`" + table + "`")) << name;
                for (const std::string& column : columns)
                    EXPECT_NE(std::string::npos, page.find("`" + column + "`"))
                        << name << ": " << table << "." << column;
            }
    }
}

TEST(UpgradeScriptsTest, EveryScriptIsThereForEveryEngine) {
    std::set<std::string> expected, found;
    for (const char* script : {"accounts", "audit"})
        for (const char* engine : kEngines)
            expected.insert(script + std::string(".") + engine + ".sql");
    for (const auto& entry : std::filesystem::directory_iterator(docs::Root() / "schema/upgrade"))
        if (entry.path().extension() == ".sql")
            found.insert(entry.path().filename().string());
    EXPECT_EQ(expected, found);
}

} // namespace
