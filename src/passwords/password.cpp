// SPDX-License-Identifier: MIT
#include "passwords/password.h"

#include <windows.h>

#include <string>

#include "comkit/base/upper_case.h"
#include "passwords/text/password_code.h"

namespace vndesk {

namespace {

// The first byte of a double-byte character is above every code that a password may have.
int AnsiCode(wchar_t character) {
    char bytes[8] = "";
    WideCharToMultiByte(CP_ACP, 0, &character, 1, bytes, sizeof bytes, nullptr, nullptr);
    return static_cast<unsigned char>(bytes[0]);
}

} // namespace

double PasswordCodeOf(std::wstring_view password) {
    return PasswordCode(UpperCase(std::wstring(password)), AnsiCode);
}

} // namespace vndesk
