// SPDX-License-Identifier: MIT
// Captions and messages of the item picker and the selection boxes.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

// Item picker.
inline constexpr auto kPickerTitle = L"Chọn từ danh mục"_tcvn3;
inline constexpr auto kPickerDetail = L"Danh mục"_tcvn3;
inline constexpr auto kPickerSearch = L"&Tìm tên"_tcvn3;
inline constexpr auto kPickerCode = L"Mã số: "_tcvn3;
inline constexpr auto kPickerChoose = L"&Chọn"_tcvn3;
inline constexpr auto kPickerQuit = L"Bỏ &qua"_tcvn3;

// Selection boxes.
inline constexpr auto kSelectNotice = L"Thông báo"_tcvn3; // the title
inline constexpr auto kSelectNotOpened = L"Mã danh mục không mở được. Lỗi là:"_tcvn3;
inline constexpr auto kSelectCode = L"Mã số "_tcvn3;
inline constexpr auto kSelectNotFound = L" không tồn tại"_tcvn3;

} // namespace vndesk::texts
