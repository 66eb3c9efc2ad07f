// SPDX-License-Identifier: MIT
// Captions of the message box.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

// Title of notices, used by several forms.
inline constexpr auto kNotice = L"Thông báo"_tcvn3;

inline constexpr auto kMsgOk = L"Đồ&ng ý"_tcvn3;
inline constexpr auto kMsgCancel = L"&Bỏ qua"_tcvn3;
inline constexpr auto kMsgAbort = L"Bỏ &dở"_tcvn3;
inline constexpr auto kMsgRetry = L"&Thử lại"_tcvn3;
inline constexpr auto kMsgIgnore = L"&Bác bỏ"_tcvn3;
inline constexpr auto kMsgYes = L"&Có"_tcvn3;
inline constexpr auto kMsgNo = L"&Không"_tcvn3;

// Of a message with details.
inline constexpr auto kMsgDetails = L"&Chi tiết"_tcvn3;
inline constexpr auto kMsgProviderSays = L"&Thông báo của trình điều khiển:"_tcvn3;

} // namespace vndesk::texts
