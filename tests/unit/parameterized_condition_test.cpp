// SPDX-License-Identifier: MIT
// Search conditions with parameters: the text, the values in their order, and how both belong to
// the condition with literals.
#include "find/text/parameterized_condition.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "data/text/number_text.h"
#include "support/random.h"

using namespace vndesk;

namespace {

constexpr double kTextDate = 38001; // 15/1/2004

ConditionLine Line(long type, const wchar_t* op, const wchar_t* value, const wchar_t* name = L"F") {
    ConditionLine line;
    line.fieldIndex = line.operatorIndex = 0;
    line.fieldType = type;
    line.fieldName = name;
    line.operatorName = op;
    line.value = value;
    line.joinName = L"and";
    return line;
}

Statement Of(const ConditionLine& line, Engine engine = Engine::Sqlite) {
    ConditionLines lines;
    lines[0] = line;
    return GetParameterized(lines, engine);
}

BoundValue Text(const wchar_t* text) {
    return std::optional<std::wstring>(text);
}
BoundValue Long(long number) {
    return std::optional(number);
}
BoundValue Double(double number) {
    return std::optional(number);
}
BoundValue Date(double days) {
    return std::optional(Day{days});
}
BoundValue Time(double days) {
    return std::optional(Moment{days});
}

using Values = std::vector<BoundValue>;

void ExpectOne(const BoundValue& value, const ConditionLine& line) {
    const Statement condition = Of(line);
    EXPECT_EQ(L"(F  " + line.operatorName + L"  ?)", condition.text) << line.value;
    EXPECT_EQ(Values{value}, condition.values) << line.value;
}

} // namespace

TEST(GetParameterized, TextIsWhatWasTyped) {
    for (long type : {10, 11}) {
        ExpectOne(Text(L"O'Brien"), Line(type, L"=", L"O'Brien"));
        ExpectOne(Text(L"Công ty \"Tre Việt\""), Line(type, L"<>", L" Công ty \"Tre Việt\"  "));
        ExpectOne(Text(L"' or 'a'='a"), Line(type, L"=", L"' or 'a'='a"));
        ExpectOne(Text(L""), Line(type, L"=", L" "));
        ExpectOne(Text(L"1,2"), Line(type, L"=", L"1,2"));
        ExpectOne(Text(L"?"), Line(type, L"=", L"?"));
    }
}

// The value is not in the text any more.
TEST(GetParameterized, SingleParenthesesOfAValueNeedNoOther) {
    ExpectOne(Text(L"x)"), Line(10, L"=", L"x)"));
    ExpectOne(Text(L"((x"), Line(10, L"=", L"((x"));
}

TEST(GetParameterized, ParenthesesOfAFieldAreMadeUpForAsBefore) {
    EXPECT_EQ(L"(f(A  =  ?))", Of(Line(10, L"=", L"x", L"f(A")).text);
    EXPECT_EQ(L"(A)  =  ?)(", Of(Line(10, L"=", L"x", L"A)")).text);
}

TEST(GetParameterized, WholeNumbersOf32BitsAreLong) {
    for (long type : {1, 3, 13}) {
        ExpectOne(Long(42), Line(type, L"=", L" 42 "));
        ExpectOne(Long(-7), Line(type, L">", L"-7"));
        ExpectOne(Long(100), Line(type, L"=", L"1e2"));
        ExpectOne(Long(12), Line(type, L"=", L"012.0"));
        ExpectOne(Long(2147483647), Line(type, L"=", L"2147483647"));
        ExpectOne(Long(-2147483647 - 1), Line(type, L"=", L"-2147483648"));
    }
}

TEST(GetParameterized, OtherNumbersAreDouble) {
    for (long type : {1, 3, 13}) {
        ExpectOne(Double(76400000.5), Line(type, L"=", L"76400000.5"));
        ExpectOne(Double(2147483648.0), Line(type, L"=", L"2147483648"));
        ExpectOne(Double(-2147483649.0), Line(type, L"<", L"-2147483649"));
        ExpectOne(Double(0.25), Line(type, L"=", L".25"));
        ExpectOne(Double(1e20), Line(type, L"<", L"1E20"));
    }
}

TEST(GetParameterized, FlagThatIsNoNumberIsText) {
    ExpectOne(Text(L"12a"), Line(1, L"=", L"12a"));
    ExpectOne(Text(L"1 or 1=1"), Line(1, L"=", L"1 or 1=1"));
    ExpectOne(Text(L""), Line(1, L"=", L" "));
}

TEST(GetParameterized, DatesAreMeantAsDayMonthYear) {
    ExpectOne(Date(kTextDate), Line(8, L"=", L"15/1/2004"));
    ExpectOne(Date(kTextDate), Line(8, L"=", L" 15 / 01 / 2004 "));
    ExpectOne(Date(kTextDate), Line(8, L"=", L"1/15/2004"));
    ExpectOne(Date(kTextDate), Line(8, L"=", L"15-1-2004"));
    ExpectOne(Date(kTextDate), Line(8, L"=", L"2004.1.15"));
    ExpectOne(Date(kTextDate), Line(8, L"=", L"15/1/04"));
    ExpectOne(Time(kTextDate + 0.4375), Line(8, L">", L"15/1/2004 10:30"));
    ExpectOne(Date(38297), Line(8, L"=", L"6/11/2004"));
}

TEST(GetParameterized, ListsHaveAParameterForEachItem) {
    const Statement texts = Of(Line(10, L"in", L" HN, HP,,O'B "));
    EXPECT_EQ(L"(F  IN  (?,?,?,?))", texts.text);
    EXPECT_EQ((Values{Text(L"HN"), Text(L" HP"), Text(L""), Text(L"O'B")}), texts.values);
    const Statement numbers = Of(Line(3, L"IN", L"1,2.5"));
    EXPECT_EQ(L"(F  IN  (?,?))", numbers.text);
    EXPECT_EQ((Values{Long(1), Double(2.5)}), numbers.values);
    const Statement flags = Of(Line(1, L"IN", L"1, 0,x"));
    EXPECT_EQ(L"(F  IN  (?,?,?))", flags.text);
    EXPECT_EQ((Values{Long(1), Long(0), Text(L"x")}), flags.values);
    const Statement one = Of(Line(8, L"IN", L"15/1/2004"));
    EXPECT_EQ(L"(F  IN  (?))", one.text);
    EXPECT_EQ(Values{Date(kTextDate)}, one.values);
}

// As with literals: no engine takes it for one number or the other.
TEST(GetParameterized, ListWithoutItsOperatorStaysAList) {
    const Statement condition = Of(Line(3, L"=", L"1,2"));
    EXPECT_EQ(L"(F  =  ?,?)", condition.text);
    EXPECT_EQ((Values{Long(1), Long(2)}), condition.values);
}

TEST(GetParameterized, PatternIsWrittenForItsEngine) {
    for (const Engine engine :
         {Engine::Jet, Engine::SqlServer, Engine::PostgreSql, Engine::Sqlite, Engine::MySql}) {
        const Statement plain = Of(Line(10, L"like", L" Công ty "), engine);
        EXPECT_EQ(L"(F  LIKE  ?)", plain.text);
        EXPECT_EQ(Values{Text(L"Công ty%")}, plain.values);
    }
    const Statement brackets = Of(Line(10, L"LIKE", L"50%"), Engine::SqlServer);
    EXPECT_EQ(L"(F  LIKE  ?)", brackets.text);
    EXPECT_EQ(Values{Text(L"50[%]%")}, brackets.values);
    const Statement letter = Of(Line(11, L"LIKE", L"50%"), Engine::PostgreSql);
    EXPECT_EQ(L"(F  LIKE  ? ESCAPE '!')", letter.text);
    EXPECT_EQ(Values{Text(L"50!%%")}, letter.values);
}

TEST(GetParameterized, OnlyLikeOnTextsMakesAPattern) {
    ExpectOne(Text(L"50%"), Line(10, L"=", L"50%"));
    ExpectOne(Text(L"%x_"), Line(10, L"NOT LIKE", L"%x_"));
    ExpectOne(Long(5), Line(3, L"LIKE", L"5"));
}

TEST(GetParameterized, TypeWithoutAFormHasNoValue) {
    for (long type : {-1, 0, 2, 4, 9, 12, 14})
        for (const wchar_t* op : {L"=", L"IN", L"LIKE"}) {
            const ConditionLine line = Line(type, op, L"5");
            EXPECT_EQ(GetSql(line, DatabaseKind::Jet), Of(line).text);
            EXPECT_TRUE(Of(line).values.empty());
        }
}

TEST(GetParameterized, LinesAreJoinedAsBefore) {
    ConditionLines lines;
    lines[0] = Line(10, L"=", L"KH001", L"MaKH");
    lines[1] = Line(10, L"LIKE", L"Công", L"Ten");
    EXPECT_EQ(L"(MaKH  =  ?)and(Ten  LIKE  ?)", GetParameterized(lines, Engine::Jet).text);
    lines[2] = Line(3, L"=", L"12a", L"So");
    lines[3] = Line(8, L">", L"15/1/2004", L"Ngay");
    lines[1].joinName = L"or";
    lines[3].joinName.clear();
    const Statement condition = GetParameterized(lines, Engine::Jet);
    EXPECT_EQ(L"(MaKH  =  ?)or(Ten  LIKE  ?)And(Ngay  >  ?)", condition.text);
    EXPECT_EQ((Values{Text(L"KH001"), Text(L"Công%"), Date(kTextDate)}), condition.values);
}

TEST(GetParameterized, FirstLineIsTakenAsItIs) {
    EXPECT_EQ(L"(    )", GetParameterized(ConditionLines{}, Engine::Jet).text);
    ExpectOne(Text(L"12a"), Line(3, L"=", L"12a"));
    ExpectOne(Text(L"soon"), Line(8, L"=", L"soon"));
}

namespace {

// A value as GetSql writes it; a pattern's own % is in it already.
std::wstring LiteralOf(const BoundValue& value, bool inList) {
    if (const auto* number = std::get_if<std::optional<long>>(&value))
        return std::to_wstring(number->value());
    if (const auto* number = std::get_if<std::optional<double>>(&value))
        return DoubleToText(number->value());
    if (const auto* text = std::get_if<std::optional<std::wstring>>(&value))
        return (inList ? L"'" : L"N'") + DoubleQuotes(text->value()) + L"'";
    return L"#01/" +
           std::to_wstring(
               static_cast<long>(std::get<std::optional<Day>>(value)->days - kTextDate) + 15) +
           L"/2004#";
}

// The statement with its values written into the text.
std::wstring WrittenOut(const Statement& statement) {
    std::wstring text;
    std::size_t next = 0;
    for (std::size_t i = 0; i < statement.text.size(); ++i) {
        if (statement.text[i] != L'?') {
            text += statement.text[i];
            continue;
        }
        const wchar_t before = statement.text[i - 1];
        text += LiteralOf(statement.values.at(next++), before == L'(' || before == L',');
    }
    EXPECT_EQ(statement.values.size(), next);
    return text;
}

} // namespace

// Of values without quirks: the two forms differ in nothing but where the values stand.
TEST(GetParameterized, WithItsValuesItIsTheConditionWithLiterals) {
    test::Random random;
    for (int round = 0; round < 5000; ++round) {
        ConditionLines lines;
        for (ConditionLine& line : lines) {
            constexpr long kTypes[] = {1, 3, 4, 8, 10, 11, 13};
            constexpr const wchar_t* kOperators[] = {L"=", L"<>", L">=", L"Like", L"IN"};
            constexpr const wchar_t* kTexts[] = {L"HN",      L"O'Brien", L"\"Tre Việt\"",
                                                 L"Công ty", L"HN,HP",   L"1,,2"};
            constexpr const wchar_t* kNumbers[] = {L"42", L"-1.5", L"76400000.5"};
            constexpr const wchar_t* kDays[] = {L"10/1/2004", L"15/01/2004", L"31/ 1 /2004"};
            line = Line(random.Of(kTypes), random.Of(kOperators), L"");
            if (line.fieldType == 8)
                // There is no list of dates with literals.
                line.operatorName = L"=";
            line.value = line.fieldType == 8                            ? random.Of(kDays)
                         : line.fieldType >= 10 && line.fieldType <= 11 ? random.Of(kTexts)
                         : random.Chance(30)                            ? L"1,2"
                                                                        : random.Of(kNumbers);
            if (random.Chance(20))
                line.value = L" " + line.value + L" ";
            line.joinName = random.Chance(50) ? L"or" : random.Chance(50) ? L"and" : L"";
            line.enabled = random.Chance(80);
        }
        const std::wstring literal = GetRes(lines, DatabaseKind::SqlServer);
        ASSERT_EQ(literal, WrittenOut(GetParameterized(lines, Engine::SqlServer)));
    }
}

// Of any texts at all.
TEST(GetParameterized, HasAsManyMarksAsValues) {
    test::Random random;
    for (int round = 0; round < 5000; ++round) {
        ConditionLines lines;
        for (ConditionLine& line : lines) {
            constexpr const wchar_t* kOperators[] = {L"=", L"LIKE", L"IN"};
            const std::wstring value = random.Text();
            line = Line(static_cast<long>(random.Below(15)), random.Of(kOperators), value.c_str());
        }
        for (const Engine engine : {Engine::Jet, Engine::Sqlite}) {
            const Statement condition = GetParameterized(lines, engine);
            const auto marks = std::count(condition.text.begin(), condition.text.end(), L'?');
            ASSERT_EQ(condition.values.size(), static_cast<std::size_t>(marks)) << condition.text;
            for (const wchar_t* part : {L"Nguyễn", L"--", L"\"", L"\\"})
                ASSERT_EQ(std::wstring::npos, condition.text.find(part)) << condition.text;
        }
    }
}
