// SPDX-License-Identifier: MIT
// Messages about the `Options` table, about databases that cannot be opened or do not answer, and
// about lists without rows.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kOptionsNotSaved = L"Không thể lưu được khoá"_tcvn3;
inline constexpr auto kOptionsErrorIs = L". Lỗi là "_tcvn3;
// What was written cannot be shown. The provider's words follow.
inline constexpr auto kWrittenNotRead =
    L"Đã ghi, nhưng không đọc lại được. Hãy mở lại để xem."_tcvn3;
// The connection broke before a commit was answered.
inline constexpr auto kAnswerLost =
    L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra."_tcvn3;

// In the place of a list of names.
inline constexpr auto kNothingFound = L"Không có mục nào phù hợp"_tcvn3;

inline constexpr auto kNotConnected = L"Không kết nối được cơ sở dữ liệu."_tcvn3;
inline constexpr auto kFailureServer = L"Không tìm thấy máy chủ, hoặc máy chủ không trả lời."_tcvn3;
inline constexpr auto kFailurePassword =
    L"Tên hoặc mật khẩu dùng để vào cơ sở dữ liệu không đúng."_tcvn3;
// Followed by 32 or 64 and kFailureBits.
inline constexpr auto kFailureDriver =
    L"Máy này thiếu trình điều khiển cơ sở dữ liệu cho chương trình "_tcvn3;
inline constexpr auto kFailureBits = L" bit."_tcvn3;
inline constexpr auto kFailureCertificate = L"Chứng chỉ của máy chủ không được tin cậy."_tcvn3;
inline constexpr auto kFailureFile = L"Không tìm thấy tệp cơ sở dữ liệu."_tcvn3;
inline constexpr auto kFailureJet = L"Jet 4.0 không dùng được trong chương trình 64 bit."_tcvn3;
inline constexpr auto kFailureDatabase = L"Máy chủ không có cơ sở dữ liệu này."_tcvn3;
inline constexpr auto kFailureNotReady = L"Máy chủ đang bận hoặc chưa sẵn sàng."_tcvn3;

} // namespace vndesk::texts
