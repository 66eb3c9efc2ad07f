// SPDX-License-Identifier: MIT
// What the message box's buttons return, and where they stand.
#include "msgbox/text/return_codes.h"

#include <gtest/gtest.h>

#include <string>

#include "msgbox/text/button_sets.h"
#include "msgbox/text/captions.h"

using namespace vndesk;

TEST(GetReturn1, MapsTagsExactly) {
    EXPECT_EQ(1, GetReturn1(L"OK"));
    EXPECT_EQ(2, GetReturn1(L"CAN"));
    EXPECT_EQ(3, GetReturn1(L"ABO"));
    EXPECT_EQ(4, GetReturn1(L"RET"));
    EXPECT_EQ(5, GetReturn1(L"IGN"));
    EXPECT_EQ(6, GetReturn1(L"YES"));
    EXPECT_EQ(7, GetReturn1(L"NO"));
}

TEST(GetReturn1, GivesZeroForAnythingElse) {
    for (const wchar_t* tag : {L"", L"ok", L"OK ", L"NO ", L"YESNO", L"ABORT"})
        EXPECT_EQ(0, GetReturn1(tag));
}

TEST(GetReturn, MapsTags) {
    EXPECT_EQ(1, GetReturn(L"OK", L"OK"));
    EXPECT_EQ(2, GetReturn(L"CAN", L"CAN"));
    EXPECT_EQ(6, GetReturn(L"YES", L"YES"));
    EXPECT_EQ(4, GetReturn(L"RET", L"RET"));
}

TEST(GetReturn, KnowsNoOnlyWithItsTrailingBlank) {
    EXPECT_EQ(0, GetReturn(L"NO", L"NO"));
    EXPECT_EQ(7, GetReturn(L"", L"NO "));
}

TEST(GetReturn, TakesAbortsTagForIgnore) {
    EXPECT_EQ(5, GetReturn(L"ABO", L"ABO"));
    EXPECT_EQ(0, GetReturn(L"IGN", L"IGN"));
}

TEST(GetReturn, MatchesByCaptionInTheText) {
    EXPECT_EQ(1, GetReturn(std::wstring(L"x") + texts::kMsgOk + L"y", L""));
    EXPECT_EQ(2, GetReturn(texts::kMsgCancel, L""));
    EXPECT_EQ(3, GetReturn(texts::kMsgAbort, L""));
    EXPECT_EQ(4, GetReturn(texts::kMsgRetry, L""));
    EXPECT_EQ(5, GetReturn(texts::kMsgIgnore, L""));
    EXPECT_EQ(6, GetReturn(texts::kMsgYes, L""));
    EXPECT_EQ(7, GetReturn(texts::kMsgNo, L""));
    EXPECT_EQ(0, GetReturn(L"", L""));
}

TEST(GetReturn, LaterRuleOverridesAnEarlierOne) {
    EXPECT_EQ(7, GetReturn(texts::kMsgNo, L"OK"));
    EXPECT_EQ(2, GetReturn(texts::kMsgOk, L"CAN"));
    EXPECT_EQ(4, GetReturn(texts::kMsgAbort, L"RET"));
    EXPECT_EQ(5, GetReturn(texts::kMsgRetry, L"ABO"));
}

namespace {

// The three numbers of a set's buttons as the form asks for them; -1 for a hidden button.
std::array<long, 3> Answers(long buttons) {
    std::array<long, 3> codes = {-1, -1, -1};
    const ButtonSet& set = *FindButtonSet(buttons);
    for (size_t i = 0; i < set.size(); ++i)
        if (set[i].caption)
            codes[i] = i == 0 ? GetReturn1(set[i].tag) : GetReturn(set[i].tag, set[i].tag);
    return codes;
}

using Codes = std::array<long, 3>;

} // namespace

TEST(ButtonSets, GiveTheNumbersThatHostsRelyOn) {
    EXPECT_EQ((Codes{1, -1, -1}), Answers(0));
    EXPECT_EQ((Codes{1, 2, -1}), Answers(1));
    EXPECT_EQ((Codes{3, 4, 5}), Answers(2));
    EXPECT_EQ((Codes{6, 0, 2}), Answers(3));
    EXPECT_EQ((Codes{6, 0, -1}), Answers(4));
    EXPECT_EQ((Codes{4, 2, -1}), Answers(5));
}

TEST(ButtonSets, UnknownNumberNamesNoSet) {
    for (const long buttons : {-1L, 6L, 7L, 0x7fffffffL})
        EXPECT_EQ(nullptr, FindButtonSet(buttons));
}

TEST(ButtonSets, StandInTheMiddle) {
    const std::array<double, 3> widths = {1095, 1100, 1105};
    EXPECT_EQ(1302.5, ButtonLefts(1, 3700, widths)[0]);
    const auto two = ButtonLefts(2, 3700, widths);
    EXPECT_EQ(702.5, two[0]);
    EXPECT_EQ(1897.5, two[1]);
    const auto three = ButtonLefts(3, 3700, widths);
    EXPECT_EQ(150, three[0]);
    EXPECT_EQ(1295, three[1]);
    EXPECT_EQ(2445, three[2]);
}
