// SPDX-License-Identifier: MIT
#include "ui/menus/menu_host.h"

#include <cwchar>

#include "support/new_object.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kClass[] = L"VnDeskMenuHost";
constexpr wchar_t kAnsiClass[] = L"VnDeskAnsiMenuHost";

void Append(HMENU menu, UINT type, UINT id, const wchar_t* text, UINT state = 0,
            HMENU submenu = nullptr) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_STRING | MIIM_DATA;
    info.fType = type;
    info.fState = state;
    info.wID = id;
    info.dwItemData = 7000 + id;
    info.dwTypeData = const_cast<wchar_t*>(text);
    if (submenu) {
        info.fMask |= MIIM_SUBMENU;
        info.hSubMenu = submenu;
    }
    InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info);
}

HMENU MakeBar() {
    const HMENU recent = CreatePopupMenu();
    Append(recent, MFT_STRING, kBook, L"&1 Sổ cái | 2005");
    Append(recent, MFT_STRING, kBook + 1, L"&2 Sổ quỹ");
    const HMENU file = CreatePopupMenu();
    Append(file, MFT_STRING, kOpen, L"&Mở…\tCtrl+O|Mở một hồ sơ có sẵn|1", MFS_DEFAULT);
    Append(file, MFT_STRING, kSave, L"&Lưu\tCtrl+Shift+S|Ghi hồ sơ vào đĩa|2");
    Append(file, MFT_STRING, kPrint, L"&In…\tCtrl+P|In hồ sơ ra giấy|3", MFS_GRAYED);
    Append(file, MFT_SEPARATOR, 0, L"");
    Append(file, MFT_STRING, 90, L"Gần đâ&y|Hồ sơ mở lần trước", 0, recent);
    Append(file, MFT_STRING, 91, L"-Hiển thị");
    Append(file, MFT_STRING, kTools, L"Thanh &công cụ|Hiện hay ẩn thanh công cụ|4", MFS_CHECKED);
    Append(file, MFT_STRING, kGrid, L"&Đường kẻ||+", MFS_CHECKED);
    Append(file, MFT_STRING, kSquares, L"Ô &vuông||+");
    Append(file, MFT_STRING | MFT_RADIOCHECK, kSmall, L"Chữ &nhỏ||*");
    Append(file, MFT_STRING | MFT_RADIOCHECK, kLarge, L"Chữ lớ&n||*", MFS_CHECKED);
    Append(file, MFT_SEPARATOR, 0, L"");
    Append(file, MFT_STRING, kExit, L"T&hoát\tAlt+F4|Kết thúc chương trình");
    const HMENU help = CreatePopupMenu();
    Append(help, MFT_STRING, kAbout, L"&Giới thiệu|Về chương trình");
    const HMENU bar = CreateMenu();
    Append(bar, MFT_STRING, 80, L"&Tệp|Việc với hồ sơ", 0, file);
    Append(bar, MFT_STRING, 81, L"T&rợ giúp|Hướng dẫn", 0, help);
    Append(bar, MFT_STRING, kExit, L"&Ra|Kết thúc");
    return bar;
}

void DescribeInto(MenuLines& lines, HMENU menu, const std::wstring& path) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const auto position = static_cast<UINT>(i);
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STATE | MIIM_ID | MIIM_SUBMENU;
        GetMenuItemInfoW(menu, position, TRUE, &info);
        const std::wstring place = path + L"/" + std::to_wstring(i);
        wchar_t numbers[96];
        // Which item is highlighted is the user's affair.
        std::swprintf(numbers, 96, L" %x %x %u %llu ", TypeOf(menu, position),
                      info.fState & ~static_cast<UINT>(MFS_HILITE), info.wID,
                      static_cast<unsigned long long>(DataOf(menu, position)));
        lines.push_back(place + numbers + CaptionOf(menu, position));
        if (info.hSubMenu)
            DescribeInto(lines, info.hSubMenu, place);
    }
}

} // namespace

UINT TypeOf(HMENU menu, UINT position) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE;
    EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
    return info.fType;
}

ULONG_PTR DataOf(HMENU menu, UINT position) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
    return info.dwItemData;
}

std::wstring CaptionOf(HMENU menu, UINT position) {
    wchar_t text[256] = L"";
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = text;
    info.cch = 256;
    return GetMenuItemInfoW(menu, position, TRUE, &info) ? text : L"(unreadable)";
}

MenuLines Describe(HMENU menu) {
    MenuLines lines;
    DescribeInto(lines, menu, L"");
    return lines;
}

// --- the window ---

int ToScreen(int pixels) {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return MulDiv(pixels, dpi, 96);
}

MenuHost::MenuHost(Kind kind, DWORD exStyle) {
    const HINSTANCE module = GetModuleHandleW(nullptr);
    const bool ansi = kind == Kind::Ansi;
    if (ansi) {
        WNDCLASSA type = {};
        type.lpfnWndProc = Procedure;
        type.hInstance = module;
        type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        type.lpszClassName = "VnDeskAnsiMenuHost";
        RegisterClassA(&type);
        window_ = CreateWindowExA(exStyle, type.lpszClassName, "Ke toan", WS_OVERLAPPEDWINDOW, 60,
                                  60, 520, 420, nullptr, MakeBar(), module, this);
    } else {
        WNDCLASSW type = {};
        type.lpfnWndProc = Procedure;
        type.hInstance = module;
        type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        type.lpszClassName = kClass;
        RegisterClassW(&type);
        window_ = CreateWindowExW(exStyle, kClass, L"Kế toán", WS_OVERLAPPEDWINDOW, 60, 60,
                                  ToScreen(520), ToScreen(420), nullptr, MakeBar(), module, this);
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MenuHost::~MenuHost() {
    if (IsWindow(window_)) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
    UnregisterClassW(kAnsiClass, GetModuleHandleW(nullptr));
}

LONG_PTR MenuHost::Procedure() const {
    return IsWindowUnicode(window_) ? GetWindowLongPtrW(window_, GWLP_WNDPROC)
                                    : GetWindowLongPtrA(window_, GWLP_WNDPROC);
}

void MenuHost::Show() {
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
    SetFocus(window_);
    UpdateWindow(window_);
    PumpUntil([this] { return GetForegroundWindow() == window_; });
}

int MenuHost::Seen(UINT message) {
    const std::lock_guard guard(lock_);
    return seen_[message];
}

std::vector<UINT> MenuHost::Commands() {
    const std::lock_guard guard(lock_);
    return commands_;
}

LRESULT CALLBACK MenuHost::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* host = reinterpret_cast<MenuHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host) {
        {
            const std::lock_guard guard(host->lock_);
            ++host->seen_[message];
            if (message == WM_COMMAND)
                host->commands_.push_back(LOWORD(wParam));
        }
        if (host->onMessage)
            host->onMessage(message, wParam, lParam);
    }
    return IsWindowUnicode(window) ? DefWindowProcW(window, message, wParam, lParam)
                                   : DefWindowProcA(window, message, wParam, lParam);
}

// --- pictures ---

namespace {

constexpr COLORREF kTransparent = RGB(255, 0, 255);

void Block(HDC dc, int left, int top, int right, int bottom, COLORREF color) {
    const RECT box = {left, top, right, bottom};
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &box, brush);
    DeleteObject(brush);
}

void DrawFour(HDC dc) {
    Block(dc, 0, 0, 64, 16, kTransparent);
    // A folder.
    Block(dc, 1, 3, 7, 6, RGB(214, 158, 46));
    Block(dc, 1, 5, 15, 14, RGB(236, 190, 84));
    Block(dc, 1, 13, 15, 14, RGB(190, 136, 30));
    // A disk.
    Block(dc, 17, 1, 31, 15, RGB(38, 84, 160));
    Block(dc, 20, 1, 28, 6, RGB(225, 230, 240));
    Block(dc, 25, 2, 27, 5, RGB(38, 84, 160));
    Block(dc, 19, 9, 29, 15, RGB(225, 230, 240));
    // A printer.
    Block(dc, 36, 1, 44, 6, RGB(250, 250, 250));
    Block(dc, 33, 6, 47, 12, RGB(120, 130, 140));
    Block(dc, 36, 10, 44, 15, RGB(250, 250, 250));
    Block(dc, 44, 7, 46, 9, RGB(60, 190, 90));
    // A tool.
    Block(dc, 54, 6, 58, 15, RGB(150, 90, 40));
    Block(dc, 51, 2, 61, 7, RGB(90, 100, 110));
}

} // namespace

Pictures::Pictures() : list_(ImageList_Create(16, 16, ILC_COLOR24 | ILC_MASK, 4, 0)) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 64, 16);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    DrawFour(dc);
    SelectObject(dc, before);
    ImageList_AddMasked(list_, bitmap, kTransparent);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

_variant_t Pictures::Handle() const {
    _variant_t handle;
    if (sizeof(void*) == 8) {
        V_VT(&handle) = VT_I8;
        V_I8(&handle) = reinterpret_cast<LONG_PTR>(list_);
    } else {
        V_VT(&handle) = VT_I4;
        V_I4(&handle) = static_cast<LONG>(reinterpret_cast<LONG_PTR>(list_));
    }
    return handle;
}

// --- the library ---

Microsoft::WRL::ComPtr<ICoolMenu> CreateCoolMenu() {
    return NewObject<ICoolMenu>(L"VnDesk.clsCoolMenu");
}

InstalledMenu::InstalledMenu(const MenuHost& host, const _variant_t& help, const _variant_t& images)
    : menu_(CreateCoolMenu()), window_(host.Handle()) {
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_SUCCEEDED(menu_->Install(window_, help, images, &done));
    EXPECT_EQ(VARIANT_TRUE, done);
}

InstalledMenu::~InstalledMenu() {
    Uninstall();
}

void InstalledMenu::Uninstall() {
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_SUCCEEDED(menu_->Uninstall(window_, &done));
    EXPECT_EQ(VARIANT_TRUE, done);
}

} // namespace vndesk::test
