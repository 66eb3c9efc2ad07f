// SPDX-License-Identifier: MIT
// Captions of the find dialog, in TCVN3; what they read on the screen stands beside them.
#pragma once

namespace vndesk::texts {

inline constexpr wchar_t kFindTitle[] = L"T×m kiÕm";             // Tìm kiếm
inline constexpr wchar_t kFindFirst[] = L"T×m khi";              // Tìm khi
inline constexpr wchar_t kFindField[] = L"&Th«ng tin";           // &Thông tin
inline constexpr wchar_t kFindOperator[] = L"&So s¸nh";          // &So sánh
inline constexpr wchar_t kFindValue[] = L"G&i¸ trÞ";             // G&iá trị
inline constexpr wchar_t kFindResult[] = L"§iÒu &kiÖn t×m kiÕm"; // Điều &kiện tìm kiếm
inline constexpr wchar_t kFindOk[] = L"§ån&g ý";                 // Đồn&g ý
inline constexpr wchar_t kFindCancel[] = L"Bá &qua";             // Bỏ &qua
inline constexpr wchar_t kFindHelp[] = L"&H\u00ADíng dÉn";       // &Hướng dẫn

inline constexpr wchar_t kFindCueDate[] = L"ngµy/th¸ng/n¨m";           // ngày/tháng/năm
inline constexpr wchar_t kFindCueRelation[] = L"F2: chän tõ danh môc"; // F2: chọn từ danh mục

inline constexpr wchar_t kFindHelpTitle[] = L"H\u00ADíng dÉn t×m kiÕm"; // Hướng dẫn tìm kiếm

// Mỗi dòng là một điều kiện: chọn thông tin, cách so sánh rồi nhập giá trị.
// Dòng dưới dùng được khi dòng trên đã đủ và đúng; "và", "hoặc" nối nó với dòng trên.
//
// - Ngày nhập theo thứ tự ngày/tháng/năm, ví dụ 31/12/2004.
// - Danh sách giá trị cách nhau bằng dấu phẩy, không có dấu cách, ví dụ HN,HP.
// - Ô giá trị của một số thông tin có danh mục: bấm F2 để chọn.
// - Enter hoặc Tab sang ô kế tiếp, Delete bỏ chọn, Esc bỏ qua.
inline constexpr wchar_t kFindHelpText[] =
    L"Mçi dßng lµ mét ®iÒu kiÖn: chän th«ng tin, c¸ch so s¸nh råi nhËp gi¸ trÞ.\n"
    L"Dßng d\u00ADíi dïng ®\u00ADîc khi dßng trªn ®· ®ñ vµ ®óng; \"vµ\", \"hoÆc\" nèi nã víi dßng "
    L"trªn.\n"
    L"\n"
    L"- Ngµy nhËp theo thø tù ngµy/th¸ng/n¨m, vÝ dô 31/12/2004.\n"
    L"- Danh s¸ch gi¸ trÞ c¸ch nhau b»ng dÊu phÈy, kh«ng cã dÊu c¸ch, vÝ dô HN,HP.\n"
    L"- ¤ gi¸ trÞ cña mét sè th«ng tin cã danh môc: bÊm F2 ®Ó chän.\n"
    L"- Enter hoÆc Tab sang « kÕ tiÕp, Delete bá chän, Esc bá qua.";

} // namespace vndesk::texts
