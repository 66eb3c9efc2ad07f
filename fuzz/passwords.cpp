// SPDX-License-Identifier: MIT
// A stored form, a least length, a user's name, then a new password. A form that is read is the one
// that is written, none other is read, and every verdict has its reason.
#include "support/input.h"

#include <algorithm>
#include <string>

#include "passwords/text/common_passwords.h"
#include "passwords/text/password_record.h"
#include "passwords/text/password_rules.h"
#include "text/capitals.h"

namespace vndesk::fuzz {

namespace {

bool IsBase64(std::wstring_view text, std::size_t letters) {
    const auto isLetter = [](wchar_t ch) {
        return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z') ||
               (ch >= L'0' && ch <= L'9') || ch == L'+' || ch == L'/';
    };
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(letters),
                       isLetter) &&
           text.find_first_not_of(L'=', letters) == text.npos;
}

void CheckRecord(const std::wstring& text) {
    const auto record = ReadPasswordRecord(text);
    if (!record)
        return;
    MUST(record->cost >= 1 && record->cost <= kHighestPasswordCost);
    MUST(record->salt.size() == 24 && IsBase64(record->salt, 22));
    MUST(record->key.size() == 44 && IsBase64(record->key, 43));
    MUST(WritePasswordRecord(*record) == text && text.size() <= 92);
    // Any cost in the range is read, whatever the salt and the key.
    for (const unsigned long cost : {1ul, kPasswordCost, kHighestPasswordCost}) {
        const auto other =
            ReadPasswordRecord(WritePasswordRecord({cost, record->salt, record->key}));
        MUST(other && other->cost == cost && other->key == record->key);
    }
    MUST(!ReadPasswordRecord(text + L'=') && !ReadPasswordRecord(L' ' + text));
}

void CheckRules(const std::wstring& password, const std::wstring& name, long leastLength) {
    const PasswordVerdict verdict = JudgePassword(password, name, leastLength);
    const std::size_t length = CountCodePoints(password);
    MUST(length <= password.size() && 2 * length >= password.size());
    const bool isShort = leastLength > 0 && length < static_cast<std::size_t>(leastLength);
    MUST((verdict == PasswordVerdict::TooShort) == isShort);
    const std::wstring capitals = InCapitals(password);
    const bool isName = capitals == InCapitals(name);
    MUST((verdict == PasswordVerdict::IsUserName) == (!isShort && isName));
    const auto all = CommonPasswords();
    const bool isCommon = std::any_of(all.begin(), all.end(),
                                      [&](const CommonPassword& row) { return capitals == row; });
    MUST((verdict == PasswordVerdict::Common) == (!isShort && !isName && isCommon));
    MUST(TextOfVerdict(verdict, leastLength).empty() == (verdict == PasswordVerdict::Fine));
    MUST(JudgePassword(capitals, name, leastLength) == verdict);
}

} // namespace

void RunOne(Input& input) {
    CheckRecord(input.Text());
    const long leastLength = input.Number(-3, 30);
    const std::wstring name = input.Text();
    CheckRules(input.RestText(), name, leastLength);
}

} // namespace vndesk::fuzz
