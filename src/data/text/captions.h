// SPDX-License-Identifier: MIT
// Messages about what was written.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kOptionsNotSaved = L"Không thể lưu được khoá"_tcvn3;
inline constexpr auto kOptionsErrorIs = L". Lỗi là "_tcvn3;
// The connection broke before a commit was answered.
inline constexpr auto kAnswerLost =
    L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra."_tcvn3;

} // namespace vndesk::texts
