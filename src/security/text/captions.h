// SPDX-License-Identifier: MIT
// Captions and messages of the administration forms.
#pragma once

#include "text/tcvn3_literal.h"

namespace vndesk::texts {

// User editor.
inline constexpr auto kUserEditorTitle = L"Thông tin người sử dụng"_tcvn3;
inline constexpr auto kUserEditorName = L"&Tên người sử dụng"_tcvn3;
inline constexpr auto kUserEditorDescription = L"&Diễn giải"_tcvn3;
inline constexpr auto kUserEditorGroup = L"&Bộ phận"_tcvn3;
inline constexpr auto kUserEditorPassword = L"&Mật khẩu"_tcvn3;
inline constexpr auto kUserEditorConfirm = L"&Nhập lại mật khẩu"_tcvn3;
inline constexpr auto kUserEditorOk = L"Đồn&g ý"_tcvn3;
inline constexpr auto kUserEditorCancel = L"Bỏ &qua"_tcvn3;
inline constexpr auto kUserNoGroup = L"Bạn chưa chọn bộ phận."_tcvn3;
inline constexpr auto kUserExists = L"Người sử dụng đã tồn tại"_tcvn3;
inline constexpr auto kUserBadPassword = L"Mật khẩu không hợp lệ"_tcvn3;
inline constexpr auto kUserNotWritten =
    L"Không ghi hay xoá được: tên hoặc diễn giải có dấu nháy đơn (')."_tcvn3;

inline constexpr auto kUserEditorCurrent = L"Mật khẩu &hiện tại"_tcvn3;
inline constexpr auto kUserEditorNewPassword = L"&Mật khẩu mới"_tcvn3;
inline constexpr auto kUserEditorMustChange = L"&Phải đổi khi đăng nhập lần tới"_tcvn3;
inline constexpr auto kUserWrongPassword = L"Mật khẩu hiện tại không đúng."_tcvn3;
inline constexpr auto kUserPasswordsDiffer = L"Hai lần nhập mật khẩu không giống nhau."_tcvn3;
inline constexpr auto kUserPasswordMissing = L"Bạn chưa nhập mật khẩu mới."_tcvn3;
inline constexpr auto kUserSamePassword = L"Mật khẩu mới phải khác mật khẩu hiện tại."_tcvn3;
inline constexpr auto kUserMustChange = L"Bạn phải đổi mật khẩu trước khi dùng chương trình."_tcvn3;

// Group manager.
inline constexpr auto kGroupManagerTitle = L"Nhóm người sử dụng"_tcvn3;
inline constexpr auto kGroupManagerGroups = L"Danh &sách nhóm"_tcvn3;
inline constexpr auto kGroupManagerDetail = L"Chi tiết"_tcvn3;
inline constexpr auto kGroupManagerName = L"&Tên nhóm"_tcvn3;
inline constexpr auto kGroupManagerDescription = L"&Diễn giải"_tcvn3;
inline constexpr auto kGroupManagerUsers = L"&Người sử dụng trong nhóm"_tcvn3;
inline constexpr auto kGroupManagerWrite = L"&Ghi"_tcvn3;
inline constexpr auto kGroupManagerDelete = L"&Xoá"_tcvn3;
inline constexpr auto kGroupManagerRights = L"&Quyền..."_tcvn3;
inline constexpr auto kGroupManagerExit = L"Th&oát"_tcvn3;
inline constexpr auto kGroupCancelAdding = L"&Huỷ thêm"_tcvn3;
inline constexpr auto kGroupAdd = L"T&hêm"_tcvn3;
inline constexpr auto kGroupNotAdded = L"Không thể thêm dữ liệu vào bảng"_tcvn3;
inline constexpr auto kGroupNotWritten = L"Không thể ghi dữ liệu vào bảng"_tcvn3;
inline constexpr auto kGroupConfirmDelete = L"Bạn có chắc chắn xoá các nhóm đã chọn không?"_tcvn3;
inline constexpr auto kGroupsDeleted = L" danh mục đã bị xoá"_tcvn3;

// Permission form.
inline constexpr auto kPermissionFormTitle = L"Phân quyền"_tcvn3;
inline constexpr auto kPermissionBars = L"&Thực đơn"_tcvn3;
inline constexpr auto kPermissionCommands = L"&Chức năng được phép"_tcvn3;
inline constexpr auto kPermissionOk = L"Đồn&g ý"_tcvn3;
inline constexpr auto kPermissionCancel = L"Bỏ &qua"_tcvn3;
inline constexpr auto kPermissionChanged =
    L"Quyền của nhóm này đã được sửa ở máy khác. Bạn có chắc chắn ghi đè không?"_tcvn3;
inline constexpr auto kPermissionGroupIs = L"Tên nhóm là:"_tcvn3;

// The line above the users or groups that shrink to what is typed.
inline constexpr auto kListSearch = L"Tì&m"_tcvn3;

// User list.
inline constexpr auto kUserListTitle = L"Danh sách người sử dụng"_tcvn3;
inline constexpr auto kUserListAdd = L"T&hêm..."_tcvn3;
inline constexpr auto kUserListEdit = L"&Sửa..."_tcvn3;
inline constexpr auto kUserListDelete = L"&Xoá"_tcvn3;
inline constexpr auto kUserListExit = L"Th&oát"_tcvn3;
inline constexpr auto kUserListName = L"Tên"_tcvn3;
inline constexpr auto kUserListDescription = L"Diễn giải"_tcvn3;
inline constexpr auto kUserListCode = L"Mã số"_tcvn3;
inline constexpr auto kUserListState = L"Tình trạng"_tcvn3;
inline constexpr auto kUserListUnlock = L"Mở &khoá"_tcvn3;
// The time, perhaps the day, follows.
inline constexpr auto kUserListLockedUntil = L"Bị khoá đến "_tcvn3;
inline constexpr auto kUserListNoDelete =
    L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên."_tcvn3;
inline constexpr auto kUserListConfirmDelete = L"Bạn chắc chắn xoá người sử dụng này"_tcvn3;
inline constexpr auto kUserListLastUser =
    L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình"_tcvn3;

} // namespace vndesk::texts
