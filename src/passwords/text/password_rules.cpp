// SPDX-License-Identifier: MIT
#include "passwords/text/password_rules.h"

#include "passwords/text/captions.h"
#include "passwords/text/common_passwords.h"
#include "text/capitals.h"

#include <algorithm>

namespace vndesk {

namespace {

constexpr bool IsBetween(wchar_t unit, unsigned long first, unsigned long last) {
    const auto code = static_cast<unsigned long>(unit);
    return code >= first && code <= last;
}

bool SameLetters(std::wstring_view left, std::wstring_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return ToCapital(a) == ToCapital(b); });
}

} // namespace

std::size_t CountCodePoints(std::wstring_view text) {
    std::size_t count = text.size();
    for (std::size_t i = 1; i < text.size(); ++i)
        if (IsBetween(text[i], 0xDC00, 0xDFFF) && IsBetween(text[i - 1], 0xD800, 0xDBFF))
            --count;
    return count;
}

PasswordVerdict JudgePassword(std::wstring_view password, std::wstring_view userName,
                              long leastLength) {
    if (leastLength > 0 && CountCodePoints(password) < static_cast<std::size_t>(leastLength))
        return PasswordVerdict::TooShort;
    if (SameLetters(password, userName))
        return PasswordVerdict::IsUserName;
    return IsCommonPassword(password) ? PasswordVerdict::Common : PasswordVerdict::Fine;
}

std::wstring TextOfVerdict(PasswordVerdict verdict, long leastLength) {
    switch (verdict) {
    case PasswordVerdict::TooShort:
        return texts::kPasswordTooShort + std::to_wstring(leastLength) + texts::kPasswordCharacters;
    case PasswordVerdict::IsUserName:
        return texts::kPasswordIsUserName;
    case PasswordVerdict::Common:
        return texts::kPasswordCommon;
    case PasswordVerdict::Fine:
        break;
    }
    return {};
}

} // namespace vndesk
