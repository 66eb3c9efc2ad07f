// SPDX-License-Identifier: MIT
#include "ado/text/decimal_text.h"

#include <algorithm>

namespace vndesk::ado {

std::string DecimalText(const DecimalNumber& number) {
    std::uint32_t parts[] = {number.high, static_cast<std::uint32_t>(number.low >> 32),
                             static_cast<std::uint32_t>(number.low)};
    std::string digits; // the last one first
    for (int count = 1; parts[0] || parts[1] || parts[2] || count <= number.scale + 1; ++count) {
        std::uint64_t rest = 0;
        for (std::uint32_t& part : parts) {
            rest = rest << 32 | part;
            part = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
        if (count == number.scale)
            digits += '.';
    }
    if (number.negative)
        digits += '-';
    std::reverse(digits.begin(), digits.end());
    return digits;
}

} // namespace vndesk::ado
