// SPDX-License-Identifier: MIT
// A line of Unicode, then TCVN3 codes. Lengths stay, ASCII stays, and converting there and back
// settles.
#include "support/input.h"

#include <algorithm>
#include <stdexcept>

#include "text/tcvn3.h"

namespace vndesk::fuzz {

namespace {

std::wstring ToCodes(std::wstring_view text) {
    return ToUncText(text, kToTcvn3);
}

std::wstring ToLetters(std::wstring_view text) {
    return ToUncText(text, kToUnicode);
}

bool IsCode(wchar_t ch) {
    return std::any_of(tcvn3::kPairs.begin(), tcvn3::kPairs.end(),
                       [ch](const tcvn3::Pair& pair) { return ch == pair.code; });
}

bool IsLetter(wchar_t ch) {
    return std::any_of(tcvn3::kPairs.begin(), tcvn3::kPairs.end(), [ch](const tcvn3::Pair& pair) {
        return ch == static_cast<wchar_t>(pair.letter);
    });
}

void CheckConversion(const std::wstring& text, long mode) {
    const std::wstring converted = ToUncText(text, mode);
    MUST(converted.size() == text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        MUST(converted[i] == ToUncChar(text[i], mode));
        MUST(text[i] >= 0x80 || converted[i] == text[i]);
    }
    // As hosts pass it: in blocks, which each character comes out of as by itself.
    std::u16string units(text.begin(), text.end());
    ConvertUnits(units.data(), units.data(), units.size(), mode);
    for (std::size_t i = 0; i < text.size(); ++i)
        MUST(units[i] == static_cast<char16_t>(ToUncChar(static_cast<char16_t>(text[i]), mode)));
}

} // namespace

void RunOne(Input& input) {
    const std::wstring letters = input.Text();
    const std::wstring codes = input.RestCodes();
    for (const long mode : {kToUnicode, kToTcvn3}) {
        if (std::max(letters.size(), codes.size()) > kMaxConvertLength)
            return;
        CheckConversion(letters, mode);
        CheckConversion(codes, mode);
    }
    // What has become TCVN3 once stays the same there and back.
    MUST(ToCodes(ToLetters(ToCodes(letters))) == ToCodes(letters));
    // A letter that comes back has at most lost its capital: both have one code.
    const std::wstring back = ToLetters(ToCodes(letters));
    for (std::size_t i = 0; i < letters.size(); ++i)
        if (IsLetter(letters[i]))
            MUST(IsLetter(back[i]) &&
                 ToUncChar(back[i], kToTcvn3) == ToUncChar(letters[i], kToTcvn3));
    // Real TCVN3 text, without Latin-1 letters in between that only Unicode has, comes back whole.
    std::wstring pure = codes;
    std::erase_if(pure, [](wchar_t ch) { return IsLetter(ch) && !IsCode(ch); });
    MUST(ToCodes(ToLetters(pure)) == pure);
}

} // namespace vndesk::fuzz
