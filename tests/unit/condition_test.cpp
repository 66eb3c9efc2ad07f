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
    EXPECT_EQ(L"(F  =  12a)", GetSql(Line(1, L"=", L"12a"), kServer));
    EXPECT_EQ(L"(F  >=  7)", GetSql(Line(3, L">=", L"7"), kJet));
}

TEST(GetSql, OperatorIsPutInCapitals) {
    EXPECT_EQ(L"(F  LIKE  N'x%')", GetSql(Line(10, L"like", L"x"), kServer));
    EXPECT_EQ(L"(F  IN  ('a','b'))", GetSql(Line(10, L"In", L"a,b"), kServer));
}

TEST(GetSql, VietnameseOperatorIsPutInCapitals) {
    EXPECT_EQ(L"(F  CHỨA  'x')", GetSql(Line(10, L"chứa", L"x"), kJet));
    EXPECT_EQ(L"(F  KHÔNG GIỐNG ĐẦU Ở ỰƠ  'x')",
              GetSql(Line(10, L"không giống đầu ở ựơ", L"x"), kJet));
}

TEST(GetSql, ApostropheIsDoubled) {
    EXPECT_EQ(L"(F  =  'O''Brien')", GetSql(Line(10, L"=", L"O'Brien"), kJet));
    EXPECT_EQ(L"(F  =  N'O''Brien')", GetSql(Line(10, L"=", L"O'Brien"), kServer));
}

TEST(GetSql, ListsGetBracketsOfTheirOwn) {
    EXPECT_EQ(L"(F  IN  ('a','b'))", GetSql(Line(10, L"IN", L"a,b"), kJet));
    EXPECT_EQ(L"(F  IN  (1,2))", GetSql(Line(3, L"IN", L"1,2"), kJet));
}

TEST(GetSql, DateStandsBetweenHashes) {
    EXPECT_EQ(L"(D  >  #03/05/2021#)", GetSql(Line(8, L">", L"5/3/2021", L"D"), kServer));
    EXPECT_EQ(L"(D  >  #03/05/2021#)", GetSql(Line(8, L">", L"5/3/2021", L"D"), kJet));
}

TEST(GetSql, ValueIsTrimmed) {
    EXPECT_EQ(L"(F  =  'x')", GetSql(Line(10, L"=", L"  x "), kJet));
    EXPECT_EQ(L"(F  =  '')", GetSql(Line(10, L"=", L" "), kJet));
}

TEST(GetSql, TypeWithoutAFormGivesNoValue) {
    EXPECT_EQ(L"(F  =  )", GetSql(Line(4, L"=", L"5"), kJet));
}

TEST(GetSql, BracketsOfTheValueAreMadeUpForAtTheEnd) {
    EXPECT_EQ(L"(F  =  'x)')(", GetSql(Line(10, L"=", L"x)"), kJet));
    EXPECT_EQ(L"(F  =  '(x'))", GetSql(Line(10, L"=", L"(x"), kJet));
    EXPECT_EQ(L"(F  =  '(x)')", GetSql(Line(10, L"=", L"(x)"), kJet));
}

TEST(GetBrackets, MissingOnesGoToTheEnd) {
    EXPECT_EQ(L"(())", GetBrackets(L"(("));
    EXPECT_EQ(L"))((", GetBrackets(L"))"));
    EXPECT_EQ(L")(", GetBrackets(L")("));
    EXPECT_EQ(L"", GetBrackets(L""));
}

TEST(GetDisplay, ValueStandsBetweenApostrophesWhateverItsType) {
    for (long type : {1, 3, 8, 10})
        EXPECT_EQ(L"(Tên  bằng  '5')", GetDisplay(Line(type, L"=", L" 5 "))) << type;
}

TEST(GetDisplay, NothingIsDoubledOrBalanced) {
    EXPECT_EQ(L"(Tên  bằng  'O'B)')", GetDisplay(Line(10, L"=", L"O'B)")));
}

TEST(GetDisplay, EmptyLineShowsItsFrame) {
    EXPECT_EQ(L"(    '')", GetDisplay(ConditionLine{}));
}

TEST(GetRes, JoinWordHasNoBlanks) {
    ConditionLines lines;
    lines[0] = Line(1, L"=", L"1", L"A");
    lines[1] = Line(10, L"LIKE", L"x", L"B");
    EXPECT_EQ(L"(A  =  1)and(B  LIKE  N'x%')", GetRes(lines, kServer));
    EXPECT_EQ(L"(A  =  1)and(B  LIKE  'x%')", GetRes(lines, kJet));
}

TEST(GetRes, FirstLineAloneWhenTheOthersAreEmpty) {
    ConditionLines lines;
    lines[0] = Line(10, L"=", L"x");
    EXPECT_EQ(L"(F  =  'x')", GetRes(lines, kJet));
}

TEST(GetRes, FirstLineIsTakenAsItIs) {
    EXPECT_EQ(L"(    )", GetRes(ConditionLines{}, kJet));
}

TEST(GetRes, InvalidLineIsPassedOver) {
    ConditionLines lines;
    lines.fill(Line(10, L"=", L"x"));
    lines[1].value.clear();
    lines[2].enabled = false;
    lines[3].joinName = L"or";
    EXPECT_EQ(L"(F  =  'x')or(F  =  'x')", GetRes(lines, kJet));
}

TEST(GetRes, AllFourLines) {
    ConditionLines lines;
    lines.fill(Line(3, L"=", L"1"));
    lines[2].joinName = L"or";
    EXPECT_EQ(L"(F  =  1)and(F  =  1)or(F  =  1)and(F  =  1)", GetRes(lines, kJet));
}

TEST(GetRes, EmptyJoinCountsAsAnd) {
    ConditionLines lines;
    lines.fill(Line(3, L"=", L"1"));
    lines[2] = {};
    lines[3] = {};
    lines[1].joinName.clear();
    lines[1].joinText.clear();
    EXPECT_EQ(L"(F  =  1)And(F  =  1)", GetRes(lines, kJet));
    EXPECT_EQ(L"(Tên  bằng  '1')và(Tên  bằng  '1')", GetDis(lines));
}

TEST(GetDis, ShowsTheSameLines) {
    ConditionLines lines;
    lines.fill(Line(10, L"=", L"x"));
    lines[1].joinText = L"hoặc";
    lines[2].value.clear();
    EXPECT_EQ(L"(Tên  bằng  'x')hoặc(Tên  bằng  'x')và(Tên  bằng  'x')", GetDis(lines));
}

TEST(GetDis, FirstLineIsShownWhileItIsBeingTyped) {
    ConditionLines lines;
    lines[0] = Line(3, L"=", L"12a");
    EXPECT_EQ(L"(Tên  bằng  '12a')", GetDis(lines));
}
