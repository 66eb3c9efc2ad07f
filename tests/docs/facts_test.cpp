// SPDX-License-Identifier: MIT
// What the documents state in tables and quotations, against the sources that it is taken from.
#include "text/tcvn3.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "docs/tree.h"

using namespace vndesk;

namespace {

std::string Section(const std::string& text, const std::string& heading) {
    const std::size_t begin = text.find("\n" + heading);
    EXPECT_NE(std::string::npos, begin) << heading;
    return begin == std::string::npos
               ? std::string()
               : text.substr(begin, text.find("\n#", begin + heading.size()) - begin);
}

std::vector<std::string> Matches(const std::string& text, const std::regex& pattern) {
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at)
        found.push_back((*at)[1]);
    return found;
}

// The code point of a letter in UTF-8 of two or three bytes.
wchar_t Letter(const std::string& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    return static_cast<wchar_t>(text.size() == 2 ? (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F)
                                                 : (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 |
                                                       (byte(2) & 0x3F));
}

TEST(DocumentedFactTest, TableOfCodesIsTheOneOfTheConversion) {
    const std::string table =
        Section(docs::ReadFile(docs::Root() / "docs/encoding.md"), "## The codes");
    static const std::regex entry("([\xC3-\xE1][\x80-\xBF]{1,2}) ([0-9A-F]{2})[ ,]");
    int letters = 0;
    for (std::sregex_iterator at(table.begin(), table.end(), entry), end; at != end; ++at) {
        const auto code = static_cast<wchar_t>(std::stoi((*at)[2], nullptr, 16));
        EXPECT_EQ(code, ToUncChar(Letter((*at)[1]), kToTcvn3)) << at->str();
        EXPECT_EQ(Letter((*at)[1]), ToUncChar(code, kToUnicode)) << at->str();
        ++letters;
    }
    EXPECT_EQ(67 + 7, letters);
}

// Of the seven tables; the host's own are not the library's affair.
TEST(DocumentedFactTest, EveryColumnOfTheTablesIsDescribed) {
    const std::map<std::string, std::string> sections = {
        {"User", "### `[User]`"},     {"Groups", "### `Groups`"},   {"Menu", "### `Menu`"},
        {"SubMenu", "### `Menu`"},    {"Options", "### `Options`"}, {"LstFld", "### `LstFld`"},
        {"Operator", "### `LstFld`"},
    };
    const std::string page = docs::ReadFile(docs::Root() / "docs/database.md");
    const std::string schema = docs::ReadFile(docs::Root() / "schema/sqlite.sql");
    for (const auto& [table, heading] : sections) {
        const std::string start = "CREATE TABLE [" + table + "] (";
        const std::size_t begin = schema.find(start);
        ASSERT_NE(std::string::npos, begin) << table;
        const std::string columns =
            schema.substr(begin + start.size(), schema.find(");", begin) - begin - start.size());
        const std::string section = Section(page, heading);
        for (const std::string& column : Matches(columns, std::regex(R"(\[(\w+)\])")))
            // The masks of groups have any name.
            if (!std::regex_match(column, std::regex("P[0-9]"))) {
                EXPECT_NE(std::string::npos, section.find("`" + column + "`"))
                    << table << "." << column;
            }
    }
}

// The masks of the worked example are those of the sample database.
TEST(DocumentedFactTest, ExampleOfTheRightsIsInTheSampleDatabase) {
    const std::string page = docs::ReadFile(docs::Root() / "docs/rights.md");
    const std::string schema = docs::ReadFile(docs::Root() / "schema/sqlite.sql");
    EXPECT_NE(std::string::npos, schema.find("(2, 'Kế toán', 'Phòng kế toán', 5, 48, 31)"));
    EXPECT_NE(std::string::npos, page.find("has `P1` = 5"));
    EXPECT_NE(std::string::npos, page.find("`P2` is 48"));
    EXPECT_NE(std::string::npos, page.find("`P3` = 31"));
    static const std::regex row("\\| ([0-9]) \\| ([0-9]) \\| ([0-9]) \\| ([^|]+) \\| (granted)?");
    int commands = 0;
    for (std::sregex_iterator at(page.begin(), page.end(), row), end; at != end; ++at, ++commands) {
        const int place = std::stoi((*at)[1]);
        EXPECT_EQ(1 << place, std::stoi((*at)[2]));
        EXPECT_EQ((5 >> place & 1) != 0, (*at)[5].matched);
        EXPECT_NE(std::string::npos,
                  schema.find("(" + (*at)[3].str() + ", 1, '" + (*at)[4].str() + "')"))
            << at->str();
    }
    EXPECT_EQ(4, commands);
}

// Quoted code is the code, but for its comments.
TEST(DocumentedFactTest, CodeOfTheRightsIsThatOfTheTour) {
    const std::string page = docs::ReadFile(docs::Root() / "docs/rights.md");
    const std::string source = docs::ReadFile(docs::Root() / "samples/tour/rights.cpp");
    const std::size_t begin = page.find("```cpp\n") + 7;
    std::istringstream lines(page.substr(begin, page.find("```", begin) - begin));
    int quoted = 0;
    for (std::string line; std::getline(lines, line); ++quoted) {
        line.resize(std::min(line.find(" //"), line.size()));
        line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
        line.resize(line.find_last_not_of(' ') + 1);
        EXPECT_NE(std::string::npos, source.find(line)) << line;
    }
    EXPECT_LT(10, quoted);
}

} // namespace
