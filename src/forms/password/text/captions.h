// SPDX-License-Identifier: MIT
// What a password box with warnings says.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kShowPassword = L"Hiện mật khẩu"_tcvn3;
inline constexpr auto kInputMethodIsOn =
    L"Bộ gõ tiếng Việt đang bật. Hãy tắt rồi gõ lại mật khẩu."_tcvn3;
inline constexpr auto kCapsLockIsOn = L"Phím Caps Lock đang bật"_tcvn3;

} // namespace vndesk::texts
