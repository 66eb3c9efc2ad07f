// SPDX-License-Identifier: MIT
// Options, a number as text, then one as a double's eight bytes.
#include "support/input.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "find/text/number_display.h"
#include "text/numbers/number_words.h"

namespace vndesk::fuzz {

namespace {

void CheckWords(const ExactNumber& number, unsigned options) {
    MUST(number.whole.empty() || number.whole.front() != '0');
    MUST(number.fraction.empty() || number.fraction.back() != '0');
    const std::wstring words = NumberToWords(number, options);
    MUST(!words.empty() && words.front() != L' ' && words.back() != L' ');
    MUST(words.find(L"  ") == std::wstring::npos);
    MUST((words.back() == L'.') == ((options & kWordsPoint) != 0));
    for (const wchar_t* code : {L"VND", L"usd"}) {
        const Currency& currency = *FindCurrency(code);
        const std::wstring amount = AmountToWords(number, currency, options);
        MUST(amount.find(L"  ") == std::wstring::npos);
        const ExactNumber rounded = Rounded(number, currency.decimals());
        MUST(rounded.fraction.size() <= currency.decimals());
        MUST(AmountToWords(rounded, currency, options) == amount);
    }
}

} // namespace

void RunOne(Input& input) {
    const auto options = static_cast<unsigned>(input.Number(0, kWordsAll));
    const std::wstring text = input.Text();
    if (const auto number = FromDigits(text)) {
        CheckWords(*number, options);
        // The same number as the helper for displayed numbers reads.
        if (number->whole.size() + number->fraction.size() <= 15) {
            const double value =
                std::strtod((number->whole + "." + number->fraction + "0").c_str(), nullptr);
            const double read = CvTextToN(text);
            MUST(std::fabs(std::fabs(read) - value) <= 1e-9 * std::max(1.0, value));
            MUST(value == 0 || std::signbit(read) == number->negative);
        }
    }
    const std::string_view bytes = input.Bytes();
    double value = 0;
    std::memcpy(&value, bytes.data(), std::min(sizeof value, bytes.size()));
    if (const auto number = FromDouble(value)) {
        MUST(std::fabs(value) <= kLargestExact);
        CheckWords(*number, options);
    } else {
        MUST(!(std::fabs(value) <= kLargestExact));
    }
}

} // namespace vndesk::fuzz
