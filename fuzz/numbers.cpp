// SPDX-License-Identifier: MIT
// A number as users type it, then one as a double's eight bytes. Reading agrees with the C library,
// and what is written is read back to 15 digits.
#include "support/input.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>

#include "data/text/number_text.h"
#include "find/text/number_display.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t ch : text)
        narrow.push_back(ch < 0x80 ? static_cast<char>(ch) : '?');
    return narrow;
}

void CheckReading(const std::wstring& text) {
    const auto value = ParseNumber(text);
    MUST(!value || IsNumericEntry(text));
    if (!value)
        return;
    MUST(std::isfinite(*value));
    const std::string plain = Narrow(TrimBlanks(text));
    MUST(plain.find_first_not_of("0123456789.+-eE") == std::string::npos);
    MUST(*value == std::strtod(plain.c_str(), nullptr));
}

void CheckWriting(double value) {
    const std::wstring text = DoubleToText(value);
    MUST(text.size() <= 22);
    MUST(text.find_first_not_of(L"0123456789.-+E") == std::wstring::npos);
    char wanted[64];
    std::snprintf(wanted, sizeof wanted, "%.14e", value);
    const auto back = ParseNumber(text);
    // Rounding to 15 digits can lead beyond the largest double.
    MUST(back ? *back == std::strtod(wanted, nullptr) : std::isinf(std::strtod(wanted, nullptr)));
    MUST(!back || DoubleToText(*back) == text);
}

// Grouped and read again.
void CheckDisplay(const std::wstring& text) {
    const std::wstring shown = CvNStr(text);
    MUST(shown.size() <= text.size() + text.size() / 3 + 1);
    MUST(std::isfinite(CvTextToN(text)) && std::isfinite(CvTextToN(shown)));
    const std::wstring_view trimmed = TrimBlanks(text);
    const std::size_t sign = Sign(trimmed).size();
    const std::wstring_view digits = trimmed.substr(sign);
    const auto plain = [](wchar_t ch) { return IsAsciiDigit(ch) || ch == L'.'; };
    if (digits.size() > 300 || !std::all_of(digits.begin(), digits.end(), plain) ||
        std::count(digits.begin(), digits.end(), L'.') > 1 || digits.empty() ||
        !IsAsciiDigit(digits.front()) || Sign(trimmed) == L"+")
        return;
    const double value = ParseNumber(text).value();
    MUST(std::fabs(CvTextToN(shown) - value) <= 1e-14 * std::fabs(value));
}

} // namespace

void RunOne(Input& input) {
    const std::wstring text = input.Text();
    CheckReading(text);
    CheckDisplay(text);
    for (long position = -1; position <= static_cast<long>(text.size()) + 1; ++position)
        MUST(Mid1(text, position).size() ==
             (position >= 1 && position <= static_cast<long>(text.size()) ? 1u : 0u));
    const std::string_view bytes = input.Bytes();
    double value = 0;
    std::memcpy(&value, bytes.data(), std::min(sizeof value, bytes.size()));
    if (std::isfinite(value)) {
        CheckWriting(value);
        return;
    }
    try {
        DoubleToText(value);
        MUST(!"a value that is not finite has no text");
    } catch (const std::overflow_error&) {
    }
}

} // namespace vndesk::fuzz
