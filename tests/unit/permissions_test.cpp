// SPDX-License-Identifier: MIT
// Menu rights: masks, their limit of 31 commands, and the statements around them.
#include "security/text/permissions.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace vndesk;

namespace {

std::vector<bool> Places(size_t count, std::initializer_list<size_t> ticked) {
    std::vector<bool> places(count);
    for (const size_t place : ticked)
        places[place] = true;
    return places;
}

} // namespace

TEST(IsGranted, TestsOneBitForEachPlace) {
    EXPECT_TRUE(IsGranted(5, 0));
    EXPECT_FALSE(IsGranted(5, 1));
    EXPECT_TRUE(IsGranted(5, 2));
    EXPECT_FALSE(IsGranted(0, 30));
    EXPECT_TRUE(IsGranted(1 << 30, 30));
}

TEST(IsGranted, KnowsNegativeMasks) {
    for (const size_t place : {0, 7, 30})
        EXPECT_TRUE(IsGranted(-1, place));
    EXPECT_FALSE(IsGranted(-2, 0));
}

TEST(IsGranted, OverflowsAtThe32ndCommand) {
    EXPECT_NO_THROW(IsGranted(0, 30));
    EXPECT_THROW(IsGranted(0, 31), std::overflow_error);
    EXPECT_THROW(IsGranted(-1, 31), std::overflow_error);
    EXPECT_THROW(IsGranted(0, 5000), std::overflow_error);
}

TEST(MaskOf, AddsTheTickedPlaces) {
    EXPECT_EQ(0, MaskOf({}));
    EXPECT_EQ(0, MaskOf(Places(4, {})));
    EXPECT_EQ(5, MaskOf(Places(4, {0, 2})));
    EXPECT_EQ(7, MaskOf(Places(4, {0, 1, 2})));
    EXPECT_EQ(0x40000000, MaskOf(Places(31, {30})));
}

TEST(MaskOf, ThirtyOneCommandsFillAPositiveNumber) {
    EXPECT_EQ(0x7fffffff, MaskOf(std::vector<bool>(31, true)));
}

TEST(MaskOf, OverflowsOnlyWhenThe32ndIsTicked) {
    EXPECT_EQ(0x40000001, MaskOf(Places(32, {0, 30})));
    EXPECT_THROW(MaskOf(Places(32, {31})), std::overflow_error);
    EXPECT_THROW(MaskOf(std::vector<bool>(32, true)), std::overflow_error);
    EXPECT_EQ(8, MaskOf(Places(40, {3})));
}

TEST(MaskOf, GivesBackWhatIsGranted) {
    for (const long mask : {0L, 1L, 5L, 63L, 0x2aaaaaaaL, 0x7fffffffL}) {
        std::vector<bool> ticked(31);
        for (size_t i = 0; i < ticked.size(); ++i)
            ticked[i] = IsGranted(mask, i);
        EXPECT_EQ(mask, MaskOf(ticked));
    }
}

TEST(PermissionStatements, ReadCommandsAndRights) {
    EXPECT_EQ(L"Select * From SubMenu Where IdMenuBar=3 Order By ID", MenuCommandsStatement(3));
    EXPECT_EQ(L"Select * From SubMenu Where IdMenuBar=-1 Order By ID", MenuCommandsStatement(-1));
    EXPECT_EQ(L"Select * From Groups Where Code=5", GroupRightsStatement(5));
}

TEST(WriteRightsStatement, HasNoCommaBeforeWhere) {
    EXPECT_EQ(L"Update Groups Set P1=7,P2=0,P3=1 Where Code=5",
              WriteRightsStatement({L"P1", L"P2", L"P3"}, {7, 0, 1, 0}, 5));
}

TEST(WriteRightsStatement, WritesPlainIntegers) {
    EXPECT_EQ(L"Update Groups Set HeThong=2147483647 Where Code=12",
              WriteRightsStatement({L"HeThong"}, {0x7fffffff, 0}, 12));
    EXPECT_EQ(L"Update Groups Set a=-1,b=0 Where Code=1",
              WriteRightsStatement({L"a", L"b"}, {-1, 0, 0}, 1));
}
