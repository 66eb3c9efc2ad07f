// SPDX-License-Identifier: MIT
// What the message box's buttons return, and where they stand.
#include "msgbox/text/return_codes.h"

#include <gtest/gtest.h>

#include <string>

#include "msgbox/text/button_sets.h"
#include "msgbox/text/captions.h"

using namespace vndesk;

TEST(GetReturn1, MapsTagsExactly) {
    EXPECT_EQ(GetReturn1(L"OK"), 1);
    EXPECT_EQ(GetReturn1(L"CAN"), 2);
    EXPECT_EQ(GetReturn1(L"ABO"), 3);
    EXPECT_EQ(GetReturn1(L"RET"), 4);
    EXPECT_EQ(GetReturn1(L"IGN"), 5);
    EXPECT_EQ(GetReturn1(L"YES"), 6);
    EXPECT_EQ(GetReturn1(L"NO"), 7);
}

TEST(GetReturn1, GivesZeroForAnythingElse) {
    for (const wchar_t* tag : {L"", L"ok", L"OK ", L"NO ", L"YESNO", L"ABORT"})
        EXPECT_EQ(GetReturn1(tag), 0);
}

TEST(GetReturn, MapsTags) {
    EXPECT_EQ(GetReturn(L"OK", L"OK"), 1);
    EXPECT_EQ(GetReturn(L"CAN", L"CAN"), 2);
    EXPECT_EQ(GetReturn(L"YES", L"YES"), 6);
    EXPECT_EQ(GetReturn(L"RET", L"RET"), 4);
}

TEST(GetReturn, KnowsNoOnlyWithItsTrailingBlank) {
    EXPECT_EQ(GetReturn(L"NO", L"NO"), 0);
    EXPECT_EQ(GetReturn(L"", L"NO "), 7);
}

TEST(GetReturn, TakesAbortsTagForIgnore) {
    EXPECT_EQ(GetReturn(L"ABO", L"ABO"), 5);
    EXPECT_EQ(GetReturn(L"IGN", L"IGN"), 0);
}

TEST(GetReturn, MatchesByCaptionInTheText) {
    EXPECT_EQ(GetReturn(std::wstring(L"x") + texts::kMsgOk + L"y", L""), 1);
    EXPECT_EQ(GetReturn(texts::kMsgCancel, L""), 2);
    EXPECT_EQ(GetReturn(texts::kMsgAbort, L""), 3);
    EXPECT_EQ(GetReturn(texts::kMsgRetry, L""), 4);
    EXPECT_EQ(GetReturn(texts::kMsgIgnore, L""), 5);
    EXPECT_EQ(GetReturn(texts::kMsgYes, L""), 6);
    EXPECT_EQ(GetReturn(texts::kMsgNo, L""), 7);
    EXPECT_EQ(GetReturn(L"", L""), 0);
}

TEST(GetReturn, LaterRuleOverridesAnEarlierOne) {
    EXPECT_EQ(GetReturn(texts::kMsgNo, L"OK"), 7);
    EXPECT_EQ(GetReturn(texts::kMsgOk, L"CAN"), 2);
    EXPECT_EQ(GetReturn(texts::kMsgAbort, L"RET"), 4);
    EXPECT_EQ(GetReturn(texts::kMsgRetry, L"ABO"), 5);
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
    EXPECT_EQ(Answers(0), (Codes{1, -1, -1}));
    EXPECT_EQ(Answers(1), (Codes{1, 2, -1}));
    EXPECT_EQ(Answers(2), (Codes{3, 4, 5}));
    EXPECT_EQ(Answers(3), (Codes{6, 0, 2}));
    EXPECT_EQ(Answers(4), (Codes{6, 0, -1}));
    EXPECT_EQ(Answers(5), (Codes{4, 2, -1}));
}

TEST(ButtonSets, UnknownNumberNamesNoSet) {
    for (const long buttons : {-1L, 6L, 7L, 0x7fffffffL})
        EXPECT_EQ(FindButtonSet(buttons), nullptr);
}

TEST(ButtonSets, StandInTheMiddle) {
    const std::array<double, 3> widths = {1095, 1100, 1105};
    EXPECT_EQ(ButtonLefts(1, 3700, widths)[0], 1302.5);
    const auto two = ButtonLefts(2, 3700, widths);
    EXPECT_EQ(two[0], 702.5);
    EXPECT_EQ(two[1], 1897.5);
    const auto three = ButtonLefts(3, 3700, widths);
    EXPECT_EQ(three[0], 150);
    EXPECT_EQ(three[1], 1295);
    EXPECT_EQ(three[2], 2445);
}
