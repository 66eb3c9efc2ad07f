// SPDX-License-Identifier: MIT
#include "passwords/text/password_record.h"

#include "text/ascii_text.h"

namespace vndesk {

namespace {

constexpr std::wstring_view kScheme = L"pbkdf2-sha256";
constexpr std::wstring_view kBase64 =
    L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The text up to the next sign; what is left stands behind it. Nothing where no sign follows.
std::optional<std::wstring_view> NextPart(std::wstring_view& rest) {
    const std::size_t end = rest.find(L'$');
    if (end == std::wstring_view::npos)
        return std::nullopt;
    const std::wstring_view part = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return part;
}

// 0 for what is no cost.
unsigned long ReadCost(std::wstring_view digits) {
    unsigned long cost = 0;
    for (const wchar_t digit : digits) {
        if (!IsAsciiDigit(digit) || (cost == 0 && digit == L'0'))
            return 0;
        cost = cost * 10 + static_cast<unsigned long>(digit - L'0');
        if (cost > kHighestPasswordCost)
            return 0;
    }
    return cost;
}

// The only base64 text of so many bytes: padded, and with zeros in the bits that are left over.
bool IsBase64Of(std::wstring_view text, std::size_t bytes) {
    const std::size_t letters = (bytes * 8 + 5) / 6;
    if (text.size() != (bytes + 2) / 3 * 4 ||
        text.find_first_not_of(kBase64) != (letters < text.size() ? letters : text.npos) ||
        text.find_first_not_of(L'=', letters) != text.npos)
        return false;
    const std::size_t unusedBits = letters * 6 - bytes * 8;
    return kBase64.find(text[letters - 1]) % (std::size_t{1} << unusedBits) == 0;
}

} // namespace

std::optional<PasswordRecord> ReadPasswordRecord(std::wstring_view text) {
    const auto scheme = NextPart(text);
    const auto cost = NextPart(text);
    const auto salt = NextPart(text);
    if (!scheme || *scheme != kScheme || !cost || !salt)
        return std::nullopt;
    PasswordRecord record{ReadCost(*cost), std::wstring(*salt), std::wstring(text)};
    if (record.cost == 0 || !IsBase64Of(record.salt, kSaltBytes) ||
        !IsBase64Of(record.key, kKeyBytes))
        return std::nullopt;
    return record;
}

std::wstring WritePasswordRecord(const PasswordRecord& record) {
    return std::wstring(kScheme) + L'$' + std::to_wstring(record.cost) + L'$' + record.salt + L'$' +
           record.key;
}

} // namespace vndesk
