// SPDX-License-Identifier: MIT
// The patterns by which engines are asked for names that a search could find: never too few.
#include "data/text/pattern.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <vector>

#include "text/letters/letter_case.h"
#include "text/letters/match.h"

using namespace vndesk;

namespace {

constexpr Engine kEngines[] = {Engine::Jet, Engine::SqlServer, Engine::PostgreSql, Engine::Sqlite,
                               Engine::MySql};

std::wstring Written(const wchar_t* typed, Engine engine = Engine::Sqlite, bool anywhere = false) {
    const Pattern pattern = FindingNames(typed, engine, anywhere);
    return std::wstring(pattern.like) + L" " + pattern.text + std::wstring(pattern.clause);
}

TEST(NamePattern, LettersThatVietnameseWritesWithMarksAreAnyCharacter) {
    EXPECT_EQ(L"Like ___%n_ng%", Written(L"da nang"));
    EXPECT_EQ(L"Like ___%N_ng%", Written(L"Đà Nẵng"));
    EXPECT_EQ(L"Like Ng__n%", Written(L"Nguyn"));
    EXPECT_EQ(L"Like h__%", Written(L"hoà"));
    EXPECT_EQ(L"Like %", Written(L""));
}

TEST(NamePattern, FirstLetterWithoutMarksStaysForTheIndex) {
    for (const Engine engine : kEngines)
        for (const wchar_t letter : std::wstring(L"bcghklmnpqrstvxBCGHKLMNPQRSTVX0123456789"))
            EXPECT_EQ(letter, FindingNames(std::wstring(1, letter), engine, false).text[0]);
}

TEST(NamePattern, AnywhereBeginsWithTheWildcard) {
    EXPECT_EQ(L"Like %___%n_ng%", Written(L"da nang", Engine::SqlServer, true));
}

TEST(NamePattern, PostgreSqlIsAskedWithoutLetterCase) {
    EXPECT_EQ(L"ILike kh_%", Written(L"kho", Engine::PostgreSql));
}

TEST(NamePattern, MarksThatWereTypedAloneBelongToTheirLetters) {
    EXPECT_EQ(L"Like c_%", Written(L"ca\u0301"));
    EXPECT_EQ(L"Like v__t%", Written(L"vie\u0323\u0302t"));
}

TEST(NamePattern, TypedWildcardsAreLetters) {
    for (const Engine engine : {Engine::Jet, Engine::SqlServer}) {
        EXPECT_EQ(L"Like 50[%][_][[]x]%", Written(L"50%_[x]", engine));
        EXPECT_EQ(L"Like !\\%", Written(L"!\\", engine));
    }
    EXPECT_EQ(L"Like 50!%!_[x]% ESCAPE '!'", Written(L"50%_[x]", Engine::Sqlite));
    EXPECT_EQ(L"ILike C:\\% ESCAPE '!'", Written(L"C:\\", Engine::PostgreSql));
    EXPECT_EQ(L"Like !!!%% ESCAPE '!'", Written(L"!%", Engine::MySql)) << "the letter itself";
    EXPECT_EQ(L"Like !%", Written(L"!", Engine::MySql));
}

TEST(NamePattern, ConditionIsBound) {
    StatementWriter writer{DatabaseKind::SqlServer};
    writer << AsGiven{L"Select Ma,Ten From T Where Ten"};
    AppendLike(writer, FindingNames(L"50%", Engine::Sqlite, true), L"50%");
    const Statement statement = writer;
    EXPECT_EQ(L"Select Ma,Ten From T Where Ten  Like ? ESCAPE '!'", statement.text);
    EXPECT_EQ((std::vector<BoundValue>{std::optional<std::wstring>(L"%50!%%")}), statement.values);
}

// LIKE as the engines do it: letter case of ASCII aside, `!` or brackets before what is meant as it
// stands.
bool Like(std::wstring_view text, std::wstring_view pattern, bool brackets, bool escapes) {
    if (pattern.empty())
        return text.empty();
    const auto same = [](wchar_t left, wchar_t right) {
        const auto lower = [](wchar_t ch) { return ch < 0x80 ? ToLowerLetter(ch) : ch; };
        return lower(left) == lower(right);
    };
    const auto rest = [&](std::size_t units) {
        return Like(text.substr(1), pattern.substr(units), brackets, escapes);
    };
    if (pattern[0] == L'%') {
        for (std::size_t skipped = 0; skipped <= text.size(); ++skipped)
            if (Like(text.substr(skipped), pattern.substr(1), brackets, escapes))
                return true;
        return false;
    }
    if (text.empty())
        return false;
    if (pattern[0] == L'_')
        return rest(1);
    if (escapes && pattern[0] == L'!')
        return pattern.size() > 1 && same(text[0], pattern[1]) && rest(2);
    if (brackets && pattern[0] == L'[')
        return pattern.size() > 2 && pattern[2] == L']' && same(text[0], pattern[1]) && rest(3);
    return same(text[0], pattern[0]) && rest(1);
}

// Composed letters of Vietnamese, signs, wildcards; also what an engine and a search may take for a
// blank.
TEST(NamePattern, WhatASearchFindsTheEngineFinds) {
    constexpr std::wstring_view kLetters =
        L"aàÁăẮâẬbBcdDđĐeéÊhHiịkmnNoòóôỘơỜpqQstuúưỨyýỷx09 \u00A0\t%_[]!\\'-\u4E2DжЖ";
    std::mt19937 random(23);
    const auto text = [&](unsigned longest) {
        std::wstring made;
        for (unsigned length = random() % (longest + 1); length > 0; --length)
            made += kLetters[random() % kLetters.size()];
        return made;
    };
    int found = 0;
    for (int round = 0; round < 60000; ++round) {
        const std::wstring name = text(8);
        std::wstring typed = text(2);
        // Most typed texts are parts of the name, as somebody would type them.
        if (random() % 8 != 0 && !name.empty()) {
            const std::size_t at = random() % name.size();
            typed = name.substr(at, 1 + random() % 4);
            for (wchar_t& ch : typed)
                ch = random() % 2 ? ToUpperLetter(ch) : ToLowerLetter(ch);
        }
        for (const auto accents :
             {Sensitivity::Sensitive, Sensitivity::Smart, Sensitivity::Insensitive}) {
            const Match match = Matches(name, typed, accents);
            for (const bool anywhere : {false, true}) {
                if (match < (anywhere ? Match::Anywhere : Match::AtStart))
                    continue;
                ++found;
                for (const Engine engine : {Engine::SqlServer, Engine::Sqlite}) {
                    const Pattern pattern = FindingNames(typed, engine, anywhere);
                    ASSERT_TRUE(Like(name, pattern.text, engine == Engine::SqlServer,
                                     !pattern.clause.empty()))
                        << "[" << testing::PrintToString(name) << "] by ["
                        << testing::PrintToString(pattern.text) << "]";
                }
            }
        }
    }
    EXPECT_GT(found, 50000);
}

} // namespace
