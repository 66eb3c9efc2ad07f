// SPDX-License-Identifier: MIT
// What hosts write into the captions of menu items.
#include "menus/item/menu_caption.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

TEST(MenuCaption, PlainCaptionIsTheText) {
    const MenuCaption caption = ParseCaption(L"&Mở…\tCtrl+O");
    EXPECT_EQ(L"&Mở…\tCtrl+O", caption.text);
    EXPECT_EQ(L"", caption.help);
    EXPECT_EQ(kNoImage, caption.image);
    EXPECT_FALSE(caption.check || caption.radio || caption.separator);
    EXPECT_EQ(L"", ParseCaption(L"").text);
}

TEST(MenuCaption, HelpAndMarksFollowAfterBars) {
    const MenuCaption caption = ParseCaption(L"&Mở…\tCtrl+O|Mở một hồ sơ|12");
    EXPECT_EQ(L"&Mở…\tCtrl+O", caption.text);
    EXPECT_EQ(L"Mở một hồ sơ", caption.help);
    EXPECT_EQ(11, caption.image) << "images are counted from 1 in captions";
    EXPECT_EQ(L"a", ParseCaption(L"a||1").text);
    EXPECT_EQ(L"", ParseCaption(L"a||1").help);
    EXPECT_EQ(0, ParseCaption(L"a||1").image);
    EXPECT_EQ(L"x", ParseCaption(L"a|x").help);
    EXPECT_EQ(0, ParseCaption(L"a|x|1|2").image) << "what follows the marks is ignored";
}

TEST(MenuCaption, MarksTellCheckAndRadioItems) {
    EXPECT_TRUE(ParseCaption(L"a||+").check);
    EXPECT_FALSE(ParseCaption(L"a||+").radio);
    EXPECT_TRUE(ParseCaption(L"a||*").radio);
    const MenuCaption both = ParseCaption(L"a||7+");
    EXPECT_TRUE(both.check);
    EXPECT_EQ(6, both.image);
}

TEST(MenuCaption, ImageNumbersOutOfRangeAreNone) {
    EXPECT_EQ(kNoImage, ParseCaption(L"a||0").image);
    EXPECT_EQ(kNoImage, ParseCaption(L"a||x").image);
    EXPECT_EQ(kNoImage, ParseCaption(L"a||99999999999999999999").image);
    EXPECT_EQ(32766, ParseCaption(L"a||32767").image);
    EXPECT_EQ(kNoImage, ParseCaption(L"a||32768").image);
}

TEST(MenuCaption, HyphenAtTheBeginningMakesASeparator) {
    EXPECT_TRUE(ParseCaption(L"-").separator);
    EXPECT_EQ(L"", ParseCaption(L"-").text);
    EXPECT_TRUE(ParseCaption(L"-Công cụ").separator);
    EXPECT_EQ(L"Công cụ", ParseCaption(L"-Công cụ").text);
    EXPECT_FALSE(ParseCaption(L"a-b").separator);
}

TEST(MenuCaption, NumberedEntriesAreNames) {
    for (const wchar_t* text : {L"&1 Sổ cái | 2005", L"&9 -a|b|3"}) {
        const MenuCaption caption = ParseCaption(text);
        EXPECT_EQ(text, caption.text);
        EXPECT_EQ(L"", caption.help);
        EXPECT_EQ(kNoImage, caption.image);
    }
    EXPECT_EQ(L"&0 a", ParseCaption(L"&0 a|b").text);
    EXPECT_EQ(L"&1a", ParseCaption(L"&1a|b").text);
}

TEST(MenuCaption, TabSeparatesTheShortcut) {
    EXPECT_EQ(L"&Lưu", TextPart(L"&Lưu\tCtrl+S"));
    EXPECT_EQ(L"Ctrl+S", ShortcutPart(L"&Lưu\tCtrl+S"));
    EXPECT_EQ(L"&Lưu", TextPart(L"&Lưu"));
    EXPECT_EQ(L"", ShortcutPart(L"&Lưu"));
    EXPECT_EQ(L"", ShortcutPart(L"&Lưu\t"));
}

TEST(MenuCaption, MnemonicIsTheLetterAfterASingleSign) {
    EXPECT_EQ(L'M', Mnemonic(L"&Mở"));
    EXPECT_EQ(L'Đ', Mnemonic(L"&Đóng"));
    EXPECT_EQ(L'b', Mnemonic(L"A && &b"));
    EXPECT_EQ(0, Mnemonic(L"A && b"));
    EXPECT_EQ(0, Mnemonic(L"A&"));
    EXPECT_EQ(0, Mnemonic(L""));
}

TEST(MenuCaption, HiddenMnemonicsLeaveTheTextAlone) {
    EXPECT_EQ(L"Mở…", WithoutMnemonics(L"&Mở…"));
    EXPECT_EQ(L"A & b", WithoutMnemonics(L"A && &b"));
    EXPECT_EQ(L"Thoát", WithoutMnemonics(L"T&hoát&"));
    EXPECT_EQ(L"", WithoutMnemonics(L"&"));
}

} // namespace
