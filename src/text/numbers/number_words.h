// SPDX-License-Identifier: MIT
// Numbers and amounts of money as they are read in Vietnamese.
#pragma once

#include "text/numbers/exact_number.h"

#include <string>
#include <string_view>

namespace vndesk {

// Bits of the options.
inline constexpr unsigned kWordsCapital = 1, kWordsLinh = 2, kWordsNgan = 4, kWordsTi = 8,
                          kWordsBon = 16, kWordsEmptyGroups = 32, kWordsChan = 64,
                          kWordsPoint = 128, kWordsUpper = 256, kWordsAll = 511;

struct Currency {
    std::wstring_view code;
    std::wstring_view unit;
    std::wstring_view subunit; // empty: there is none
    std::size_t decimals() const { return subunit.empty() ? 0 : 2; }
};

// By its three letters, in any case; null for those that have no Vietnamese name here.
const Currency* FindCurrency(std::wstring_view code);

std::wstring NumberToWords(const ExactNumber& number, unsigned options);

std::wstring AmountToWords(const ExactNumber& amount, const Currency& currency, unsigned options);

} // namespace vndesk
