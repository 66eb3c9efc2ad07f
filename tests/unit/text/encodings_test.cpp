// SPDX-License-Identifier: MIT
// Conversion between encodings, and what is lost.
#include "text/encodings/convert.h"

#include <gtest/gtest.h>

#include "text/encodings/bytes.h"
#include "text/letters/letter_case.h"
#include "text/letters/normal_form.h"
#include "text/tcvn3.h"

using namespace vndesk;

namespace {

constexpr wchar_t kSmall[] = L"aàảãáạăằẳẵắặâầẩẫấậbcdđeèẻẽéẹêềểễếệghiìỉĩíịklmnoòỏõóọôồổỗốộơờởỡớợ"
                             L"pqrstuùủũúụưừửữứựvxyỳỷỹýỵ fjwz 0123456789 .,;:!?()";

std::wstring From(const wchar_t* text, Encoding from) {
    return ConvertEncoding(text, from, Encoding::Unicode).text;
}
std::wstring To(const std::wstring& text, Encoding to) {
    return ConvertEncoding(text, Encoding::Unicode, to).text;
}

TEST(EncodingTest, EveryLetterComesBack) {
    for (const Encoding encoding :
         {Encoding::Tcvn3, Encoding::VniWindows, Encoding::Cp1258, Encoding::UnicodeNfd}) {
        const Converted there = ConvertEncoding(kSmall, Encoding::Unicode, encoding);
        EXPECT_EQ(L"", there.lost);
        EXPECT_EQ(kSmall, From(there.text.c_str(), encoding)) << static_cast<int>(encoding);
    }
    const std::wstring capitals = ToUpper(kSmall);
    for (const Encoding encoding :
         {Encoding::Tcvn3Capitals, Encoding::VniWindows, Encoding::Cp1258, Encoding::UnicodeNfd}) {
        const Converted there = ConvertEncoding(capitals, Encoding::Unicode, encoding);
        EXPECT_EQ(L"", there.lost) << static_cast<int>(encoding);
        EXPECT_EQ(capitals, From(there.text.c_str(), encoding)) << static_cast<int>(encoding);
    }
}

TEST(EncodingTest, Tcvn3IsTheConversionOfTheForms) {
    std::wstring all;
    for (wchar_t ch = 1; ch < 0x2100; ++ch)
        if (ch < 0x300 || ch >= 0x370) // marks join letters before they are converted
            all.push_back(ch);
    EXPECT_EQ(ToUncText(all, kToTcvn3), To(all, Encoding::Tcvn3));
    EXPECT_EQ(ToUncText(all.substr(0, 255), kToUnicode),
              From(all.substr(0, 255).c_str(), Encoding::Tcvn3));
    EXPECT_EQ(L"Thông báo", From(L"Th«ng b¸o", Encoding::Tcvn3));
    EXPECT_EQ(L"CÔNG TY ĐẠI HẢI", From(L"C«ng ty §¹i H¶i", Encoding::Tcvn3Capitals));
}

TEST(EncodingTest, VniHasItsAccentsBehindTheLetters) {
    EXPECT_EQ(L"Người sử dụng: Đồng ý", From(L"Ngöôøi söû duïng: Ñoàng yù", Encoding::VniWindows));
    EXPECT_EQ(L"Ngöôøi söû duïng: Ñoàng yù", To(L"Người sử dụng: Đồng ý", Encoding::VniWindows));
    EXPECT_EQ(L"TIEÁNG VIEÄT ÔÛ MYÕ", To(L"TIẾNG VIỆT Ở MỸ", Encoding::VniWindows));
    EXPECT_EQ(L"TIẾNG VIỆT", From(L"TIEáNG VIEäT", Encoding::VniWindows))
        << "accents of either case";
    EXPECT_EQ(L"aên khoai lí ò kyî", To(L"ăn khoai lí ị kyỵ", Encoding::VniWindows));
}

TEST(EncodingTest, Cp1258HasTonesBehindTheLetters) {
    EXPECT_EQ(
        L"Tiếng Việt ở đây",
        From(L"Ti\u00EA\u00ECng Vi\u00EA\u00F2t \u00F5\u00D2 \u00F0\u00E2y", Encoding::Cp1258));
    EXPECT_EQ(L"Ti\u00EA\u00ECng Vi\u00EA\u00F2t \u00F5\u00D2 \u00F0\u00E2y",
              To(L"Tiếng Việt ở đây", Encoding::Cp1258));
    EXPECT_EQ(L"\u0080\u0096\u00FE", To(L"€–₫", Encoding::Cp1258));
    EXPECT_EQ(L"€–₫", From(L"\u0080\u0096\u00FE", Encoding::Cp1258));
}

TEST(EncodingTest, LostLettersAreToldWithTheirPlaces) {
    const Converted tcvn3 = ConvertEncoding(L"Ánh ©€ Ễnh", Encoding::Unicode, Encoding::Tcvn3);
    EXPECT_EQ(L"\u00B8nh ©€ \u00D4nh", tcvn3.text) << "as the conversion writes them";
    EXPECT_EQ(L"Á©€Ễ", tcvn3.lost);
    EXPECT_EQ((std::vector<std::size_t>{0, 4, 5, 7}), tcvn3.positions);

    const Converted vni = ConvertEncoding(L"€ ñ ü Đ", Encoding::Unicode, Encoding::VniWindows);
    EXPECT_EQ(L"? ? ? Ñ", vni.text);
    EXPECT_EQ(L"€ñü", vni.lost);

    const Converted page = ConvertEncoding(L"Жук ẽ", Encoding::Unicode, Encoding::Cp1258);
    EXPECT_EQ(L"??? e\u00DE", page.text);
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2}), page.positions);

    const Converted capitals =
        ConvertEncoding(L"AN bình", Encoding::Unicode, Encoding::Tcvn3Capitals);
    EXPECT_EQ(L"bình", capitals.lost);
}

TEST(EncodingTest, PlacesAreThoseOfTheTextThatWasGiven) {
    const Converted apart = ConvertEncoding(ToNfd(L"Việt Ánh"), Encoding::Unicode, Encoding::Tcvn3);
    EXPECT_EQ(L"Á", apart.lost);
    EXPECT_EQ((std::vector<std::size_t>{7}), apart.positions) << "behind ê and its two marks";
    const Converted vni = ConvertEncoding(L"Vieät AÙnh", Encoding::VniWindows, Encoding::Tcvn3);
    EXPECT_EQ((std::vector<std::size_t>{6}), vni.positions);
}

TEST(EncodingTest, FromBytesToBytesGoesByUnicode) {
    EXPECT_EQ(L"Ngöôøi söû duïng",
              ConvertEncoding(L"Ng\u00ADêi sö dông", Encoding::Tcvn3, Encoding::VniWindows).text);
    EXPECT_EQ(L"Ng\u00ADêi sö dông",
              ConvertEncoding(L"Ngöôøi söû duïng", Encoding::VniWindows, Encoding::Tcvn3).text);
}

TEST(EncodingTest, UnicodeComesOutComposed) {
    EXPECT_EQ(L"Việt",
              ConvertEncoding(ToNfd(L"Việt"), Encoding::UnicodeNfd, Encoding::Unicode).text);
    EXPECT_EQ(L"Việt", From(L"Vi\u00EA\u0323t", Encoding::Cp1258)) << "a mark that was converted";
}

// --- bytes ---

ByteText Bytes(std::initializer_list<int> values) {
    return {values.begin(), values.end()};
}

TEST(EncodingBytesTest, UnicodeIsRecognised) {
    EXPECT_EQ(L"Vạ", UnicodeOfBytes(Bytes({0x56, 0x00, 0xA1, 0x1E})));
    EXPECT_EQ(L"ạ", UnicodeOfBytes(Bytes({0xFF, 0xFE, 0xA1, 0x1E})));
    EXPECT_EQ(L"Vạ", UnicodeOfBytes(Bytes({0x56, 0xE1, 0xBA, 0xA1})));
    EXPECT_EQ(L"V", UnicodeOfBytes(Bytes({0xEF, 0xBB, 0xBF, 0x56})));
    EXPECT_FALSE(UnicodeOfBytes(Bytes({0x54, 0x68, 0xAB, 0x6E})).has_value()) << "TCVN3";
    EXPECT_FALSE(UnicodeOfBytes(Bytes({0x56})).has_value()) << "ASCII is anything";
    EXPECT_FALSE(UnicodeOfBytes(Bytes({0xFF, 0xFE, 0xA1})).has_value()) << "cut off";
}

TEST(EncodingBytesTest, BadUtf8IsNone) {
    for (const auto& bytes : {Bytes({0xC0, 0x80}), Bytes({0xE0, 0x80, 0x80}),
                              Bytes({0xED, 0xA0, 0x80}), Bytes({0xF4, 0x90, 0x80, 0x80}),
                              Bytes({0xE1, 0xBA}), Bytes({0x80}), Bytes({0xF5, 0x80, 0x80, 0x80})})
        EXPECT_FALSE(UnicodeOfBytes(bytes).has_value());
}

TEST(EncodingBytesTest, TextsAreWrittenAsUtf16OrBytes) {
    EXPECT_EQ(Bytes({0x56, 0x00, 0xA1, 0x1E}), BytesOfText(L"Vạ", Encoding::Unicode));
    EXPECT_EQ(Bytes({0x3D, 0xD8, 0x00, 0xDE}), BytesOfText(L"\U0001F600", Encoding::Unicode));
    EXPECT_EQ(L"\U0001F600", TextOfBytes(Bytes({0x3D, 0xD8, 0x00, 0xDE}), Encoding::Unicode));
    EXPECT_EQ(L"\U0001F600", TextOfBytes(Bytes({0xF0, 0x9F, 0x98, 0x80}), Encoding::Unicode));
    EXPECT_EQ(Bytes({0x56, 0xB9, '?'}), BytesOfText(L"V\u00B9€", Encoding::Tcvn3));
    EXPECT_EQ(L"Th\u00AB", TextOfBytes(Bytes({0x54, 0x68, 0xAB}), Encoding::Tcvn3));
    EXPECT_EQ(L"ab", TextOfBytes(Bytes({'a', 'b'}), Encoding::Unicode));
    EXPECT_FALSE(TextOfBytes(Bytes({0xA1}), Encoding::Unicode).has_value());
    EXPECT_EQ(L"", TextOfBytes({}, Encoding::Unicode));
}

} // namespace
