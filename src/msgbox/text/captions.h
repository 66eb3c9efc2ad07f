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
inline constexpr auto kMsgDetails = L"Chi t&iết"_tcvn3;
inline constexpr auto kMsgDetailsText = L"Nội dung chi tiết:"_tcvn3;
// Of the check box of a message that need not come again.
inline constexpr auto kMsgDontShow = L"Không hiện lại thông báo này"_tcvn3;

} // namespace vndesk::texts
