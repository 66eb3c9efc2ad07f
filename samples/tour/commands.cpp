// SPDX-License-Identifier: MIT
#include "commands.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

// The bars and commands for which rights can be given are those of the tables Menu and SubMenu.
constexpr wchar_t kSystem[] = L"&Hệ thống";
constexpr wchar_t kCatalogues[] = L"&Danh mục";
constexpr wchar_t kReports[] = L"&Báo cáo";
constexpr wchar_t kSearch[] = L"Tìm &kiếm";
constexpr wchar_t kVouchers[] = L"&Chứng từ";
constexpr wchar_t kHelp[] = L"&Trợ giúp";

constexpr Command kCommands[] = {
    {101, kSystem, L"Đăng &nhập…\tCtrl+L", L"Đăng nhập bằng tên và mật khẩu", FCONTROL, 'L', 0,
     &Tour::LogOn},
    {102, kSystem, L"Đổi &mật khẩu…\tCtrl+M", L"Đổi mật khẩu của người đang đăng nhập", FCONTROL,
     'M', 1, &Tour::ChangePassword},
    {103, kSystem, L"N&gười sử dụng…\tCtrl+U", L"Thêm, sửa, xoá người sử dụng", FCONTROL, 'U', 2,
     &Tour::ManageUsers},
    {104, kSystem, L"Nhóm người &sử dụng…\tCtrl+G", L"Nhóm người sử dụng và quyền của nhóm",
     FCONTROL, 'G', 3, &Tour::ManageGroups},
    {105, kSystem, L"Sao &lưu dữ liệu", L"Chép tệp dữ liệu sang tệp dự phòng", 0, 0, 4,
     &Tour::BackUp},
    {106, kSystem, L"T&hoát\tAlt+F4", L"Kết thúc chương trình", 0, 0, 0, &Tour::Quit},
    {201, kCatalogues, L"&Khách hàng", L"Danh sách khách hàng", 0, 0, 5, &Tour::Show<kCustomers>},
    {202, kCatalogues, L"Nhà &cung cấp", L"Danh sách nhà cung cấp", 0, 0, 6, &Tour::NotInTheSample},
    {203, kCatalogues, L"&Hàng hoá", L"Danh sách hàng hoá", 0, 0, 7, &Tour::Show<kGoods>},
    {204, kCatalogues, L"&Nhóm hàng", L"Danh sách nhóm hàng", 0, 0, 8, &Tour::Show<kKindsOfGoods>},
    {205, kCatalogues, L"Tài kh&oản", L"Hệ thống tài khoản", 0, 0, 9, &Tour::NotInTheSample},
    {206, kCatalogues, L"&Tỉnh thành", L"Danh sách tỉnh, thành phố", 0, 0, 10,
     &Tour::Show<kProvinces>},
    {301, kReports, L"&Tồn kho", L"Hàng còn trong kho", 0, 0, 11, &Tour::Show<kStock>},
    {302, kReports, L"&Nhập xuất tồn", L"Hàng nhập, xuất và tồn trong kỳ", 0, 0, 12,
     &Tour::NotInTheSample},
    {303, kReports, L"&Doanh thu", L"Doanh thu trong kỳ", 0, 0, 13, &Tour::NotInTheSample},
    {304, kReports, L"&Công nợ phải thu", L"Khách hàng còn nợ", 0, 0, 14,
     &Tour::Show<kReceivables>},
    {305, kReports, L"Công nợ &phải trả", L"Nợ nhà cung cấp", 0, 0, 15, &Tour::NotInTheSample},
    // Whoever may see a list may search it, and take what its customers pay.
    {501, kSearch, L"Tìm &khách hàng…\tCtrl+F", L"Tìm khách hàng theo điều kiện", FCONTROL, 'F', 5,
     &Tour::Find<kFindCustomers>},
    {502, kSearch, L"Tìm &hàng hoá…\tCtrl+H", L"Tìm hàng hoá theo điều kiện", FCONTROL, 'H', 7,
     &Tour::Find<kFindGoods>},
    {601, kVouchers, L"Phiếu &thu…\tCtrl+T", L"Lập phiếu thu tiền của khách hàng", FCONTROL, 'T',
     14, &Tour::WriteReceipt},
    {401, kHelp, L"&Giới thiệu\tF1", L"Về chương trình này", 0, VK_F1, 0, &Tour::About},
};

bool MayRun(const Tour& tour, const Command& command) {
    return command.right == 0 || tour.RightsNow().Allows(command.right);
}

} // namespace

std::span<const Command> Commands() {
    return kCommands;
}

HMENU CreateCommandMenu() {
    const HMENU bar = CreateMenu();
    HMENU popup = nullptr;
    const wchar_t* menu = nullptr;
    for (const Command& command : Commands()) {
        if (command.menu != menu) {
            menu = command.menu;
            popup = CreatePopupMenu();
            AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), menu);
        }
        // The library takes the help text out of the caption.
        AppendMenuW(popup, MF_STRING, command.id,
                    (std::wstring(command.text) + L'|' + command.help).c_str());
    }
    return bar;
}

HACCEL CreateCommandKeys() {
    std::vector<ACCEL> keys;
    for (const Command& command : Commands())
        if (command.key)
            keys.push_back(
                {static_cast<BYTE>(FVIRTKEY | command.keyModifiers), command.key, command.id});
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

void EnableCommands(HMENU bar, const Tour& tour) {
    for (const Command& command : Commands())
        EnableMenuItem(bar, command.id,
                       MF_BYCOMMAND | (MayRun(tour, command) ? MF_ENABLED : MF_GRAYED));
}

std::wstring EnabledCommands(const Tour& tour) {
    std::wstring all;
    for (const Command& command : Commands()) {
        if (!MayRun(tour, command))
            continue;
        std::wstring text = command.text;
        text.resize(std::min(text.find(L'\t'), text.size()));
        std::erase(text, L'&');
        std::erase(text, L'…');
        all += (all.empty() ? L"" : L", ") + text;
    }
    return all;
}

bool RunCommand(Tour& tour, WORD id) {
    for (const Command& command : Commands())
        if (command.id == id) {
            // Asked again: a key or a message of another program does not go through the menu.
            if (MayRun(tour, command))
                (tour.*command.run)();
            return true;
        }
    return false;
}
