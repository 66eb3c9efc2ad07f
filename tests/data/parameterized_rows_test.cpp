// SPDX-License-Identifier: MIT
// Search conditions with bound values on real databases: the rows of the conditions with literals,
// and those that a user meant where literals make no statement or find something else.
#include "data/condition_lines.h"

#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "find/text/parameterized_condition.h"

namespace vndesk::test {
namespace {

class ParameterizedRows : public DataTest {
protected:
    Keys Rows(const ConditionLines& lines) const {
        const Statement condition = GetParameterized(lines, EngineOf(Db()));
        try {
            return CustomersWhere(Db(), condition);
        } catch (const ComError& error) {
            ADD_FAILURE() << ToUtf8(condition.text + L": " + error.Description());
            return {};
        }
    }
    Keys Rows(const ConditionLine& line) const {
        EXPECT_TRUE(CheckSql(line)) << ToUtf8(line.value);
        ConditionLines lines;
        lines[0] = line;
        return Rows(lines);
    }

    void ExpectRefused(const ConditionLine& line) const {
        ConditionLines lines;
        lines[0] = line;
        const Statement condition = GetParameterized(lines, EngineOf(Db()));
        EXPECT_THROW(CustomersWhere(Db(), condition), ComError) << ToUtf8(condition.text);
    }

    void Rename(int key, const std::wstring& name) const {
        EXPECT_EQ(1, Sample().Execute(L"UPDATE KhachHang SET Name='" + name + L"' WHERE MaKH='KH0" +
                                      (key < 10 ? L"0" : L"") + std::to_wstring(key) + L"'"));
    }
};
ON_BOTH_ENGINES(ParameterizedRows);

TEST_P(ParameterizedRows, AreThoseOfTheConditionWithLiterals) {
    const ConditionLine kLines[] = {
        Line(L"SoDonHang", 3, L"=", L"42"),
        Line(L"SoDonHang", 3, L"<>", L" 42 "),
        Line(L"SoDonHang", 3, L">=", L"51"),
        Line(L"SoDonHang", 3, L">", L"-1"),
        Line(L"SoDonHang", 3, L"<", L"2.5"),
        Line(L"SoDonHang", 3, L"<", L"3000000000"),
        Line(L"SoDonHang", 3, L"IN", L"1,2"),
        Line(L"CongNo", 13, L"=", L"76400000.5"),
        Line(L"CongNo", 13, L"<", L"120000"),
        Line(L"CongNo", 13, L"IN", L"120000,350000"),
        Line(L"KhachSi", 1, L"=", L"1"),
        Line(L"KhachSi", 1, L"IN", L"0, 1"),
        Line(L"NgayLap", 8, L"=", L"15/1/2004"),
        Line(L"NgayLap", 8, L"=", L"1/15/2004"),
        Line(L"NgayLap", 8, L"<>", L"15/1/2004"),
        Line(L"NgayLap", 8, L">", L"16/5/2005"),
        Line(L"NgayLap", 8, L"<=", L"3/2/2004"),
        Line(L"NgayLap", 8, L"=", L"5/11/2004"),
        Line(L"NgayLap", 8, L"<", L"31/12/9999"),
        Line(L"NgayLap", 8, L">", L"1/1/1000"),
        Line(L"NgayLap", 8, L">", L"15/1/2004 10:30"),
        Line(L"NgayLap", 8, L"<", L"15/1/2004 10:30"),
        Line(L"MaTinh", 10, L"=", L"hn"),
        Line(L"MaTinh", 10, L"<>", L" HN "),
        Line(L"MaTinh", 10, L"LIKE", L"H"),
        Line(L"MaTinh", 10, L"IN", L"HN,HP"),
        Line(L"MaTinh", 10, L"IN", L"HN, HP"),
        Line(L"Name", 10, L"LIKE", L"công TY"),
        Line(L"Name", 10, L"LIKE", L"CÔNG TY"),
        Line(L"Name", 10, L"=", L"John O'Brien"),
        Line(L"Name", 10, L"IN", L"John O'Brien,Nguyễn Thị Lan"),
        Line(L"Name", 10, L"=", L"' or 'a'='a"),
        Line(L"Name", 10, L"LIKE", L" "),
        Line(L"DiaChi", 11, L"LIKE", L"25"),
        Line(L"DiaChi", 11, L"=", L"7 ngõ 12 Láng Hạ, Ba Đình"),
    };
    for (const ConditionLine& line : kLines) {
        ConditionLines lines;
        lines[0] = line;
        const std::wstring literal = GetRes(lines, Kind());
        EXPECT_EQ(CustomersWhere(Db(), literal), Rows(line)) << ToUtf8(literal);
    }
}

TEST_P(ParameterizedRows, LinesAreJoinedByAndAndOr) {
    ConditionLines lines;
    lines[0] = Line(L"MaTinh", 10, L"=", L"HN");
    lines[1] = Line(L"MaTinh", 10, L"IN", L"HP,HN");
    lines[1].joinName = L"or";
    lines[2] = Line(L"KhachSi", 1, L"=", L"1");
    lines[3] = Line(L"NgayLap", 8, L">", L"1/2/2004");
    EXPECT_EQ(CustomersWhere(Db(), GetRes(lines, Kind())), Rows(lines));
    EXPECT_EQ((Keys{1, 2, 3, 4, 26, 27, 28}), Rows(lines));
}

TEST_P(ParameterizedRows, QuotesAndParenthesesAreLetters) {
    EXPECT_EQ(Keys{30}, Rows(Line(L"Name", 10, L"=", L"Công ty \"Tre Việt\"")));
    EXPECT_EQ(Keys{30}, Rows(Line(L"Name", 10, L"LIKE", L"Công ty \"")));
    Rename(5, L"Kho (cu");
    EXPECT_EQ(Keys{5}, Rows(Line(L"Name", 10, L"=", L"Kho (cu")));
    EXPECT_EQ((Keys{5, 30}), Rows(Line(L"Name", 10, L"IN", L"Kho (cu,Công ty \"Tre Việt\"")));
    EXPECT_EQ(Keys{}, Rows(Line(L"Name", 10, L"=", L"x)")));
    EXPECT_EQ(Keys{}, Rows(Line(L"Name", 10, L"=", L"'; Delete From KhachHang; --")));
}

TEST_P(ParameterizedRows, WildcardsAreLetters) {
    Rename(1, L"50% giam");
    Rename(2, L"500 giam");
    Rename(3, L"a_b");
    Rename(4, L"axb");
    Rename(5, L"[x] y");
    Rename(6, L"x y");
    Rename(7, L"!50%");
    Rename(8, L"C:\\Kho");
    EXPECT_EQ(Keys{1}, Rows(Line(L"Name", 10, L"LIKE", L"50%")));
    EXPECT_EQ((Keys{1, 2}), Rows(Line(L"Name", 10, L"LIKE", L"50")));
    EXPECT_EQ(Keys{3}, Rows(Line(L"Name", 10, L"LIKE", L"a_")));
    EXPECT_EQ(Keys{5}, Rows(Line(L"Name", 10, L"LIKE", L"[x]")));
    EXPECT_EQ(Keys{6}, Rows(Line(L"Name", 10, L"LIKE", L"x")));
    EXPECT_EQ(Keys{7}, Rows(Line(L"Name", 10, L"LIKE", L"!50%")));
    EXPECT_EQ(Keys{8}, Rows(Line(L"Name", 10, L"LIKE", L"C:\\")));
    EXPECT_EQ(Keys{}, Rows(Line(L"Name", 10, L"LIKE", L"%")));
    EXPECT_EQ(Keys{1}, Rows(Line(L"Name", 10, L"=", L"50% giam")));
}

TEST_P(ParameterizedRows, DatesOfEveryFormAreFound) {
    for (const wchar_t* day : {L"15-1-2004", L"15.1.2004", L"2004/1/15", L"15/1/04", L"15/1/4"})
        EXPECT_EQ(Keys{1}, Rows(Line(L"NgayLap", 8, L"=", day))) << ToUtf8(day);
    EXPECT_EQ(Keys{1}, Rows(Line(L"NgayLap", 8, L"IN", L"15/1/2004")));
}

TEST_P(ParameterizedRows, ListWithoutItsOperatorMakesNoStatement) {
    ExpectRefused(Line(L"SoDonHang", 3, L"=", L"1,2"));
}

} // namespace
} // namespace vndesk::test
