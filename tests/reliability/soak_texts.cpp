// SPDX-License-Identifier: MIT
#include "reliability/soak_texts.h"

#include <algorithm>
#include <iterator>

namespace vndesk::test {
namespace {

constexpr const wchar_t* kMessages[] = {
    // The library's.
    L"Mật khẩu hoặc người sử dụng không hợp lệ ",
    L"Bạn chưa chọn bộ phận.",
    L"Người sử dụng đã tồn tại",
    L"Mật khẩu không hợp lệ",
    L"Không thể thêm dữ liệu vào bảng",
    L"Không thể ghi dữ liệu vào bảng",
    L"Bạn có chắc chắn xoá các nhóm đã chọn không?",
    L"Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.",
    L"Bạn chắc chắn xoá người sử dụng này",
    L"Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình",
    // The tour's.
    L"Chương trình mẫu không có phần này.",
    L"Không tìm thấy dòng nào.",
    L"Đã sao lưu dữ liệu.",
    L"Chỉ sao lưu được dữ liệu trong tệp.",
};

// What such a message has in it, beside a number or a longer text.
constexpr const wchar_t* kPartsOfMessages[] = {
    L" danh mục đã bị xoá", // groups
    L"Chương trình mẫu của VnDesk.",
    L"Mỗi dòng là một điều kiện", // the help of the search
};

// F10 in the search names the control that has the keyboard.
constexpr const wchar_t* kNamesOfControls[] = {L"CmbFld",    L"CmbPredicate", L"MskValue",
                                               L"cmbLg",     L"TxtResult",    L"CmdOk",
                                               L"CmdCancel", L"CmdHelp"};

// An apostrophe in a name, or a parenthesis in a condition, makes a statement that the provider
// refuses; so does a value that is none of its column's type.
constexpr const wchar_t* kPartsOfErrors[] = {L"syntax error", L"unrecognized token",
                                             L"unterminated quoted string", L"invalid input syntax",
                                             L"no such column", L"column \"",
                                             // A code in the receipt.
                                             L" không tồn tại",
                                             // The system menu of Wine's windows tells about Wine
                                             // and its licence.
                                             L"Running on wine", L"Wine is free software"};

bool HasOne(const std::wstring& text, const auto& parts) {
    return std::any_of(std::begin(parts), std::end(parts),
                       [&](const wchar_t* part) { return text.find(part) != std::wstring::npos; });
}

} // namespace

bool IsKnownMessage(const std::wstring& text) {
    return std::find(std::begin(kMessages), std::end(kMessages), text) != std::end(kMessages) ||
           HasOne(text, kPartsOfMessages);
}

bool IsKnownError(const std::wstring& text) {
    return std::find(std::begin(kNamesOfControls), std::end(kNamesOfControls), text) !=
               std::end(kNamesOfControls) ||
           HasOne(text, kPartsOfErrors);
}

} // namespace vndesk::test
