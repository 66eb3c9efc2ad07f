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

// A user who is locked out: the time, perhaps the day, stands between.
inline constexpr auto kLogonLockedUntil = L"Tài khoản bị khoá đến "_tcvn3;
inline constexpr auto kLogonLockedBecause = L" do nhập sai mật khẩu nhiều lần."_tcvn3;
// How many tries are left stands between.
inline constexpr auto kLogonTriesLeft = L"Còn "_tcvn3;
inline constexpr auto kLogonTries = L" lần thử."_tcvn3;

// --- Unicode, for menus and messages of Windows ---

inline constexpr wchar_t kForgetNames[] = L"Xoá tên đã &lưu";
inline constexpr wchar_t kEditUndo[] = L"&Hoàn tác";
inline constexpr wchar_t kEditCut[] = L"&Cắt";
inline constexpr wchar_t kEditCopy[] = L"&Sao chép";
inline constexpr wchar_t kEditPaste[] = L"&Dán";
inline constexpr wchar_t kEditDelete[] = L"&Xoá";
inline constexpr wchar_t kEditSelectAll[] = L"Chọn &tất cả";
// The file's name follows.
inline constexpr wchar_t kHelpNotOpened[] = L"Không mở được tệp hướng dẫn:\n";

} // namespace vndesk::texts
