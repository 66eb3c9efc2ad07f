// SPDX-License-Identifier: MIT
// Search conditions, text for text.
#include "find/text/condition.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

constexpr auto kJet = DatabaseKind::Jet;
constexpr auto kServer = DatabaseKind::SqlServer;

ConditionLine Line(long type, const wchar_t* op, const wchar_t* value, const wchar_t* name = L"F") {
    ConditionLine line;
    line.fieldIndex = 0;
    line.fieldType = type;
    line.fieldName = name;
    line.fieldText = L"Tên";
    line.operatorIndex = 0;
    line.operatorName = op;
    line.operatorText = L"bằng";
    line.value = value;
    line.joinName = L"and";
    line.joinText = L"và";
    return line;
}

} // namespace

TEST(CheckSql, LineNeedsFieldOperatorAndValue) {
    EXPECT_TRUE(CheckSql(Line(10, L"=", L"x")));
    EXPECT_FALSE(CheckSql(Line(10, L"=", L"")));
    ConditionLine line = Line(10, L"=", L"x");
    line.fieldIndex = -1;
    EXPECT_FALSE(CheckSql(line));
    line = Line(10, L"=", L"x");
    line.operatorIndex = -1;
    EXPECT_FALSE(CheckSql(line));
    EXPECT_FALSE(CheckSql(ConditionLine{}));
}

TEST(CheckSql, LaterFieldsAndOperatorsCountAlike) {
    ConditionLine line = Line(3, L"=", L"1");
    line.fieldIndex = 7;
    line.operatorIndex = 5;
    EXPECT_TRUE(CheckSql(line));
}

TEST(CheckSql, DisabledLineIsNotValid) {
    ConditionLine line = Line(10, L"=", L"x");
    line.enabled = false;
    EXPECT_FALSE(CheckSql(line));
}

TEST(CheckSql, NumberFieldsNeedANumber) {
    for (long type : {3, 13}) {
        EXPECT_FALSE(CheckSql(Line(type, L"=", L"12a"))) << type;
        EXPECT_FALSE(CheckSql(Line(type, L"=", L" "))) << type;
        EXPECT_TRUE(CheckSql(Line(type, L"=", L"12"))) << type;
        EXPECT_TRUE(CheckSql(Line(type, L"=", L"-1.5"))) << type;
        EXPECT_TRUE(CheckSql(Line(type, L"IN", L"1,2"))) << type;
    }
}

TEST(CheckSql, FlagFieldTakesAnyText) {
    EXPECT_TRUE(CheckSql(Line(1, L"=", L"12a")));
}

TEST(CheckSql, DateFieldNeedsADate) {
    EXPECT_TRUE(CheckSql(Line(8, L"=", L"5/3/2021")));
    EXPECT_FALSE(CheckSql(Line(8, L"=", L"32/1/2021")));
    EXPECT_FALSE(CheckSql(Line(8, L"=", L"soon")));
}

TEST(CheckSql, BlanksAreAValue) {
    EXPECT_TRUE(CheckSql(Line(10, L"=", L" ")));
}

TEST(CheckSql, FieldThatCannotBeSearchedNeedsNothingElse) {
    EXPECT_TRUE(CheckSql(Line(4, L"=", L"x")));
}

TEST(GetSql, TwoBlanksStandOnEachSideOfTheOperator) {
    EXPECT_EQ(GetSql(Line(1, L"=", L"12a"), kServer), L"(F  =  12a)");
    EXPECT_EQ(GetSql(Line(3, L">=", L"7"), kJet), L"(F  >=  7)");
}

TEST(GetSql, OperatorIsPutInCapitals) {
    EXPECT_EQ(GetSql(Line(10, L"like", L"x"), kServer), L"(F  LIKE  N'x%')");
    EXPECT_EQ(GetSql(Line(10, L"In", L"a,b"), kServer), L"(F  IN  ('a','b'))");
}

TEST(GetSql, VietnameseOperatorIsPutInCapitals) {
    EXPECT_EQ(GetSql(Line(10, L"chứa", L"x"), kJet), L"(F  CHỨA  'x')");
    EXPECT_EQ(GetSql(Line(10, L"không giống đầu ở ựơ", L"x"), kJet),
              L"(F  KHÔNG GIỐNG ĐẦU Ở ỰƠ  'x')");
}

TEST(GetSql, ApostropheIsDoubled) {
    EXPECT_EQ(GetSql(Line(10, L"=", L"O'Brien"), kJet), L"(F  =  'O''Brien')");
    EXPECT_EQ(GetSql(Line(10, L"=", L"O'Brien"), kServer), L"(F  =  N'O''Brien')");
}

TEST(GetSql, ListsGetBracketsOfTheirOwn) {
    EXPECT_EQ(GetSql(Line(10, L"IN", L"a,b"), kJet), L"(F  IN  ('a','b'))");
    EXPECT_EQ(GetSql(Line(3, L"IN", L"1,2"), kJet), L"(F  IN  (1,2))");
}

TEST(GetSql, DateStandsBetweenHashes) {
    EXPECT_EQ(GetSql(Line(8, L">", L"5/3/2021", L"D"), kServer), L"(D  >  #03/05/2021#)");
    EXPECT_EQ(GetSql(Line(8, L">", L"5/3/2021", L"D"), kJet), L"(D  >  #03/05/2021#)");
}

TEST(GetSql, ValueIsTrimmed) {
    EXPECT_EQ(GetSql(Line(10, L"=", L"  x "), kJet), L"(F  =  'x')");
    EXPECT_EQ(GetSql(Line(10, L"=", L" "), kJet), L"(F  =  '')");
}

TEST(GetSql, TypeWithoutAFormGivesNoValue) {
    EXPECT_EQ(GetSql(Line(4, L"=", L"5"), kJet), L"(F  =  )");
}

TEST(GetSql, BracketsOfTheValueAreMadeUpForAtTheEnd) {
    EXPECT_EQ(GetSql(Line(10, L"=", L"x)"), kJet), L"(F  =  'x)')(");
    EXPECT_EQ(GetSql(Line(10, L"=", L"(x"), kJet), L"(F  =  '(x'))");
    EXPECT_EQ(GetSql(Line(10, L"=", L"(x)"), kJet), L"(F  =  '(x)')");
}

TEST(GetBrackets, MissingOnesGoToTheEnd) {
    EXPECT_EQ(GetBrackets(L"(("), L"(())");
    EXPECT_EQ(GetBrackets(L"))"), L"))((");
    EXPECT_EQ(GetBrackets(L")("), L")(");
    EXPECT_EQ(GetBrackets(L""), L"");
}

TEST(GetDisplay, ValueStandsBetweenApostrophesWhateverItsType) {
    for (long type : {1, 3, 8, 10})
        EXPECT_EQ(GetDisplay(Line(type, L"=", L" 5 ")), L"(Tên  bằng  '5')") << type;
}

TEST(GetDisplay, NothingIsDoubledOrBalanced) {
    EXPECT_EQ(GetDisplay(Line(10, L"=", L"O'B)")), L"(Tên  bằng  'O'B)')");
}

TEST(GetDisplay, EmptyLineShowsItsFrame) {
    EXPECT_EQ(GetDisplay(ConditionLine{}), L"(    '')");
}

TEST(GetRes, JoinWordHasNoBlanks) {
    ConditionLines lines;
    lines[0] = Line(1, L"=", L"1", L"A");
    lines[1] = Line(10, L"LIKE", L"x", L"B");
    EXPECT_EQ(GetRes(lines, kServer), L"(A  =  1)and(B  LIKE  N'x%')");
    EXPECT_EQ(GetRes(lines, kJet), L"(A  =  1)and(B  LIKE  'x%')");
}

TEST(GetRes, FirstLineAloneWhenTheOthersAreEmpty) {
    ConditionLines lines;
    lines[0] = Line(10, L"=", L"x");
    EXPECT_EQ(GetRes(lines, kJet), L"(F  =  'x')");
}

TEST(GetRes, FirstLineIsTakenAsItIs) {
    EXPECT_EQ(GetRes(ConditionLines{}, kJet), L"(    )");
}

TEST(GetRes, InvalidLineIsPassedOver) {
    ConditionLines lines;
    lines.fill(Line(10, L"=", L"x"));
    lines[1].value.clear();
    lines[2].enabled = false;
    lines[3].joinName = L"or";
    EXPECT_EQ(GetRes(lines, kJet), L"(F  =  'x')or(F  =  'x')");
}

TEST(GetRes, AllFourLines) {
    ConditionLines lines;
    lines.fill(Line(3, L"=", L"1"));
    lines[2].joinName = L"or";
    EXPECT_EQ(GetRes(lines, kJet), L"(F  =  1)and(F  =  1)or(F  =  1)and(F  =  1)");
}

TEST(GetRes, EmptyJoinCountsAsAnd) {
    ConditionLines lines;
    lines.fill(Line(3, L"=", L"1"));
    lines[2] = {};
    lines[3] = {};
    lines[1].joinName.clear();
    lines[1].joinText.clear();
    EXPECT_EQ(GetRes(lines, kJet), L"(F  =  1)And(F  =  1)");
    EXPECT_EQ(GetDis(lines), L"(Tên  bằng  '1')và(Tên  bằng  '1')");
}

TEST(GetDis, ShowsTheSameLines) {
    ConditionLines lines;
    lines.fill(Line(10, L"=", L"x"));
    lines[1].joinText = L"hoặc";
    lines[2].value.clear();
    EXPECT_EQ(GetDis(lines), L"(Tên  bằng  'x')hoặc(Tên  bằng  'x')và(Tên  bằng  'x')");
}

TEST(GetDis, FirstLineIsShownWhileItIsBeingTyped) {
    ConditionLines lines;
    lines[0] = Line(3, L"=", L"12a");
    EXPECT_EQ(GetDis(lines), L"(Tên  bằng  '12a')");
}
