// SPDX-License-Identifier: MIT
// Captions of the administration forms, in TCVN3; what they read on the screen stands beside them.
#pragma once

namespace vndesk::texts {

inline constexpr wchar_t kUserEditorTitle[] =
    L"Th«ng tin ng\u00ADêi sö dông"; // Thông tin người sử dụng

inline constexpr wchar_t kUserEditorName[] = L"&Tªn ng\u00ADêi sö dông"; // &Tên người sử dụng
inline constexpr wchar_t kUserEditorDescription[] = L"&DiÔn gi¶i";       // &Diễn giải
inline constexpr wchar_t kUserEditorGroup[] = L"&Bé phËn";               // &Bộ phận
inline constexpr wchar_t kUserEditorPassword[] = L"&MËt khÈu";           // &Mật khẩu

inline constexpr wchar_t kUserEditorConfirm[] = L"&NhËp l¹i mËt khÈu"; // &Nhập lại mật khẩu
inline constexpr wchar_t kUserEditorOk[] = L"§ån&g ý";                 // Đồn&g ý
inline constexpr wchar_t kUserEditorCancel[] = L"Bá &qua";             // Bỏ &qua

inline constexpr wchar_t kGroupManagerTitle[] = L"Nhãm ng\u00ADêi sö dông"; // Nhóm người sử dụng
inline constexpr wchar_t kGroupManagerGroups[] = L"Danh &s¸ch nhãm";        // Danh &sách nhóm
inline constexpr wchar_t kGroupManagerDetail[] = L"Chi tiÕt";               // Chi tiết
inline constexpr wchar_t kGroupManagerName[] = L"&Tªn nhãm";                // &Tên nhóm
inline constexpr wchar_t kGroupManagerDescription[] = L"&DiÔn gi¶i";        // &Diễn giải
inline constexpr wchar_t kGroupManagerUsers[] =
    L"&Ng\u00ADêi sö dông trong nhãm";                         // &Người sử dụng trong nhóm
inline constexpr wchar_t kGroupManagerWrite[] = L"&Ghi";       // &Ghi
inline constexpr wchar_t kGroupManagerDelete[] = L"&Xo¸";      // &Xoá
inline constexpr wchar_t kGroupManagerRights[] = L"&QuyÒn..."; // &Quyền...
inline constexpr wchar_t kGroupManagerExit[] = L"Th&o¸t";      // Th&oát

inline constexpr wchar_t kPermissionFormTitle[] = L"Ph©n quyÒn"; // Phân quyền
inline constexpr wchar_t kPermissionBars[] = L"&Thùc ®¬n";       // &Thực đơn
inline constexpr wchar_t kPermissionCommands[] =
    L"&Chøc n¨ng ®\u00ADîc phÐp";                          // &Chức năng được phép
inline constexpr wchar_t kPermissionOk[] = L"§ån&g ý";     // Đồn&g ý
inline constexpr wchar_t kPermissionCancel[] = L"Bá &qua"; // Bỏ &qua

inline constexpr wchar_t kUserListTitle[] =
    L"Danh s¸ch ng\u00ADêi sö dông";                   // Danh sách người sử dụng
inline constexpr wchar_t kUserListAdd[] = L"T&hªm..."; // T&hêm...
inline constexpr wchar_t kUserListEdit[] = L"&Söa..."; // &Sửa...
inline constexpr wchar_t kUserListDelete[] = L"&Xo¸";  // &Xoá
inline constexpr wchar_t kUserListExit[] = L"Th&o¸t";  // Th&oát

} // namespace vndesk::texts
