// SPDX-License-Identifier: MIT
// Capitals of the Vietnamese alphabet with all tones, and of its neighbours.
#include "text/capitals.h"

#include <gtest/gtest.h>

using namespace vndesk;

TEST(Capitals, EveryVietnameseLetterHasItsOwn) {
    EXPECT_EQ(L"AÀẢÃÁẠĂẰẲẴẮẶÂẦẨẪẤẬ", InCapitals(L"aàảãáạăằẳẵắặâầẩẫấậ"));
    EXPECT_EQ(L"EÈẺẼÉẸÊỀỂỄẾỆ", InCapitals(L"eèẻẽéẹêềểễếệ"));
    EXPECT_EQ(L"IÌỈĨÍỊOÒỎÕÓỌÔỒỔỖỐỘƠỜỞỠỚỢ", InCapitals(L"iìỉĩíịoòỏõóọôồổỗốộơờởỡớợ"));
    EXPECT_EQ(L"UÙỦŨÚỤƯỪỬỮỨỰYỲỶỸÝỴĐ", InCapitals(L"uùủũúụưừửữứựyỳỷỹýỵđ"));
}

TEST(Capitals, OtherAlphabetsOfEurope) {
    EXPECT_EQ(L"ÇÑÖØÞŸŒŠŽŁĪΑΩЖЁ", InCapitals(L"çñöøþÿœšžłīαωжё"));
}

TEST(Capitals, CapitalsAndWhatIsNoLetterStay) {
    const std::wstring same = L"CHỨA ĐƠN 12 <>= ÷ × ß ı _[%]";
    EXPECT_EQ(same, InCapitals(same));
}
