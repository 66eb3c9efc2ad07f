// SPDX-License-Identifier: MIT
// What the fixed texts show on the screen.
#include "find/text/captions.h"
#include "security/text/captions.h"
#include "text/fixed_texts.h"
#include "text/tcvn3.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using namespace vndesk;

namespace {

struct FixedText {
    const char* name;
    const wchar_t* stored;
    const wchar_t* shown;
    std::size_t length;
};

void PrintTo(const FixedText& text, std::ostream* out) {
    *out << text.name;
}

constexpr FixedText kAll[] = {
    {"Notice", texts::kNotice, L"Thông báo", 9},
    {"LogonUser", texts::kLogonUser, L"Người sử dụng", 13},
    {"LogonPassword", texts::kLogonPassword, L"Mật khẩu", 8},
    {"LogonOk", texts::kLogonOk, L"Đồng ý", 6},
    {"LogonExit", texts::kLogonExit, L"Thoát", 5},
    {"LogonHelp", texts::kLogonHelp, L"Hướng dẫn", 9},
    {"LogonFailed", texts::kLogonFailed, L"Mật khẩu hoặc người sử dụng không hợp lệ ", 41},
    {"MsgOk", texts::kMsgOk, L"Đồ&ng ý", 7},
    {"MsgCancel", texts::kMsgCancel, L"&Bỏ qua", 7},
    {"MsgAbort", texts::kMsgAbort, L"Bỏ &dở", 6},
    {"MsgRetry", texts::kMsgRetry, L"&Thử lại", 8},
    {"MsgIgnore", texts::kMsgIgnore, L"&Bác bỏ", 7},
    {"MsgYes", texts::kMsgYes, L"&Có", 3},
    {"MsgNo", texts::kMsgNo, L"&Không", 6},
    {"OptionsNotSaved", texts::kOptionsNotSaved, L"Không thể lưu được khoá", 23},
    {"OptionsErrorIs", texts::kOptionsErrorIs, L". Lỗi là ", 9},
    {"UserNoGroup", texts::kUserNoGroup, L"Bạn chưa chọn bộ phận.", 22},
    {"UserExists", texts::kUserExists, L"Người sử dụng đã tồn tại", 24},
    {"UserBadPassword", texts::kUserBadPassword, L"Mật khẩu không hợp lệ", 21},
    {"UserNotWritten", texts::kUserNotWritten,
     L"Không ghi hay xoá được: tên hoặc diễn giải có dấu nháy đơn (').", 63},
    {"GroupCancelAdding", texts::kGroupCancelAdding, L"&Huỷ thêm", 9},
    {"GroupAdd", texts::kGroupAdd, L"T&hêm", 5},
    {"GroupNotAdded", texts::kGroupNotAdded, L"Không thể thêm dữ liệu vào bảng", 31},
    {"GroupNotWritten", texts::kGroupNotWritten, L"Không thể ghi dữ liệu vào bảng", 30},
    {"GroupConfirmDelete", texts::kGroupConfirmDelete,
     L"Bạn có chắc chắn xoá các nhóm đã chọn không?", 44},
    {"GroupsDeleted", texts::kGroupsDeleted, L" danh mục đã bị xoá", 19},
    {"PermissionGroupIs", texts::kPermissionGroupIs, L"Tên nhóm là:", 12},
    {"UserListName", texts::kUserListName, L"Tên", 3},
    {"UserListDescription", texts::kUserListDescription, L"Diễn giải", 9},
    {"UserListCode", texts::kUserListCode, L"Mã số", 5},
    {"UserListNoDelete", texts::kUserListNoDelete,
     L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.", 58},
    {"UserListConfirmDelete", texts::kUserListConfirmDelete, L"Bạn chắc chắn xoá người sử dụng này",
     35},
    {"UserListLastUser", texts::kUserListLastUser,
     L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình", 66},
    {"UserEditorTitle", texts::kUserEditorTitle, L"Thông tin người sử dụng", 23},
    {"UserEditorName", texts::kUserEditorName, L"&Tên người sử dụng", 18},
    {"UserEditorDescription", texts::kUserEditorDescription, L"&Diễn giải", 10},
    {"UserEditorGroup", texts::kUserEditorGroup, L"&Bộ phận", 8},
    {"UserEditorPassword", texts::kUserEditorPassword, L"&Mật khẩu", 9},
    {"UserEditorConfirm", texts::kUserEditorConfirm, L"&Nhập lại mật khẩu", 18},
    {"UserEditorOk", texts::kUserEditorOk, L"Đồn&g ý", 7},
    {"UserEditorCancel", texts::kUserEditorCancel, L"Bỏ &qua", 7},
    {"GroupManagerTitle", texts::kGroupManagerTitle, L"Nhóm người sử dụng", 18},
    {"GroupManagerGroups", texts::kGroupManagerGroups, L"Danh &sách nhóm", 15},
    {"GroupManagerDetail", texts::kGroupManagerDetail, L"Chi tiết", 8},
    {"GroupManagerName", texts::kGroupManagerName, L"&Tên nhóm", 9},
    {"GroupManagerDescription", texts::kGroupManagerDescription, L"&Diễn giải", 10},
    {"GroupManagerUsers", texts::kGroupManagerUsers, L"&Người sử dụng trong nhóm", 25},
    {"GroupManagerWrite", texts::kGroupManagerWrite, L"&Ghi", 4},
    {"GroupManagerDelete", texts::kGroupManagerDelete, L"&Xoá", 4},
    {"GroupManagerRights", texts::kGroupManagerRights, L"&Quyền...", 9},
    {"GroupManagerExit", texts::kGroupManagerExit, L"Th&oát", 6},
    {"PermissionFormTitle", texts::kPermissionFormTitle, L"Phân quyền", 10},
    {"PermissionBars", texts::kPermissionBars, L"&Thực đơn", 9},
    {"PermissionCommands", texts::kPermissionCommands, L"&Chức năng được phép", 20},
    {"PermissionOk", texts::kPermissionOk, L"Đồn&g ý", 7},
    {"PermissionCancel", texts::kPermissionCancel, L"Bỏ &qua", 7},
    {"UserListTitle", texts::kUserListTitle, L"Danh sách người sử dụng", 23},
    {"UserListAdd", texts::kUserListAdd, L"T&hêm...", 8},
    {"UserListEdit", texts::kUserListEdit, L"&Sửa...", 7},
    {"UserListDelete", texts::kUserListDelete, L"&Xoá", 4},
    {"UserListExit", texts::kUserListExit, L"Th&oát", 6},
    {"FindAnd", texts::kFindAnd, L"và", 2},
    {"FindOr", texts::kFindOr, L"hoặc", 4},
    {"FindCueDate", texts::kFindCueDate, L"ngày/tháng/năm", 14},
    {"FindCueRelation", texts::kFindCueRelation, L"F2: chọn từ danh mục", 20},
    {"FindHelpTitle", texts::kFindHelpTitle, L"Hướng dẫn tìm kiếm", 18},
    {"FindHelpText", texts::kFindHelpText,
     L"Mỗi dòng là một điều kiện: chọn thông tin, cách so sánh rồi nhập giá trị.\n"
     L"Dòng dưới dùng được khi dòng trên đã đủ và đúng; \"và\", \"hoặc\" nối nó với dòng trên.\n"
     L"\n"
     L"- Ngày nhập theo thứ tự ngày/tháng/năm, ví dụ 31/12/2004.\n"
     L"- Danh sách giá trị cách nhau bằng dấu phẩy, không có dấu cách, ví dụ HN,HP.\n"
     L"- Ô giá trị của một số thông tin có danh mục: bấm F2 để chọn.\n"
     L"- Enter hoặc Tab sang ô kế tiếp, Delete bỏ chọn, Esc bỏ qua.",
     416},
    {"PickerTitle", texts::kPickerTitle, L"Chọn từ danh mục", 16},
    {"PickerDetail", texts::kPickerDetail, L"Danh mục", 8},
    {"PickerSearch", texts::kPickerSearch, L"&Tìm tên", 8},
    {"PickerCode", texts::kPickerCode, L"Mã số: ", 7},
    {"PickerEmpty", texts::kPickerEmpty, L"Không có mục nào phù hợp", 24},
    {"PickerChoose", texts::kPickerChoose, L"&Chọn", 5},
    {"PickerQuit", texts::kPickerQuit, L"Bỏ &qua", 7},
    {"SelectNotOpened", texts::kSelectNotOpened, L"Mã danh mục không mở được. Lỗi là:", 34},
    {"SelectCode", texts::kSelectCode, L"Mã số ", 6},
    {"SelectNotFound", texts::kSelectNotFound, L" không tồn tại", 14},
};

class FixedTexts : public testing::TestWithParam<FixedText> {};

} // namespace

TEST_P(FixedTexts, ShowsAsWritten) {
    EXPECT_EQ(ToUncText(GetParam().stored, kToUnicode), GetParam().shown);
}

TEST_P(FixedTexts, HasItsLength) {
    EXPECT_EQ(std::wstring(GetParam().stored).size(), GetParam().length);
}

TEST_P(FixedTexts, IsStoredInSingleBytes) {
    for (wchar_t ch : std::wstring(GetParam().stored))
        EXPECT_LT(static_cast<unsigned>(ch), 0x100u);
}

TEST_P(FixedTexts, ComesBackFromTheScreen) {
    EXPECT_EQ(ToUncText(GetParam().shown, kToTcvn3), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(All, FixedTexts, testing::ValuesIn(kAll),
                         [](const auto& info) { return std::string(info.param.name); });
