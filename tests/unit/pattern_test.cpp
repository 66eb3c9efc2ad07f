// SPDX-License-Identifier: MIT
// Patterns of LIKE in which wildcards are letters, as each engine takes them.
#include "data/text/pattern.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

std::wstring Written(const wchar_t* typed, Engine engine) {
    const Pattern pattern = BeginningWith(typed, engine);
    return pattern.text + std::wstring(pattern.clause);
}

constexpr Engine kByBrackets[] = {Engine::Jet, Engine::SqlServer};
constexpr Engine kByLetter[] = {Engine::PostgreSql, Engine::Sqlite, Engine::MySql};

} // namespace

TEST(Pattern, TextWithoutWildcardsStaysPlain) {
    for (const Engine engine :
         {Engine::Jet, Engine::SqlServer, Engine::PostgreSql, Engine::Sqlite, Engine::MySql})
        for (const wchar_t* typed : {L"", L"Công ty", L"O'Brien", L"\"x\"", L"a!b", L"x]", L"?*#"})
            EXPECT_EQ(typed + std::wstring(L"%"), Written(typed, engine)) << typed;
}

TEST(Pattern, BracketsMakeALetterOfAWildcard) {
    for (const Engine engine : kByBrackets) {
        EXPECT_EQ(L"50[%]%", Written(L"50%", engine));
        EXPECT_EQ(L"a[_]b%", Written(L"a_b", engine));
        EXPECT_EQ(L"[[]x]%", Written(L"[x]", engine));
        EXPECT_EQ(L"!\\[%][_]%", Written(L"!\\%_", engine));
    }
}

TEST(Pattern, OtherEnginesAreToldALetter) {
    for (const Engine engine : kByLetter) {
        EXPECT_EQ(L"50!%% ESCAPE '!'", Written(L"50%", engine));
        EXPECT_EQ(L"a!_b% ESCAPE '!'", Written(L"a_b", engine));
        EXPECT_EQ(L"!!!%% ESCAPE '!'", Written(L"!%", engine)) << "the letter itself";
        EXPECT_EQ(L"[x]%", Written(L"[x]", engine)) << "no wildcard there";
    }
}

// It would make a letter of what stands behind it, the pattern's own % too.
TEST(Pattern, BackslashIsALetter) {
    for (const Engine engine : kByLetter)
        EXPECT_EQ(L"C:\\% ESCAPE '!'", Written(L"C:\\", engine));
    for (const Engine engine : kByBrackets)
        EXPECT_EQ(L"C:\\%", Written(L"C:\\", engine));
}
