// SPDX-License-Identifier: MIT
#include "main_window.h"

#include <commctrl.h>

#include "commands.h"
#include "drawn_menus.h"
#include "list_view.h"
#include "output.h"

namespace {

constexpr wchar_t kClass[] = L"VnTourWindow";
constexpr wchar_t kTitle[] = L"Quản lý bán hàng – chương trình mẫu VnDesk";
constexpr wchar_t kNobody[] = L"Chưa đăng nhập";
constexpr int kWidth = 760, kHeight = 520; // at 96 dots per inch
constexpr int kStatusBar = 1;

struct Window {
    Tour& tour;
    HWND statusBar = nullptr;
    HWND list = nullptr; // hidden until there is something to show
    long listOf = 0;     // the user for whom it was read
    HFONT heading = nullptr;
    std::wstring enabled = {}; // as last printed
    DrawnMenus menus = {};
};

Window& Data(HWND window) {
    return *reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

int ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

std::wstring Greeting(const Tour& tour) {
    return tour.IsLoggedOn() ? L"Xin chào, " + tour.UserName() : kNobody;
}

std::wstring StatusText(const Tour& tour) {
    if (!tour.IsLoggedOn())
        return kNobody;
    return L"Người sử dụng: " + tour.UserName() + L" (mã " + std::to_wstring(tour.UserCode()) +
           L")";
}

void ShowStatus(const Window& data, const std::wstring& text) {
    SetWindowTextW(data.statusBar, text.c_str());
}

void ShowState(HWND window, const Tour& tour) {
    Window& data = Data(window);
    EnableCommands(GetMenu(window), tour);
    const std::wstring enabled = EnabledCommands(tour);
    if (enabled != data.enabled)
        PrintLine(L"Enabled=" + enabled);
    data.enabled = enabled;
    if (data.listOf != tour.UserCode()) {
        ShowWindow(data.list, SW_HIDE);
        SetWindowTextW(window, kTitle);
    }
    ShowStatus(data, StatusText(tour));
    InvalidateRect(window, nullptr, TRUE);
}

void ShowList(HWND window, const List& list, const std::vector<Row>& rows) {
    Window& data = Data(window);
    FillListView(data.list, list, rows, ScreenDpi());
    data.listOf = data.tour.UserCode();
    SetWindowTextW(window, (std::wstring(list.title) + L" – " + kTitle).c_str());
    ShowWindow(data.list, SW_SHOW);
    SetFocus(data.list);
}

void Create(HWND window, Tour& tour) {
    auto* data = new Window{tour};
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(data));
    tour.Attach(window, {ShowState, ShowList});
    data->statusBar = CreateStatusWindowW(WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP,
                                          StatusText(tour).c_str(), window, kStatusBar);
    data->list = CreateListView(window);
    data->heading = CreateFontW(-MulDiv(18, ScreenDpi(), 72), 0, 0, 0, FW_NORMAL, 0, 0, 0,
                                DEFAULT_CHARSET, 0, 0, CLEARTYPE_QUALITY, 0, L"Arial");
}

void Destroy(HWND window) {
    Window* data = &Data(window);
    data->menus.Uninstall();
    DeleteObject(data->heading);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    delete data;
    PostQuitMessage(0);
}

// The room above the status bar.
RECT Middle(HWND window) {
    RECT area, bar;
    GetClientRect(window, &area);
    GetWindowRect(Data(window).statusBar, &bar);
    area.bottom -= bar.bottom - bar.top;
    return area;
}

void Paint(HWND window) {
    const Window& data = Data(window);
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT area = Middle(window);
    const HGDIOBJ oldFont = SelectObject(dc, data.heading);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(data.tour.IsLoggedOn() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    DrawTextW(dc, Greeting(data.tour).c_str(), -1, &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, oldFont);
    EndPaint(window, &paint);
}

void Resize(HWND window) {
    const Window& data = Data(window);
    SendMessageW(data.statusBar, WM_SIZE, 0, 0);
    const RECT area = Middle(window);
    MoveWindow(data.list, 0, 0, area.right, area.bottom, TRUE);
    InvalidateRect(window, nullptr, TRUE);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        Create(window,
               *static_cast<Tour*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
        return 0;
    case WM_COMMAND:
        if (RunCommand(Data(window).tour, LOWORD(wParam)))
            return 0;
        break;
    case WM_EXITMENULOOP: // the help text of the last command goes
        ShowStatus(Data(window), StatusText(Data(window).tour));
        return 0;
    case WM_SIZE:
        Resize(window);
        return 0;
    case WM_SETFOCUS:
        if (IsWindowVisible(Data(window).list))
            SetFocus(Data(window).list);
        return 0;
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_DESTROY:
        Destroy(window);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterMainClass(HINSTANCE program) {
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.lpfnWndProc = Procedure;
    description.hInstance = program;
    description.hIcon = LoadIconW(program, MAKEINTRESOURCEW(1));
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    description.lpszClassName = kClass;
    RegisterClassExW(&description);
}

} // namespace

HWND CreateMainWindow(Tour& tour) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    RegisterMainClass(program);
    const int dpi = ScreenDpi();
    const int width = MulDiv(kWidth, dpi, 96), height = MulDiv(kHeight, dpi, 96);
    const HWND window = CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                                        (GetSystemMetrics(SM_CXSCREEN) - width) / 2,
                                        (GetSystemMetrics(SM_CYSCREEN) - height) / 2, width, height,
                                        nullptr, CreateCommandMenu(), program, &tour);
    Window& data = Data(window);
    data.menus.Install(window, [&data](const std::wstring& help) { ShowStatus(data, help); });
    ShowState(window, tour);
    return window;
}
