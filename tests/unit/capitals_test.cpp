// SPDX-License-Identifier: MIT
// Capitals of the Vietnamese alphabet with all tones, and of its neighbours.
#include "text/capitals.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(Capitals, EveryVietnameseLetterHasItsOwn) {
    EXPECT_EQ(InCapitals(L"aàảãáạăằẳẵắặâầẩẫấậ"), L"AÀẢÃÁẠĂẰẲẴẮẶÂẦẨẪẤẬ");
    EXPECT_EQ(InCapitals(L"eèẻẽéẹêềểễếệ"), L"EÈẺẼÉẸÊỀỂỄẾỆ");
    EXPECT_EQ(InCapitals(L"iìỉĩíịoòỏõóọôồổỗốộơờởỡớợ"), L"IÌỈĨÍỊOÒỎÕÓỌÔỒỔỖỐỘƠỜỞỠỚỢ");
    EXPECT_EQ(InCapitals(L"uùủũúụưừửữứựyỳỷỹýỵđ"), L"UÙỦŨÚỤƯỪỬỮỨỰYỲỶỸÝỴĐ");
}

TEST(Capitals, OtherAlphabetsOfEurope) {
    EXPECT_EQ(InCapitals(L"çñöøþÿœšžłīαωжё"), L"ÇÑÖØÞŸŒŠŽŁĪΑΩЖЁ");
}

TEST(Capitals, CapitalsAndWhatIsNoLetterStay) {
    const std::wstring same = L"CHỨA ĐƠN 12 <>= ÷ × ß ı _[%]";
    EXPECT_EQ(InCapitals(same), same);
}
