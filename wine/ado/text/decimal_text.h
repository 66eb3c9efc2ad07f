// SPDX-License-Identifier: MIT
// Decimal numbers of 96 bits as engines read them: a decimal point, whatever the locale.
#pragma once

#include <cstdint>
#include <string>

namespace vndesk::ado {

struct DecimalNumber {
    std::uint32_t high;
    std::uint64_t low;
    int scale; // digits behind the point, at most 28
    bool negative;
};

std::string DecimalText(const DecimalNumber& number);

} // namespace vndesk::ado
