// SPDX-License-Identifier: MIT
// Search conditions run on real databases: which customers they find, and which of them an engine
// cannot run.
#include "data/condition_lines.h"

#include <optional>

#include "comkit/base/com_error.h"

namespace vndesk::test {
namespace {

class ConditionRows : public DataTest {
protected:
    std::wstring Condition(const ConditionLine& line) const {
        EXPECT_TRUE(CheckSql(line)) << ToUtf8(line.value);
        ConditionLines lines;
        lines[0] = line;
        return GetRes(lines, Kind());
    }

    Keys Rows(const std::wstring& condition) const { return CustomersWhere(Db(), condition); }

    struct Case {
        const wchar_t* field;
        long type;
        const wchar_t* op;
        const wchar_t* value;
        Keys rows;
    };
    void Expect(const std::vector<Case>& cases) const {
        for (const Case& entry : cases) {
            const std::wstring condition =
                Condition(Line(entry.field, entry.type, entry.op, entry.value));
            try {
                EXPECT_EQ(entry.rows, Rows(condition)) << ToUtf8(condition);
            } catch (const ComError& error) {
                ADD_FAILURE() << ToUtf8(condition + L": " + error.Description());
            }
        }
    }

    // The engine refuses the condition as no valid statement.
    void ExpectRefused(const ConditionLine& line) const {
        const std::wstring condition = Condition(line);
        try {
            Rows(condition);
            ADD_FAILURE() << ToUtf8(condition) << " was run";
        } catch (const ComError& error) {
            EXPECT_FALSE(error.Description().empty()) << ToUtf8(condition);
        }
    }

    bool OnServer() const { return GetParam() == Engine::Server; }
};
ON_BOTH_ENGINES(ConditionRows);

TEST_P(ConditionRows, NumberFields) {
    Expect({{L"SoDonHang", 3, L"=", L"42", {1}},
            {L"SoDonHang", 3, L"=", L" 42 ", {1}},
            {L"SoDonHang", 3, L"=", L"-1", {}},
            {L"SoDonHang", 3, L"<>", L"42", AllBut({1})},
            {L"SoDonHang", 3, L">", L"51", {16}},
            {L"SoDonHang", 3, L">=", L"51", {16, 17}},
            {L"SoDonHang", 3, L"<", L"1", {31}},
            {L"SoDonHang", 3, L"<=", L"1", {5, 11, 25, 29, 31}},
            {L"SoDonHang", 3, L">", L"-1", AllBut({})},
            {L"SoDonHang", 3, L"IN", L"1,2", {5, 7, 11, 15, 23, 25, 29}},
            {L"SoDonHang", 3, L"IN", L"42", {1}}});
}

TEST_P(ConditionRows, AmountFields) {
    Expect({{L"CongNo", 13, L"=", L"76400000.5", {4}},
            {L"CongNo", 13, L"<>", L"0", AllBut({3, 7, 11, 19, 25, 31})},
            {L"CongNo", 13, L">", L"143900000", {16, 17}},
            {L"CongNo", 13, L">=", L"143900000", {16, 17, 20}},
            {L"CongNo", 13, L"<", L"120000", {3, 7, 11, 19, 25, 31}},
            {L"CongNo", 13, L"<=", L"120000", {3, 7, 11, 19, 25, 29, 31}},
            {L"CongNo", 13, L"IN", L"120000,350000", {15, 29}}});
}

TEST_P(ConditionRows, FlagFields) {
    const Keys wholesale = {1, 2, 4, 6, 8, 10, 12, 14, 16, 17, 20, 22, 24, 27, 28, 30};
    Expect(
        {{L"KhachSi", 1, L"=", L"1", wholesale}, {L"KhachSi", 1, L"<>", L"1", AllBut(wholesale)}});
}

TEST_P(ConditionRows, DateFields) {
    Expect({{L"NgayLap", 8, L"=", L"15/1/2004", {1}},
            {L"NgayLap", 8, L"=", L" 15 / 01 / 2004 ", {1}},
            {L"NgayLap", 8, L"<>", L"15/1/2004", AllBut({1, kWithoutData})},
            {L"NgayLap", 8, L">", L"16/5/2005", {30}},
            {L"NgayLap", 8, L">=", L"16/5/2005", {29, 30}},
            {L"NgayLap", 8, L"<", L"3/2/2004", {1}},
            {L"NgayLap", 8, L"<=", L"3/2/2004", {1, 2}}});
}

// The day comes first: 2 November would be another row's place.
TEST_P(ConditionRows, DayStandsBeforeTheMonth) {
    Expect({{L"NgayLap", 8, L"=", L"5/11/2004", {17}}, {L"NgayLap", 8, L"=", L"11/5/2004", {}}});
}

TEST_P(ConditionRows, MonthBeforeDayIsFoundWhereOnlyThatIsADate) {
    Expect({{L"NgayLap", 8, L"=", L"1/15/2004", {1}}});
}

TEST_P(ConditionRows, DatesAtTheEndsOfTheCalendar) {
    Expect({{L"NgayLap", 8, L"=", L"29/2/2004", {}},
            {L"NgayLap", 8, L"<", L"31/12/9999", AllBut({kWithoutData})},
            {L"NgayLap", 8, L">", L"31/12/9999", {}},
            {L"NgayLap", 8, L">", L"1/1/1000", AllBut({kWithoutData})}});
}

// The year is filled with zeros, not taken for one of this century, and before the year 100 there
// are no date literals.
TEST_P(ConditionRows, TwoDigitYearsMakeNoStatement) {
    ExpectRefused(Line(L"NgayLap", 8, L"=", L"15/1/04"));
    ExpectRefused(Line(L"NgayLap", 8, L">", L"15/1/4"));
}

TEST_P(ConditionRows, DatesWithATime) {
    Expect({{L"NgayLap", 8, L">", L"15/1/2004 10:30", AllBut({1, kWithoutData})},
            {L"NgayLap", 8, L"<", L"15/1/2004 10:30", {1}}});
}

TEST_P(ConditionRows, DatesThatAreNoneAreNotValid) {
    for (const wchar_t* value : {L"29/2/2005", L"31/4/2004", L"0/1/2004", L"13/13/2004", L"2004"})
        EXPECT_FALSE(CheckSql(Line(L"NgayLap", 8, L"=", value))) << ToUtf8(value);
}

TEST_P(ConditionRows, TextFields) {
    const Keys hanoi = {1, 2, 3, 26, 27};
    Expect({{L"MaTinh", 10, L"=", L"HN", hanoi},
            {L"MaTinh", 10, L"=", L"hn", hanoi},
            {L"MaTinh", 10, L"=", L"  HN ", hanoi},
            {L"MaTinh", 10, L"<>", L"HN", AllBut({1, 2, 3, 26, 27, kWithoutData})},
            {L"MaTinh", 10, L"LIKE", L"H", {1, 2, 3, 4, 5, 16, 17, 18, 19, 20, 21, 26, 27, 28}},
            {L"MaTinh", 10, L"IN", L"HN,HP", {1, 2, 3, 4, 5, 26, 27, 28}},
            {L"MaTinh", 10, L"IN", L"XX", {}},
            {L"MaTinh", 10, L"IN", L"TTH", {10, 11}}});
}

// The blank belongs to the second value.
TEST_P(ConditionRows, BlankAfterACommaIsPartOfTheValue) {
    Expect({{L"MaTinh", 10, L"IN", L"HN, HP", {1, 2, 3, 26, 27}}});
}

TEST_P(ConditionRows, VietnameseText) {
    Expect({{L"Name", 10, L"=", L"Nguyễn Thị Lan", {3}},
            {L"Name", 10, L"LIKE", L"Đại lý", {8, 24}},
            {L"Name", 10, L"LIKE", L"Công ty", {1, 12, 20, 30}},
            {L"Name", 10, L"LIKE", L"công TY", {1, 12, 20, 30}},
            {L"Name", 10, L"IN", L"Vũ Ngọc Ánh,Dương Thuỳ Ý", {15, 29}},
            {L"DiaChi", 11, L"LIKE", L"25", {1, 30}},
            {L"DiaChi", 11, L"=", L"7 ngõ 12 Láng Hạ, Ba Đình", {3}},
            {L"DiaChi", 11, L"<>", L"7 ngõ 12 Láng Hạ, Ba Đình", AllBut({3, kWithoutData})}});
}

// SQLite folds the letters A to Z only; the server folds the Vietnamese ones too.
TEST_P(ConditionRows, CaseOfVietnameseLettersIsTheEnginesMatter) {
    const Keys companies = {1, 12, 20, 30};
    Expect({{L"Name", 10, L"LIKE", L"CÔNG TY", OnServer() ? companies : Keys{}}});
}

TEST_P(ConditionRows, ApostrophesAreFound) {
    Expect({{L"Name", 10, L"=", L"John O'Brien", {18}},
            {L"Name", 10, L"LIKE", L"John O'", {18}},
            {L"Name", 10, L"<>", L"John O'Brien", AllBut({18})},
            {L"DiaChi", 11, L"=", L"O'x", {}},
            {L"Name", 10, L"IN", L"John O'Brien,Nguyễn Thị Lan", {3, 18}},
            {L"Name", 10, L"=", L"' or 'a'='a", {}},
            {L"Name", 10, L"=", L"'; Delete From KhachHang; --", {}}});
    EXPECT_EQ(AllBut({}), Rows(L"1=1"));
}

// Both engines read the doubled double quote between apostrophes as two of them, so a name with
// one is not found: the row is there, under its name with single ones.
TEST_P(ConditionRows, DoubleQuotesAreDoubledAndNotFound) {
    Expect({{L"Name", 10, L"=", L"Công ty \"Tre Việt\"", {}},
            {L"Name", 10, L"LIKE", L"Công ty \"", {}}});
    EXPECT_EQ(Keys{30}, Rows(L"Name='Công ty \"Tre Việt\"'"));
}

TEST_P(ConditionRows, PatternsMayHoldWildcards) {
    Expect({{L"Name", 10, L"LIKE", L"%Ánh", {2, 15}},
            {L"MaTinh", 10, L"LIKE", L"_N", {1, 2, 3, 6, 7, 12, 13, 26, 27, 29, 30}}});
}

TEST_P(ConditionRows, BalancedParenthesesAreFound) {
    Sample().Execute(L"UPDATE KhachHang SET Name='Kho (cũ)' WHERE MaKH='KH005'");
    Expect({{L"Name", 10, L"=", L"Kho (cũ)", {5}},
            {L"Name", 10, L"LIKE", L"Kho (cũ)", {5}},
            {L"Name", 10, L"<>", L"Kho (cũ)", AllBut({5})},
            {L"Name", 10, L"IN", L"Kho (cũ),John O'Brien", {5, 18}},
            {L"Name", 10, L"=", L"(x)", {}}});
}

// The counts of "(" and ")" are made equal at the end of the line, where no bracket may stand.
TEST_P(ConditionRows, SingleParenthesesMakeNoStatement) {
    ExpectRefused(Line(L"Name", 10, L"=", L"x)"));
    ExpectRefused(Line(L"Name", 10, L"LIKE", L"Kho ("));
}

// A value of only blanks is trimmed to nothing.
TEST_P(ConditionRows, EmptyValues) {
    Expect({{L"Name", 10, L"=", L" ", {}},
            {L"Name", 10, L"LIKE", L" ", AllBut({})},
            {L"DiaChi", 11, L"LIKE", L" ", AllBut({kWithoutData})},
            {L"DiaChi", 11, L"<>", L" ", AllBut({kWithoutData})},
            {L"MaTinh", 10, L"IN", L" ", {}}});
}

// What a flag field gets is written as typed, and neither engine reads 12a as a number.
TEST_P(ConditionRows, FlagThatIsNoNumberMakesNoStatement) {
    ExpectRefused(Line(L"KhachSi", 1, L"=", L"12a"));
    ExpectRefused(Line(L"KhachSi", 1, L"=", L" "));
}

// A list passes as numeric, and only IN can take one.
TEST_P(ConditionRows, NumberListNeedsItsOperator) {
    ExpectRefused(Line(L"SoDonHang", 3, L"=", L"1,2"));
}

// Dates are cut at "/": with other separators they stay whole, behind two slashes.
TEST_P(ConditionRows, DatesWithOtherSeparatorsMakeNoStatement) {
    ExpectRefused(Line(L"NgayLap", 8, L"=", L"15-1-2004"));
    ExpectRefused(Line(L"NgayLap", 8, L"=", L"15.1.2004"));
}

// The year in front is taken for the day.
TEST_P(ConditionRows, DatesThatBeginWithTheYearMakeNoStatement) {
    ExpectRefused(Line(L"NgayLap", 8, L"=", L"2004/1/15"));
}

// A field of another type is written without a value.
TEST_P(ConditionRows, FieldWithoutAFormMakesNoStatement) {
    ExpectRefused(Line(L"SoDonHang", 4, L"=", L"1"));
}

TEST_P(ConditionRows, LinesAreJoinedByAndAndOr) {
    ConditionLines lines;
    lines[0] = Line(L"MaTinh", 10, L"=", L"HN");
    lines[1] = Line(L"KhachSi", 1, L"=", L"1");
    EXPECT_EQ((Keys{1, 2, 27}), Rows(GetRes(lines, Kind())));
    lines[2] = Line(L"CongNo", 13, L">", L"20000000");
    EXPECT_EQ((Keys{1, 2}), Rows(GetRes(lines, Kind())));
    lines[3] = Line(L"NgayLap", 8, L"<", L"1/2/2004");
    EXPECT_EQ((Keys{1}), Rows(GetRes(lines, Kind())));
    // "and" binds more strongly: there are no brackets around several lines.
    lines[1] = Line(L"MaTinh", 10, L"=", L"HP");
    lines[1].joinName = L"or";
    lines[2] = Line(L"KhachSi", 1, L"=", L"1");
    lines[3] = {};
    EXPECT_EQ((Keys{1, 2, 3, 4, 26, 27, 28}), Rows(GetRes(lines, Kind())));
}

// Every field of the sample catalogue with every operator that is offered for it.
TEST_P(ConditionRows, WholeCatalogueRuns) {
    const auto good = [](const std::wstring& type) {
        return type == L"8" ? L"5/3/2005" : type == L"10" || type == L"11" ? L"Hà Nội" : L"1";
    };
    int run = 0;
    for (const auto& field : Sample().Query(L"SELECT intable,name,type FROM lstfld ORDER BY code"))
        for (const auto& op :
             Sample().Query(L"SELECT name FROM operator WHERE type=" + *field[2])) {
            const std::wstring condition = Condition(
                Line(field[1]->c_str(), _wtoi(field[2]->c_str()), op[0]->c_str(), good(*field[2])));
            Recordset rows;
            rows.Create(Db());
            try {
                rows.Open(L"Select * From " + *field[0] + L" Where " + condition);
                ++run;
            } catch (const ComError& error) {
                ADD_FAILURE() << ToUtf8(condition + L": " + error.Description());
            }
        }
    EXPECT_GT(run, 60);
}

} // namespace
} // namespace vndesk::test
