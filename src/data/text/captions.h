// SPDX-License-Identifier: MIT
// Messages about the `Options` table.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kOptionsNotSaved = L"Không thể lưu được khoá"_tcvn3;
inline constexpr auto kOptionsErrorIs = L". Lỗi là "_tcvn3;

} // namespace vndesk::texts
