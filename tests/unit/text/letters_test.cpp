// SPDX-License-Identifier: MIT
// Accents, letter case, the place of the tone, normal forms.
#include "text/letters/accents.h"
#include "text/letters/letter_case.h"
#include "text/letters/normal_form.h"
#include "text/letters/tone_place.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

TEST(AccentsTest, BasesAreLeft) {
    EXPECT_EQ(L"Dien bien phu, DUONG thuy", RemoveAccents(L"Điện biên phủ, ĐƯỜNG thuỷ"));
    EXPECT_EQ(L"d D d D", RemoveAccents(L"đ Đ ð Ð"));
    EXPECT_EQ(L"Muller Espana", RemoveAccents(L"Müller España"));
    EXPECT_EQ(L"", RemoveAccents(L""));
}

TEST(AccentsTest, MarksGoWithTheirLettersOnly) {
    EXPECT_EQ(L"Viet", RemoveAccents(L"Vie\u0323\u0302t"));
    EXPECT_EQ(L"Viet", RemoveAccents(ToNfd(L"Việt")));
    EXPECT_EQ(L"\u0438\u0306", RemoveAccents(L"\u0438\u0306")) << "a letter of another alphabet";
    EXPECT_EQ(L"\u0301a", RemoveAccents(L"\u0301a"));
    // Longer than a block of the conversion loop.
    const std::wstring words(30, L'ệ');
    EXPECT_EQ(std::wstring(30, L'e'), RemoveAccents(words));
    EXPECT_EQ(std::wstring(30, L'e'), RemoveAccents(ToNfd(words)));
}

TEST(LetterCaseTest, VietnameseLettersChange) {
    EXPECT_EQ(L"CỘNG HOÀ XÃ HỘI CHỦ NGHĨA VIỆT NAM",
              ToUpper(L"Cộng hoà xã hội chủ nghĩa Việt Nam"));
    EXPECT_EQ(L"đường ưu ơn ă", ToLower(L"ĐƯỜNG ƯU ƠN Ă"));
    EXPECT_EQ(L"Жуков Ωmega Ÿ", ToUpper(L"Ж") + ToLower(L"УКОВ") + L" " + ToUpper(L"ω") +
                                    ToLower(L"MEGA") + L" " + ToUpper(L"ÿ"));
}

TEST(LetterCaseTest, TitlesBeginEachWordWithACapital) {
    EXPECT_EQ(L"Nguyễn Thị Ánh Tuyết", ToTitle(L"nguyễn thị ÁNH tuyết"));
    EXPECT_EQ(L"Đinh Ốc (Lớn) 3x4 – Bà Rịa-Vũng Tàu",
              ToTitle(L"đinh ốc (lớn) 3X4 – bà rịa-vũng tàu"));
    EXPECT_EQ(L"O'brien Và ‘Bạn’", ToTitle(L"o'BRIEN và ‘bạn’"));
    EXPECT_EQ(ToNfd(L"Ẩm Thực"), ToTitle(ToNfd(L"ẩm thực")));
}

TEST(TonePlaceTest, OpenSyllablesHaveTwoPlaces) {
    EXPECT_EQ(L"hoà khoẻ thuỷ HOÀ", MoveTones(L"hòa khỏe thủy HÒA", TonePlace::New));
    EXPECT_EQ(L"hòa khỏe thủy HÒA", MoveTones(L"hoà khoẻ thuỷ HOÀ", TonePlace::Old));
    EXPECT_EQ(L"Hoà, thuý.", MoveTones(L"Hòa, thúy.", TonePlace::New));
}

TEST(TonePlaceTest, OthersHaveOne) {
    for (const TonePlace place : {TonePlace::Old, TonePlace::New})
        for (const wchar_t* text : {L"hoàn", L"quý", L"Huỳnh", L"khuỷu", L"mùa", L"của", L"hoa",
                                    L"thuở", L"ngoài", L"toán tiếng"})
            EXPECT_EQ(text, MoveTones(text, place));
    EXPECT_EQ(L"hoàn quý", MoveTones(L"hòan qúy", TonePlace::Old));
}

TEST(NormalFormTest, ComposesAndDecomposes) {
    EXPECT_EQ(L"a\u0302\u0301", ToNfd(L"ấ"));
    EXPECT_EQ(L"a\u0323\u0306", ToNfd(L"ặ")) << "the mark below comes first";
    EXPECT_EQ(L"o\u031B\u0323", ToNfd(L"ợ"));
    EXPECT_EQ(L"đ", ToNfd(L"đ")) << "a letter without parts";
    EXPECT_EQ(L"ặ", ToNfc(L"a\u0306\u0323"));
    EXPECT_EQ(L"ấ", ToNfc(L"\u00E2\u0301"));
    EXPECT_EQ(L"á\u0302", ToNfc(L"a\u0301\u0302")) << "marks above do not change places";
    EXPECT_EQ(L"à", ToNfc(L"a\u0340")) << "the tone marks of old";
    EXPECT_EQ(L"\u0301a", ToNfc(L"\u0301a"));
    EXPECT_EQ(L"Việt Nam", ToNfc(ToNfd(L"Việt Nam")));
}

TEST(NormalFormTest, ManyMarksAreSortedOnce) {
    std::wstring text = L"a";
    for (int i = 0; i < 2000; ++i)
        text += L"\u0301\u0323";
    const std::wstring composed = ToNfc(text);
    EXPECT_EQ(text.size() - 1, composed.size()) << "ạ, and all others";
    EXPECT_EQ(L'ạ', composed[0]);
    EXPECT_EQ(ToNfd(text), ToNfd(composed));
}

} // namespace
