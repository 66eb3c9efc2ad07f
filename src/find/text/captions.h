// SPDX-License-Identifier: MIT
// Captions and messages of the find dialog.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

inline constexpr auto kFindTitle = L"Tìm kiếm"_tcvn3;
inline constexpr auto kFindFirst = L"Tìm khi"_tcvn3;
inline constexpr auto kFindField = L"&Thông tin"_tcvn3;
inline constexpr auto kFindOperator = L"&So sánh"_tcvn3;
inline constexpr auto kFindValue = L"G&iá trị"_tcvn3;
inline constexpr auto kFindResult = L"Điều &kiện tìm kiếm"_tcvn3;
inline constexpr auto kFindOk = L"Đồn&g ý"_tcvn3;
inline constexpr auto kFindCancel = L"Bỏ &qua"_tcvn3;
inline constexpr auto kFindHelp = L"&Hướng dẫn"_tcvn3;
inline constexpr auto kFindCueDate = L"ngày/tháng/năm"_tcvn3;
inline constexpr auto kFindCueRelation = L"F2: chọn từ danh mục"_tcvn3;

// What joins two lines of a condition.
inline constexpr auto kFindAnd = L"và"_tcvn3;
inline constexpr auto kFindOr = L"hoặc"_tcvn3;

inline constexpr auto kFindHelpTitle = L"Hướng dẫn tìm kiếm"_tcvn3;
inline constexpr auto kFindHelpText =
    L"Mỗi dòng là một điều kiện: chọn thông tin, cách so sánh rồi nhập giá trị.\n"
    L"Dòng dưới dùng được khi dòng trên đã đủ và đúng; \"và\", \"hoặc\" nối nó với dòng "
    L"trên.\n"
    L"\n"
    L"- Ngày nhập theo thứ tự ngày/tháng/năm, ví dụ 31/12/2004.\n"
    L"- Danh sách giá trị cách nhau bằng dấu phẩy, không có dấu cách, ví dụ HN,HP.\n"
    L"- Ô giá trị của một số thông tin có danh mục: bấm F2 để chọn.\n"
    L"- Enter hoặc Tab sang ô kế tiếp, Delete bỏ chọn, Esc bỏ qua."_tcvn3;

} // namespace vndesk::texts
