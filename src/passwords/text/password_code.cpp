// SPDX-License-Identifier: MIT
// Sum of the character codes, each weighted by a power of four.
#include "passwords/text/password_code.h"

#include <cmath>
#include <stdexcept>

namespace vndesk {

double PasswordCode(std::wstring_view upperCased, AnsiCodeOf ansiCodeOf) {
    // From the last character to the first, so that the first one has the weight 1. Every
    // character is looked at before the result counts: one outside the range decides alone.
    double code = 0;
    for (std::size_t i = upperCased.size(); i-- > 0;) {
        const int ansiCode = ansiCodeOf(upperCased[i]);
        if (ansiCode < 32 || ansiCode >= 128)
            return 0;
        code = code * 4 + ansiCode;
    }
    if (!std::isfinite(code))
        throw std::overflow_error("the password is too long");
    return code;
}

} // namespace vndesk
