// SPDX-License-Identifier: MIT
// What must hold for any text, tried on many random ones: literals hold it, conversions give it
// back, conditions stay whole, numbers do not follow the locale.
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <locale>
#include <vector>

#include "ado/text/connection_string.h"
#include "text/sql_lexer.h"
#include "data/text/literals.h"
#include "data/text/number_text.h"
#include "find/text/condition.h"
#include "find/text/number_display.h"
#include "logon/text/logon_statement.h"
#include "support/random.h"
#include "text/tcvn3.h"

namespace {

using namespace vndesk;
using vndesk::test::Random;

constexpr int kRounds = 3000;
constexpr DatabaseKind kKinds[] = {DatabaseKind::Jet, DatabaseKind::SqlServer};

std::ptrdiff_t Count(std::wstring_view text, wchar_t ch) {
    return std::count(text.begin(), text.end(), ch);
}

// No quote is open at the end, read as engines read.
bool IsWhole(const std::wstring& statement) {
    for (const auto& [kind, text] : ReadTokens(statement))
        if (kind == TokenKind::Unclosed)
            return false;
    return true;
}

TEST(Properties, ALiteralIsOneTokenWithTheTextInIt) {
    Random random;
    for (int i = 0; i < kRounds; ++i) {
        const std::wstring text = random.Text();
        const DatabaseKind kind = random.Of(kKinds);
        const std::wstring literal = Literal(text, L"S", kind);
        ASSERT_EQ(1u, ReadTokens(literal).size()) << i;
        ASSERT_EQ(2 * Count(text, L'\'') + 2, Count(literal, L'\'')) << i;
        // Without what was doubled and put around, the text is left.
        std::wstring read;
        const std::size_t start = UnicodePrefix(kind).size() + 1;
        for (std::size_t at = start; at + 1 < literal.size(); ++at) {
            read += literal[at];
            at += literal[at] == L'\'' || literal[at] == L'"';
        }
        ASSERT_EQ(text, read) << i;
    }
}

TEST(Properties, Tcvn3TextComesBack) {
    Random random;
    for (int i = 0; i < kRounds; ++i) {
        std::wstring text;
        for (unsigned length = random.Below(40); length > 0; --length)
            text += random.Chance(60) ? static_cast<wchar_t>(random.Of(tcvn3::kPairs).code)
                                      : static_cast<wchar_t>(random.Below(0x80));
        ASSERT_EQ(text, ToUncText(ToUncText(text, kToUnicode), kToTcvn3)) << i;
    }
}

ConditionLine RandomLine(Random& random) {
    constexpr long kTypes[] = {3, 8, 10, 11, 13, 4};
    constexpr std::wstring_view kFields[] = {L"MaKH", L"[Dư nợ]", L"f(x)"};
    constexpr std::wstring_view kOperators[] = {L"=", L"like", L"IN", L"<>"};
    constexpr std::wstring_view kJoins[] = {L"and", L"or", L""};
    constexpr std::wstring_view kPlain[] = {L"1,2", L"31/12/2004", L"5"};
    ConditionLine line;
    line.fieldIndex = line.operatorIndex = 0;
    line.fieldType = random.Of(kTypes);
    line.fieldName = random.Of(kFields);
    line.operatorName = random.Of(kOperators);
    line.value = random.Chance(70) ? random.Text() : std::wstring(random.Of(kPlain));
    line.joinName = random.Of(kJoins);
    return line;
}

TEST(Properties, ConditionsHavePairedBracketsAndClosedQuotes) {
    Random random;
    int valid = 0;
    for (int i = 0; i < kRounds; ++i) {
        ConditionLines lines;
        for (ConditionLine& line : lines)
            line = RandomLine(random);
        const std::wstring condition = GetRes(lines, random.Of(kKinds));
        ASSERT_EQ(Count(condition, L'('), Count(condition, L')')) << i;
        if (!CheckSql(lines[0]))
            continue;
        ++valid;
        ASSERT_TRUE(IsWhole(condition)) << i;
    }
    EXPECT_GT(valid, kRounds / 4);
}

TEST(Properties, ConnectionStringsAreReadAsTheyWereWritten) {
    Random random;
    constexpr std::wstring_view kKeys[] = {L"Driver", L"Server", L"PWD", L"Data Source", L"Ổ đĩa"};
    for (int i = 0; i < kRounds; ++i) {
        ado::ConnectionString written;
        for (unsigned items = random.Below(5); items > 0; --items) {
            // Quotes in front are marks of a host's string; drivers' strings have none.
            const std::wstring value = random.Text();
            const std::size_t start = value.find_first_not_of(L"'\"");
            written.Set(random.Of(kKeys),
                        start ? value.substr(std::min(start, value.size())) : value);
        }
        const ado::ConnectionString read(FormatOdbc(written));
        ASSERT_EQ(written.Items().size(), read.Items().size()) << i;
        for (std::size_t item = 0; item < read.Items().size(); ++item) {
            ASSERT_EQ(written.Items()[item].key, read.Items()[item].key) << i;
            ASSERT_EQ(written.Items()[item].value, read.Items()[item].value) << i;
        }
    }
}

// A comma before the decimals and points between thousands, as in Vietnam, in C++ and, where the
// machine has such a locale, in C too.
class VietnameseNumbers {
public:
    VietnameseNumbers() : before_(std::locale::global({std::locale::classic(), new Marks})) {
        for (const char* name : {"vi_VN.UTF-8", "de_DE.UTF-8", "Vietnamese", "German"})
            if (std::setlocale(LC_ALL, name))
                break;
    }
    ~VietnameseNumbers() {
        std::setlocale(LC_ALL, "C");
        std::locale::global(before_);
    }

private:
    struct Marks : std::numpunct<wchar_t> {
        wchar_t do_decimal_point() const override { return L','; }
        wchar_t do_thousands_sep() const override { return L'.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::locale before_;
};

// All sizes that doubles have.
double RandomNumber(Random& random) {
    for (;;) {
        const std::uint64_t bits =
            static_cast<std::uint64_t>(random.Below(0xFFFFFFFF)) << 32 | random.Below(0xFFFFFFFF);
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value) && std::fabs(value) < 1e308)
            return random.Chance(50) ? value : std::ldexp(value, 1 - std::ilogb(value));
    }
}

TEST(Properties, NumbersAreTheSameInEveryLocale) {
    Random random;
    std::vector<double> numbers{0, 1234567.25, -0.5};
    for (int i = 0; i < kRounds; ++i)
        numbers.push_back(RandomNumber(random));
    std::vector<std::wstring> texts;
    for (const double number : numbers)
        texts.push_back(LogonStatement(L"An", number, DatabaseKind::Jet).text +
                        DoubleToText(number));
    const VietnameseNumbers locale;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::wstring text = DoubleToText(numbers[i]);
        ASSERT_EQ(texts[i], LogonStatement(L"An", numbers[i], DatabaseKind::Jet).text + text);
        ASSERT_EQ(std::wstring::npos, text.find(L','));
        ASSERT_EQ(text, Literal(text, L"N", DatabaseKind::Jet));
        ASSERT_NEAR(numbers[i], ParseNumber(text).value(), std::fabs(numbers[i]) * 1e-14);
    }
    EXPECT_EQ(L"-1.234.567,5", CvNStr(L"-1234567.5"));
    EXPECT_EQ(-1234567.5, CvTextToN(L"-1.234.567,5"));
}

} // namespace
