// SPDX-License-Identifier: MIT
// What the user of a soak types, and what the program may tell him.
#pragma once

#include <string>

namespace vndesk::test {

inline constexpr const wchar_t* kTexts[] = {
    L"Nguyễn Thị Bưởi",
    L"Đỗ Hoài Ân",
    L"ƯỠN ẸO",
    L"Kế toán",
    L"KH00",
    L"HN",
    L"DT",
    L"a",
    L"1",
    L"-5",
    L"1.234,5",
    L"12,13",
    L"31/12/2005",
    L"2004-02-30",
    L"%",
    L"_",
    L"O'Brien",
    L"\"Tre Việt\"",
    L"(x)",
    L"x)",
    L"&Ghi",
    L"NguyÔn V¨n",               // TCVN3
    L"\u05E9\u05DC\u05D5\u05DD", // from right to left
    L"\U0001F600",
    L" ",
    L"99999999999999999999",
    L"Cộng hoà xã hội chủ nghĩa Việt Nam, độc lập, tự do, hạnh phúc",
};

inline constexpr const wchar_t* kPasswords[] = {L"abc",   L"abc", L"abc", L"ABC",
                                                L"kho#1", L"ớ",   L""};

// Whether the library's message box, or the platform's, says something that is known to come up.
bool IsKnownMessage(const std::wstring& text);
bool IsKnownError(const std::wstring& text);

} // namespace vndesk::test
