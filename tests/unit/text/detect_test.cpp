// SPDX-License-Identifier: MIT
#include "text/encodings/detect.h"

#include <gtest/gtest.h>

#include "text/encodings/convert.h"
#include "text/encodings/syllable.h"
#include "text/letters/letter_case.h"
#include "text/letters/normal_form.h"

using namespace vndesk;

namespace {

constexpr const wchar_t* kTexts[] = {
    L"Cộng hoà xã hội chủ nghĩa Việt Nam",
    L"Người sử dụng",
    L"Đồng ý",
    L"Công ty TNHH Thương mại Hoàng Long",
    L"Nguyễn Thị Ánh Tuyết",
    L"Số 12/3 đường Lê Lợi, quận 1",
    L"Bạn có chắc chắn xoá các nhóm đã chọn không?",
};

TEST(SyllableTest, VietnameseWords) {
    for (const wchar_t* word :
         {L"a",     L"à",     L"ý",   L"Việt",  L"NGHIÊNG", L"đường", L"quyển", L"quốc",
          L"gì",    L"giếng", L"gia", L"khuỷu", L"thuở",    L"yêu",   L"oan",   L"xoong",
          L"huỳnh", L"ngoẹo", L"cá",  L"các",   L"Quý",     L"hòa",   L"hoà",   L"uống",
          L"kẻ",    L"nghĩ",  L"của", L"ghế",   L"khoẻ",    L"toàn",  L"rượu"})
        EXPECT_TRUE(IsSyllable(word)) << testing::PrintToString(std::wstring(word));
    for (const wchar_t* word :
         {L"", L"b", L"càt", L"cat", L"hello", L"ngê", L"ce", L"kan", L"áá", L"thưng2", L"Wow",
          L"école", L"nghan", L"ghà", L"vieät", L"ðà", L"muller", L"aaaaaaaaaaaa", L"ty1"})
        EXPECT_FALSE(IsSyllable(word)) << word;
}

TEST(DetectTest, EncodingsAreFound) {
    for (const wchar_t* text : kTexts) {
        EXPECT_EQ(Encoding::Unicode, Detect(text).encoding);
        EXPECT_EQ(Encoding::UnicodeNfd, Detect(ToNfd(text)).encoding);
        for (const Encoding encoding : {Encoding::Tcvn3, Encoding::VniWindows, Encoding::Cp1258}) {
            const auto converted = ConvertEncoding(text, Encoding::Unicode, encoding).text;
            EXPECT_EQ(encoding, Detect(converted).encoding)
                << static_cast<int>(encoding) << " " << (&text - kTexts);
            EXPECT_EQ(encoding, DetectBytes(converted).encoding) << static_cast<int>(encoding);
            EXPECT_GE(Detect(converted).confidence, kLeastConfidence);
        }
    }
}

TEST(DetectTest, OtherTextsAreNotVietnamese) {
    for (const wchar_t* text : {L"", L"12 345", L"The quick brown fox jumps over the lazy dog",
                                L"École supérieure de Lyon", L"Größe überprüfen, Straße wählen",
                                L"Жуков и другие", L"東京都", L"España mañana señor"}) {
        const Detection found = Detect(text);
        EXPECT_FALSE(found.encoding.has_value()) << testing::PrintToString(std::wstring(text));
        EXPECT_LT(found.confidence, kLeastConfidence);
    }
}

TEST(DetectTest, WithoutAccentsATextIsUnicodeOrNone) {
    EXPECT_EQ(Encoding::Unicode, Detect(L"Ha Noi, Hue, Da Nang").encoding);
    EXPECT_EQ(Encoding::Unicode, DetectBytes(L"Ha Noi").encoding);
    EXPECT_FALSE(Detect(L"hello world").encoding.has_value());
}

TEST(DetectTest, UnicodeIsNotConvertedTwice) {
    for (const Encoding from :
         {Encoding::Tcvn3, Encoding::Tcvn3Capitals, Encoding::VniWindows, Encoding::Cp1258})
        for (const wchar_t* text : kTexts) {
            EXPECT_TRUE(IsUnicodeAlready(text, from)) << static_cast<int>(from);
            EXPECT_TRUE(IsUnicodeAlready(ToNfd(text), from)) << static_cast<int>(from);
            const std::wstring source = from == Encoding::Tcvn3Capitals ? ToUpper(text) : text;
            EXPECT_FALSE(
                IsUnicodeAlready(ConvertEncoding(source, Encoding::Unicode, from).text, from))
                << static_cast<int>(from) << (&text - kTexts);
        }
    EXPECT_TRUE(IsUnicodeAlready(L"Cà phê", Encoding::Tcvn3)) << "à is no code of TCVN3";
    EXPECT_FALSE(IsUnicodeAlready(L"", Encoding::Tcvn3));
    EXPECT_FALSE(IsUnicodeAlready(L"Ha Noi 2026 – €", Encoding::Tcvn3));
    EXPECT_FALSE(IsUnicodeAlready(L"Th«ng b¸o", Encoding::Tcvn3));
}

} // namespace
