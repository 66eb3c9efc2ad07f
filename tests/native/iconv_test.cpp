// SPDX-License-Identifier: MIT
// Code page 1258 and TCVN3 beside the C library's own converter, where the character sets agree.
#include <gtest/gtest.h>

#include <iconv.h>

#include <optional>
#include <string>
#include <string_view>

#include "text/encodings/convert.h"
#include "text/letters/letter_case.h"
#include "text/letters/marks.h"
#include "text/letters/normal_form.h"
#include "text/tcvn3.h"

using namespace vndesk;

namespace {

// Nothing where it refuses.
std::optional<std::string> Iconv(const char* to, const char* from, std::string in) {
    const iconv_t handle = iconv_open(to, from);
    EXPECT_NE(reinterpret_cast<iconv_t>(-1), handle) << to << from;
    std::string out(in.size() * 8 + 64, '\0');
    char *next = in.data(), *end = out.data();
    std::size_t left = in.size(), room = out.size();
    const bool done = iconv(handle, &next, &left, &end, &room) != static_cast<std::size_t>(-1) &&
                      iconv(handle, nullptr, nullptr, &end, &room) != static_cast<std::size_t>(-1);
    iconv_close(handle);
    out.resize(static_cast<std::size_t>(end - out.data()));
    return done ? std::optional(out) : std::nullopt;
}

std::optional<std::wstring> Decoded(const char* from, const std::wstring& bytes) {
    const auto out = Iconv("WCHAR_T", from, std::string(bytes.begin(), bytes.end()));
    if (!out)
        return std::nullopt;
    return std::wstring(reinterpret_cast<const wchar_t*>(out->data()),
                        out->size() / sizeof(wchar_t));
}

std::optional<std::wstring> Encoded(const char* to, const std::wstring& text) {
    const auto out = Iconv(
        to, "WCHAR_T",
        std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)));
    if (!out)
        return std::nullopt;
    std::wstring bytes;
    for (const char byte : *out)
        bytes.push_back(static_cast<unsigned char>(byte));
    return bytes;
}

// The C library joins a diaeresis and a tone to a sign of Greek, and ó with a tilde to a letter
// that Unicode has as õ with an acute.
constexpr std::wstring_view kJoined =
    L"\u0385\u1FC1\u1FED\u1FEE\u1E4C\u1E4D\u1E4E\u1E4F\u1E78\u1E79";

bool IsFound(std::wstring_view letters, wchar_t letter) {
    return letters.find(letter) != std::wstring_view::npos;
}

TEST(IconvTest, Cp1258DecodesAlike) {
    int refused = 0;
    for (wchar_t first = 1; first < 256; ++first)
        for (wchar_t second = 1; second < 256; ++second) {
            const std::wstring bytes{first, second};
            const auto theirs = Decoded("CP1258", bytes);
            // Codes that the page leaves free: Windows gives the control characters of the same
            // numbers, and so do we; the C library refuses them.
            if (!theirs) {
                ++refused;
                continue;
            }
            if (theirs->size() == 1 && IsFound(kJoined, theirs->front()))
                continue;
            ASSERT_EQ(ToNfc(*theirs), ToUnicode(bytes, Encoding::Cp1258))
                << static_cast<long>(first) << " " << static_cast<long>(second);
        }
    EXPECT_EQ(255 * 255 - 246 * 246, refused) << "nine free codes";
}

TEST(IconvTest, Cp1258EncodesAlike) {
    int compared = 0;
    for (wchar_t ch = 1; ch < 0x2200; ++ch) {
        const std::wstring text(1, ch);
        if (ToNfc(text) != text || IsFound(kJoined, ch))
            continue; // 0340 and the like are other characters in NFC
        const Converted ours = ConvertEncoding(text, Encoding::Unicode, Encoding::Cp1258);
        const auto theirs = Encoded("CP1258", text);
        if (theirs) {
            EXPECT_EQ(*theirs, ours.text) << static_cast<long>(ch);
            EXPECT_EQ(L"", ours.lost) << static_cast<long>(ch);
            ++compared;
        } else if (ch < 0x80 || ch >= 0xA0) {
            EXPECT_EQ(text, ours.lost) << static_cast<long>(ch);
        }
    }
    EXPECT_LT(400, compared);
}

// TCVN of the C library is the full set, with capitals in 80 to 9F and marks of their own. TCVN3,
// which fonts have, is a part of it: the small letters with tones and the bare capitals.
TEST(IconvTest, Tcvn3IsPartOfTcvn) {
    std::wstring small;
    for (const auto& pair : tcvn3::kPairs)
        if (tcvn3::kDecode[pair.code] == pair.letter)
            small.push_back(static_cast<wchar_t>(pair.letter));
    EXPECT_EQ(74u, small.size());
    for (const wchar_t letter : small + L" Abc 123.") {
        const std::wstring text(1, letter);
        EXPECT_EQ(Encoded("TCVN", text), ToUncText(text, kToTcvn3)) << static_cast<long>(letter);
        EXPECT_EQ(Decoded("TCVN", ToUncText(text, kToTcvn3)), text) << static_cast<long>(letter);
    }
    EXPECT_NE(Encoded("TCVN", L"Á"), ToUncText(L"Á", kToTcvn3)) << "no code of its own";
}

} // namespace
