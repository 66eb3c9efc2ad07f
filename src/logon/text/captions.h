// SPDX-License-Identifier: MIT
// Captions and messages of the logon dialog.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kLogonUser = L"Người sử dụng"_tcvn3;
inline constexpr auto kLogonPassword = L"Mật khẩu"_tcvn3;
inline constexpr auto kLogonOk = L"Đồng ý"_tcvn3;
inline constexpr auto kLogonExit = L"Thoát"_tcvn3;
inline constexpr auto kLogonHelp = L"Hướng dẫn"_tcvn3;
inline constexpr auto kLogonFailed = L"Mật khẩu hoặc người sử dụng không hợp lệ "_tcvn3;

// Rules for new passwords; the number stands between the first two.
inline constexpr auto kPasswordTooShort = L"Mật khẩu phải có ít nhất "_tcvn3;
inline constexpr auto kPasswordCharacters = L" ký tự."_tcvn3;
inline constexpr auto kPasswordIsUserName =
    L"Mật khẩu không được trùng với tên người sử dụng."_tcvn3;
inline constexpr auto kPasswordCommon = L"Mật khẩu này quá dễ đoán."_tcvn3;

} // namespace vndesk::texts
