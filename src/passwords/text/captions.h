// SPDX-License-Identifier: MIT
// What users are told about new passwords.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kPasswordInvalid = L"Mật khẩu không hợp lệ"_tcvn3;

// Rules for new passwords; the number stands between the first two.
inline constexpr auto kPasswordTooShort = L"Mật khẩu phải có ít nhất "_tcvn3;
inline constexpr auto kPasswordCharacters = L" ký tự."_tcvn3;
inline constexpr auto kPasswordIsUserName =
    L"Mật khẩu không được trùng với tên người sử dụng."_tcvn3;
inline constexpr auto kPasswordCommon = L"Mật khẩu này quá dễ đoán."_tcvn3;

} // namespace vndesk::texts
