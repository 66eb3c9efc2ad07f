// SPDX-License-Identifier: MIT
// The fixed texts: the TCVN3 units that are stored, written as escapes independently of the tables,
// and what they show on the screen.
#include "controls/picker/text/captions.h"
#include "data/text/captions.h"
#include "find/text/captions.h"
#include "forms/password/text/captions.h"
#include "logon/text/captions.h"
#include "msgbox/text/captions.h"
#include "passwords/text/captions.h"
#include "security/text/captions.h"
#include "text/tcvn3.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

using namespace vndesk;

namespace {

struct FixedText {
    const char* name;
    const wchar_t* stored;
    const wchar_t* units;
    const wchar_t* shown;
    std::size_t length;
};

void PrintTo(const FixedText& text, std::ostream* out) {
    *out << text.name;
}

constexpr FixedText kAll[] = {
    {"Notice", texts::kNotice, L"Th\u00ABng b\u00B8o", L"Thông báo", 9},
    {"LogonUser", texts::kLogonUser, L"Ng\u00AD\u00EAi s\u00F6 d\u00F4ng", L"Người sử dụng", 13},
    {"LogonPassword", texts::kLogonPassword, L"M\u00CBt kh\u00C8u", L"Mật khẩu", 8},
    {"LogonOk", texts::kLogonOk, L"\u00A7\u00E5ng \u00FD", L"Đồng ý", 6},
    {"LogonExit", texts::kLogonExit, L"Tho\u00B8t", L"Thoát", 5},
    {"LogonHelp", texts::kLogonHelp, L"H\u00AD\u00EDng d\u00C9n", L"Hướng dẫn", 9},
    {"LogonFailed", texts::kLogonFailed,
     L"M\u00CBt kh\u00C8u ho\u00C6c ng\u00AD\u00EAi s\u00F6 d\u00F4ng kh\u00ABng "
     L"h\u00EEp l\u00D6 ",
     L"Mật khẩu hoặc người sử dụng không hợp lệ ", 41},
    {"PasswordTooShort", texts::kPasswordTooShort,
     L"M\u00CBt kh\u00C8u ph\u00B6i c\u00E3 \u00DDt nh\u00CAt ", L"Mật khẩu phải có ít nhất ", 25},
    {"PasswordCharacters", texts::kPasswordCharacters, L" k\u00FD t\u00F9.", L" ký tự.", 7},
    {"PasswordIsUserName", texts::kPasswordIsUserName,
     L"M\u00CBt kh\u00C8u kh\u00ABng \u00AE\u00AD\u00EEc tr\u00EFng v\u00EDi t\u00AAn "
     L"ng\u00AD\u00EAi s\u00F6 d\u00F4ng.",
     L"Mật khẩu không được trùng với tên người sử dụng.", 48},
    {"PasswordCommon", texts::kPasswordCommon,
     L"M\u00CBt kh\u00C8u n\u00B5y qu\u00B8 d\u00D4 \u00AEo\u00B8n.", L"Mật khẩu này quá dễ đoán.",
     25},
    {"MsgOk", texts::kMsgOk, L"\u00A7\u00E5&ng \u00FD", L"Đồ&ng ý", 7},
    {"MsgCancel", texts::kMsgCancel, L"&B\u00E1 qua", L"&Bỏ qua", 7},
    {"MsgAbort", texts::kMsgAbort, L"B\u00E1 &d\u00EB", L"Bỏ &dở", 6},
    {"MsgRetry", texts::kMsgRetry, L"&Th\u00F6 l\u00B9i", L"&Thử lại", 8},
    {"MsgIgnore", texts::kMsgIgnore, L"&B\u00B8c b\u00E1", L"&Bác bỏ", 7},
    {"MsgYes", texts::kMsgYes, L"&C\u00E3", L"&Có", 3},
    {"MsgNo", texts::kMsgNo, L"&Kh\u00ABng", L"&Không", 6},
    {"MsgDetails", texts::kMsgDetails, L"Chi t&i\u00D5t", L"Chi t&iết", 9},
    {"MsgDetailsText", texts::kMsgDetailsText, L"N\u00E9i dung chi ti\u00D5t:",
     L"Nội dung chi tiết:", 18},
    {"MsgDontShow", texts::kMsgDontShow,
     L"Kh\u00ABng hi\u00D6n l\u00B9i th\u00ABng b\u00B8o n\u00B5y", L"Không hiện lại thông báo này",
     28},
    {"OptionsNotSaved", texts::kOptionsNotSaved,
     L"Kh\u00ABng th\u00D3 l\u00ADu \u00AE\u00AD\u00EEc kho\u00B8", L"Không thể lưu được khoá", 23},
    {"OptionsErrorIs", texts::kOptionsErrorIs, L". L\u00E7i l\u00B5 ", L". Lỗi là ", 9},
    {"AnswerLost", texts::kAnswerLost,
     L"M\u00CAt k\u00D5t n\u00E8i khi \u00AEang ghi: kh\u00ABng bi\u00D5t \u00AE\u00B7 ghi "
     L"\u00AE\u00AD\u00EEc hay ch\u00ADa. "
     L"H\u00B7y m\u00EB l\u00B9i \u00AE\u00D3 ki\u00D3m tra.",
     L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra.", 82},
    {"WrittenNotRead", texts::kWrittenNotRead,
     L"\u00A7\u00B7 ghi, nh\u00ADng kh\u00ABng \u00AE\u00E4c l\u00B9i \u00AE\u00AD\u00EEc. "
     L"H\u00B7y m\u00EB l\u00B9i \u00AE\u00D3 xem.",
     L"Đã ghi, nhưng không đọc lại được. Hãy mở lại để xem.", 52},
    {"NotConnected", texts::kNotConnected,
     L"Kh\u00ABng k\u00D5t n\u00E8i \u00AE\u00AD\u00EEc c\u00AC s\u00EB d\u00F7 li\u00D6u.",
     L"Không kết nối được cơ sở dữ liệu.", 33},
    {"FailureServer", texts::kFailureServer,
     L"Kh\u00ABng t\u00D7m th\u00CAy m\u00B8y ch\u00F1, ho\u00C6c m\u00B8y ch\u00F1 kh\u00ABng "
     L"tr\u00B6 l\u00EAi.",
     L"Không tìm thấy máy chủ, hoặc máy chủ không trả lời.", 51},
    {"FailurePassword", texts::kFailurePassword,
     L"T\u00AAn ho\u00C6c m\u00CBt kh\u00C8u d\u00EFng \u00AE\u00D3 v\u00B5o c\u00AC s\u00EB "
     L"d\u00F7 li\u00D6u kh\u00ABng \u00AE\u00F3ng.",
     L"Tên hoặc mật khẩu dùng để vào cơ sở dữ liệu không đúng.", 55},
    {"FailureDriver", texts::kFailureDriver,
     L"M\u00B8y n\u00B5y thi\u00D5u tr\u00D7nh \u00AEi\u00D2u khi\u00D3n c\u00AC s\u00EB d\u00F7 "
     L"li\u00D6u cho ch\u00AD\u00ACng tr\u00D7nh ",
     L"Máy này thiếu trình điều khiển cơ sở dữ liệu cho chương trình ", 62},
    {"FailureBits", texts::kFailureBits, L" bit.", L" bit.", 5},
    {"FailureCertificate", texts::kFailureCertificate,
     L"Ch\u00F8ng ch\u00D8 c\u00F1a m\u00B8y ch\u00F1 kh\u00ABng \u00AE\u00AD\u00EEc tin c\u00CBy.",
     L"Chứng chỉ của máy chủ không được tin cậy.", 41},
    {"FailureFile", texts::kFailureFile,
     L"Kh\u00ABng t\u00D7m th\u00CAy t\u00D6p c\u00AC s\u00EB d\u00F7 li\u00D6u.",
     L"Không tìm thấy tệp cơ sở dữ liệu.", 33},
    {"FailureJet", texts::kFailureJet,
     L"Jet 4.0 kh\u00ABng d\u00EFng \u00AE\u00AD\u00EEc trong ch\u00AD\u00ACng tr\u00D7nh 64 bit.",
     L"Jet 4.0 không dùng được trong chương trình 64 bit.", 50},
    {"FailureDatabase", texts::kFailureDatabase,
     L"M\u00B8y ch\u00F1 kh\u00ABng c\u00E3 c\u00AC s\u00EB d\u00F7 li\u00D6u n\u00B5y.",
     L"Máy chủ không có cơ sở dữ liệu này.", 35},
    {"FailureNotReady", texts::kFailureNotReady,
     L"M\u00B8y ch\u00F1 \u00AEang b\u00CBn ho\u00C6c ch\u00ADa s\u00BDn s\u00B5ng.",
     L"Máy chủ đang bận hoặc chưa sẵn sàng.", 36},
    {"UserNoGroup", texts::kUserNoGroup, L"B\u00B9n ch\u00ADa ch\u00E4n b\u00E9 ph\u00CBn.",
     L"Bạn chưa chọn bộ phận.", 22},
    {"UserExists", texts::kUserExists,
     L"Ng\u00AD\u00EAi s\u00F6 d\u00F4ng \u00AE\u00B7 t\u00E5n t\u00B9i",
     L"Người sử dụng đã tồn tại", 24},
    {"UserBadPassword", texts::kUserBadPassword, L"M\u00CBt kh\u00C8u kh\u00ABng h\u00EEp l\u00D6",
     L"Mật khẩu không hợp lệ", 21},
    {"UserNotWritten", texts::kUserNotWritten,
     L"Kh\u00ABng ghi hay xo\u00B8 \u00AE\u00AD\u00EEc: t\u00AAn ho\u00C6c di\u00D4n "
     L"gi\u00B6i c\u00E3 d\u00CAu nh\u00B8y \u00AE\u00ACn (').",
     L"Không ghi hay xoá được: tên hoặc diễn giải có dấu nháy đơn (').", 63},
    {"GroupCancelAdding", texts::kGroupCancelAdding, L"&Hu\u00FB th\u00AAm", L"&Huỷ thêm", 9},
    {"GroupAdd", texts::kGroupAdd, L"T&h\u00AAm", L"T&hêm", 5},
    {"GroupNotAdded", texts::kGroupNotAdded,
     L"Kh\u00ABng th\u00D3 th\u00AAm d\u00F7 li\u00D6u v\u00B5o b\u00B6ng",
     L"Không thể thêm dữ liệu vào bảng", 31},
    {"GroupNotWritten", texts::kGroupNotWritten,
     L"Kh\u00ABng th\u00D3 ghi d\u00F7 li\u00D6u v\u00B5o b\u00B6ng",
     L"Không thể ghi dữ liệu vào bảng", 30},
    {"GroupConfirmDelete", texts::kGroupConfirmDelete,
     L"B\u00B9n c\u00E3 ch\u00BEc ch\u00BEn xo\u00B8 c\u00B8c nh\u00E3m \u00AE\u00B7 "
     L"ch\u00E4n kh\u00ABng?",
     L"Bạn có chắc chắn xoá các nhóm đã chọn không?", 44},
    {"GroupsDeleted", texts::kGroupsDeleted, L" danh m\u00F4c \u00AE\u00B7 b\u00DE xo\u00B8",
     L" danh mục đã bị xoá", 19},
    {"PermissionGroupIs", texts::kPermissionGroupIs, L"T\u00AAn nh\u00E3m l\u00B5:",
     L"Tên nhóm là:", 12},
    {"ListSearch", texts::kListSearch, L"T\u00D7&m", L"Tì&m", 4},
    {"UserListName", texts::kUserListName, L"T\u00AAn", L"Tên", 3},
    {"UserListDescription", texts::kUserListDescription, L"Di\u00D4n gi\u00B6i", L"Diễn giải", 9},
    {"UserListCode", texts::kUserListCode, L"M\u00B7 s\u00E8", L"Mã số", 5},
    {"UserListNoDelete", texts::kUserListNoDelete,
     L"B\u00B9n kh\u00ABng th\u00D3 xo\u00B8 ng\u00AD\u00EAi s\u00F6 d\u00F4ng n\u00B5y "
     L"m\u00B5 ch\u00D8 c\u00E3 th\u00D3 \u00AE\u00E6i t\u00AAn.",
     L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.", 58},
    {"UserListConfirmDelete", texts::kUserListConfirmDelete,
     L"B\u00B9n ch\u00BEc ch\u00BEn xo\u00B8 ng\u00AD\u00EAi s\u00F6 d\u00F4ng n\u00B5y",
     L"Bạn chắc chắn xoá người sử dụng này", 35},
    {"UserListLastUser", texts::kUserListLastUser,
     L"B\u00B9n kh\u00ABng th\u00D3 xo\u00B8 ng\u00AD\u00EAi s\u00F6 d\u00F4ng c\u00DFn "
     L"l\u00B9i cu\u00E8i c\u00EFng c\u00F1a ch\u00AD\u00ACng tr\u00D7nh",
     L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình", 66},
    {"UserEditorTitle", texts::kUserEditorTitle,
     L"Th\u00ABng tin ng\u00AD\u00EAi s\u00F6 d\u00F4ng", L"Thông tin người sử dụng", 23},
    {"UserEditorName", texts::kUserEditorName, L"&T\u00AAn ng\u00AD\u00EAi s\u00F6 d\u00F4ng",
     L"&Tên người sử dụng", 18},
    {"UserEditorDescription", texts::kUserEditorDescription, L"&Di\u00D4n gi\u00B6i", L"&Diễn giải",
     10},
    {"UserEditorGroup", texts::kUserEditorGroup, L"&B\u00E9 ph\u00CBn", L"&Bộ phận", 8},
    {"UserEditorPassword", texts::kUserEditorPassword, L"&M\u00CBt kh\u00C8u", L"&Mật khẩu", 9},
    {"UserEditorConfirm", texts::kUserEditorConfirm, L"&Nh\u00CBp l\u00B9i m\u00CBt kh\u00C8u",
     L"&Nhập lại mật khẩu", 18},
    {"UserEditorOk", texts::kUserEditorOk, L"\u00A7\u00E5n&g \u00FD", L"Đồn&g ý", 7},
    {"UserEditorCancel", texts::kUserEditorCancel, L"B\u00E1 &qua", L"Bỏ &qua", 7},
    {"GroupManagerTitle", texts::kGroupManagerTitle, L"Nh\u00E3m ng\u00AD\u00EAi s\u00F6 d\u00F4ng",
     L"Nhóm người sử dụng", 18},
    {"GroupManagerGroups", texts::kGroupManagerGroups, L"Danh &s\u00B8ch nh\u00E3m",
     L"Danh &sách nhóm", 15},
    {"GroupManagerDetail", texts::kGroupManagerDetail, L"Chi ti\u00D5t", L"Chi tiết", 8},
    {"GroupManagerName", texts::kGroupManagerName, L"&T\u00AAn nh\u00E3m", L"&Tên nhóm", 9},
    {"GroupManagerDescription", texts::kGroupManagerDescription, L"&Di\u00D4n gi\u00B6i",
     L"&Diễn giải", 10},
    {"GroupManagerUsers", texts::kGroupManagerUsers,
     L"&Ng\u00AD\u00EAi s\u00F6 d\u00F4ng trong nh\u00E3m", L"&Người sử dụng trong nhóm", 25},
    {"GroupManagerWrite", texts::kGroupManagerWrite, L"&Ghi", L"&Ghi", 4},
    {"GroupManagerDelete", texts::kGroupManagerDelete, L"&Xo\u00B8", L"&Xoá", 4},
    {"GroupManagerRights", texts::kGroupManagerRights, L"&Quy\u00D2n...", L"&Quyền...", 9},
    {"GroupManagerExit", texts::kGroupManagerExit, L"Th&o\u00B8t", L"Th&oát", 6},
    {"PermissionFormTitle", texts::kPermissionFormTitle, L"Ph\u00A9n quy\u00D2n", L"Phân quyền",
     10},
    {"PermissionBars", texts::kPermissionBars, L"&Th\u00F9c \u00AE\u00ACn", L"&Thực đơn", 9},
    {"PermissionCommands", texts::kPermissionCommands,
     L"&Ch\u00F8c n\u00A8ng \u00AE\u00AD\u00EEc ph\u00D0p", L"&Chức năng được phép", 20},
    {"PermissionOk", texts::kPermissionOk, L"\u00A7\u00E5n&g \u00FD", L"Đồn&g ý", 7},
    {"PermissionCancel", texts::kPermissionCancel, L"B\u00E1 &qua", L"Bỏ &qua", 7},
    {"UserListTitle", texts::kUserListTitle, L"Danh s\u00B8ch ng\u00AD\u00EAi s\u00F6 d\u00F4ng",
     L"Danh sách người sử dụng", 23},
    {"UserListAdd", texts::kUserListAdd, L"T&h\u00AAm...", L"T&hêm...", 8},
    {"UserListEdit", texts::kUserListEdit, L"&S\u00F6a...", L"&Sửa...", 7},
    {"UserListDelete", texts::kUserListDelete, L"&Xo\u00B8", L"&Xoá", 4},
    {"UserListExit", texts::kUserListExit, L"Th&o\u00B8t", L"Th&oát", 6},
    {"FindAnd", texts::kFindAnd, L"v\u00B5", L"và", 2},
    {"FindOr", texts::kFindOr, L"ho\u00C6c", L"hoặc", 4},
    {"FindCueDate", texts::kFindCueDate, L"ng\u00B5y/th\u00B8ng/n\u00A8m", L"ngày/tháng/năm", 14},
    {"FindCueRelation", texts::kFindCueRelation, L"F2: ch\u00E4n t\u00F5 danh m\u00F4c",
     L"F2: chọn từ danh mục", 20},
    {"FindHelpTitle", texts::kFindHelpTitle, L"H\u00AD\u00EDng d\u00C9n t\u00D7m ki\u00D5m",
     L"Hướng dẫn tìm kiếm", 18},
    {"FindHelpText", texts::kFindHelpText,
     L"M\u00E7i d\u00DFng l\u00B5 m\u00E9t \u00AEi\u00D2u ki\u00D6n: ch\u00E4n "
     L"th\u00ABng tin, c\u00B8ch so s\u00B8nh r\u00E5i nh\u00CBp gi\u00B8 tr\u00DE.\n"
     L"D\u00DFng d\u00AD\u00EDi d\u00EFng \u00AE\u00AD\u00EEc khi d\u00DFng tr\u00AAn "
     L"\u00AE\u00B7 \u00AE\u00F1 v\u00B5 \u00AE\u00F3ng; \"v\u00B5\", \"ho\u00C6c\" "
     L"n\u00E8i n\u00E3 v\u00EDi d\u00DFng tr\u00AAn.\n"
     L"\n"
     L"- Ng\u00B5y nh\u00CBp theo th\u00F8 t\u00F9 ng\u00B5y/th\u00B8ng/n\u00A8m, "
     L"v\u00DD d\u00F4 31/12/2004.\n"
     L"- Danh s\u00B8ch gi\u00B8 tr\u00DE c\u00B8ch nhau b\u00BBng d\u00CAu ph\u00C8y, "
     L"kh\u00ABng c\u00E3 d\u00CAu c\u00B8ch, v\u00DD d\u00F4 HN,HP.\n"
     L"- \u00A4 gi\u00B8 tr\u00DE c\u00F1a m\u00E9t s\u00E8 th\u00ABng tin c\u00E3 danh "
     L"m\u00F4c: b\u00CAm F2 \u00AE\u00D3 ch\u00E4n.\n"
     L"- Enter ho\u00C6c Tab sang \u00AB k\u00D5 ti\u00D5p, Delete b\u00E1 ch\u00E4n, "
     L"Esc b\u00E1 qua.",
     L"Mỗi dòng là một điều kiện: chọn thông tin, cách so sánh rồi nhập giá trị.\n"
     L"Dòng dưới dùng được khi dòng trên đã đủ và đúng; \"và\", \"hoặc\" nối nó với dòng "
     L"trên.\n"
     L"\n"
     L"- Ngày nhập theo thứ tự ngày/tháng/năm, ví dụ 31/12/2004.\n"
     L"- Danh sách giá trị cách nhau bằng dấu phẩy, không có dấu cách, ví dụ HN,HP.\n"
     L"- Ô giá trị của một số thông tin có danh mục: bấm F2 để chọn.\n"
     L"- Enter hoặc Tab sang ô kế tiếp, Delete bỏ chọn, Esc bỏ qua.",
     416},
    {"PickerTitle", texts::kPickerTitle, L"Ch\u00E4n t\u00F5 danh m\u00F4c", L"Chọn từ danh mục",
     16},
    {"PickerDetail", texts::kPickerDetail, L"Danh m\u00F4c", L"Danh mục", 8},
    {"PickerSearch", texts::kPickerSearch, L"&T\u00D7m t\u00AAn", L"&Tìm tên", 8},
    {"PickerCode", texts::kPickerCode, L"M\u00B7 s\u00E8: ", L"Mã số: ", 7},
    {"NothingFound", texts::kNothingFound,
     L"Kh\u00ABng c\u00E3 m\u00F4c n\u00B5o ph\u00EF h\u00EEp", L"Không có mục nào phù hợp", 24},
    {"PickerChoose", texts::kPickerChoose, L"&Ch\u00E4n", L"&Chọn", 5},
    {"PickerQuit", texts::kPickerQuit, L"B\u00E1 &qua", L"Bỏ &qua", 7},
    {"SelectNotOpened", texts::kSelectNotOpened,
     L"M\u00B7 danh m\u00F4c kh\u00ABng m\u00EB \u00AE\u00AD\u00EEc. L\u00E7i l\u00B5:",
     L"Mã danh mục không mở được. Lỗi là:", 34},
    {"SelectCode", texts::kSelectCode, L"M\u00B7 s\u00E8 ", L"Mã số ", 6},
    {"SelectNotFound", texts::kSelectNotFound, L" kh\u00ABng t\u00E5n t\u00B9i", L" không tồn tại",
     14},
    {"FindTitle", texts::kFindTitle, L"T\u00D7m ki\u00D5m", L"Tìm kiếm", 8},
    {"FindFirst", texts::kFindFirst, L"T\u00D7m khi", L"Tìm khi", 7},
    {"FindField", texts::kFindField, L"&Th\u00ABng tin", L"&Thông tin", 10},
    {"FindOperator", texts::kFindOperator, L"&So s\u00B8nh", L"&So sánh", 8},
    {"FindValue", texts::kFindValue, L"G&i\u00B8 tr\u00DE", L"G&iá trị", 8},
    {"FindResult", texts::kFindResult, L"\u00A7i\u00D2u &ki\u00D6n t\u00D7m ki\u00D5m",
     L"Điều &kiện tìm kiếm", 19},
    {"FindOk", texts::kFindOk, L"\u00A7\u00E5n&g \u00FD", L"Đồn&g ý", 7},
    {"FindCancel", texts::kFindCancel, L"B\u00E1 &qua", L"Bỏ &qua", 7},
    {"FindHelp", texts::kFindHelp, L"&H\u00AD\u00EDng d\u00C9n", L"&Hướng dẫn", 10},
    {"SelectNotice", texts::kSelectNotice, L"Th\u00ABng b\u00B8o", L"Thông báo", 9},
    {"ShowPassword", texts::kShowPassword, L"Hi\u00D6n m\u00CBt kh\u00C8u", L"Hiện mật khẩu", 13},
    {"InputMethodIsOn", texts::kInputMethodIsOn,
     L"B\u00E9 g\u00E2 ti\u00D5ng Vi\u00D6t \u00AEang b\u00CBt. H\u00B7y t\u00BEt r\u00E5i "
     L"g\u00E2 l\u00B9i m\u00CBt kh\u00C8u.",
     L"Bộ gõ tiếng Việt đang bật. Hãy tắt rồi gõ lại mật khẩu.", 55},
    {"CapsLockIsOn", texts::kCapsLockIsOn, L"Ph\u00DDm Caps Lock \u00AEang b\u00CBt",
     L"Phím Caps Lock đang bật", 23},
    {"LogonLockedUntil", texts::kLogonLockedUntil,
     L"T\u00B5i kho\u00B6n b\u00DE kho\u00B8 \u00AE\u00D5n ", L"Tài khoản bị khoá đến ", 22},
    {"LogonLockedBecause", texts::kLogonLockedBecause,
     L" do nh\u00CBp sai m\u00CBt kh\u00C8u nhi\u00D2u l\u00C7n.",
     L" do nhập sai mật khẩu nhiều lần.", 32},
    {"LogonTriesLeft", texts::kLogonTriesLeft, L"C\u00DFn ", L"Còn ", 4},
    {"LogonTries", texts::kLogonTries, L" l\u00C7n th\u00F6.", L" lần thử.", 9},
    {"UserEditorCurrent", texts::kUserEditorCurrent, L"M\u00CBt kh\u00C8u &hi\u00D6n t\u00B9i",
     L"Mật khẩu &hiện tại", 18},
    {"UserEditorNewPassword", texts::kUserEditorNewPassword, L"&M\u00CBt kh\u00C8u m\u00EDi",
     L"&Mật khẩu mới", 13},
    {"UserEditorMustChange", texts::kUserEditorMustChange,
     L"&Ph\u00B6i \u00AE\u00E6i khi \u00AE\u00A8ng nh\u00CBp l\u00C7n t\u00EDi",
     L"&Phải đổi khi đăng nhập lần tới", 31},
    {"UserWrongPassword", texts::kUserWrongPassword,
     L"M\u00CBt kh\u00C8u hi\u00D6n t\u00B9i kh\u00ABng \u00AE\u00F3ng.",
     L"Mật khẩu hiện tại không đúng.", 29},
    {"UserPasswordsDiffer", texts::kUserPasswordsDiffer,
     L"Hai l\u00C7n nh\u00CBp m\u00CBt kh\u00C8u kh\u00ABng gi\u00E8ng nhau.",
     L"Hai lần nhập mật khẩu không giống nhau.", 39},
    {"UserPasswordMissing", texts::kUserPasswordMissing,
     L"B\u00B9n ch\u00ADa nh\u00CBp m\u00CBt kh\u00C8u m\u00EDi.", L"Bạn chưa nhập mật khẩu mới.",
     27},
    {"UserMustChange", texts::kUserMustChange,
     L"B\u00B9n ph\u00B6i \u00AE\u00E6i m\u00CBt kh\u00C8u tr\u00AD\u00EDc khi d\u00EFng "
     L"ch\u00AD\u00ACng tr\u00D7nh.",
     L"Bạn phải đổi mật khẩu trước khi dùng chương trình.", 50},
    {"PermissionChanged", texts::kPermissionChanged,
     L"Quy\u00D2n c\u00F1a nh\u00E3m n\u00B5y \u00AE\u00B7 \u00AE\u00AD\u00EEc s\u00F6a \u00EB "
     L"m\u00B8y kh\u00B8c. B\u00B9n c\u00E3 ch\u00BEc ch\u00BEn ghi \u00AE\u00CC kh\u00ABng?",
     L"Quyền của nhóm này đã được sửa ở máy khác. Bạn có chắc chắn ghi đè không?", 73},
    {"UserListState", texts::kUserListState, L"T\u00D7nh tr\u00B9ng", L"Tình trạng", 10},
    {"UserListUnlock", texts::kUserListUnlock, L"M\u00EB &kho\u00B8", L"Mở &khoá", 8},
    {"UserListLockedUntil", texts::kUserListLockedUntil, L"B\u00DE kho\u00B8 \u00AE\u00D5n ",
     L"Bị khoá đến ", 12},
};

class FixedTexts : public testing::TestWithParam<FixedText> {};

} // namespace

TEST_P(FixedTexts, IsStoredInTheseUnits) {
    EXPECT_EQ(std::wstring(GetParam().stored), GetParam().units);
}

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
