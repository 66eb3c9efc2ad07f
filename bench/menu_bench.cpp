// SPDX-License-Identifier: MIT
// One menu item measured and drawn by WM_MEASUREITEM and WM_DRAWITEM, beside the bare calls that
// measure and draw the same item into the same kind of device context.
#include "kit/benchmark.h"
#include "menus/hook/cool_menu.h"
#include "menus/hook/menu_events.h"
#include "menus/hook/menu_items.h"
#include "menus/state/menu_module.h"

#include <windows.h>
#include <commctrl.h>
#include <comutil.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using namespace vndesk;

constexpr int kWidth = 260;
constexpr int kHeight = 22;
constexpr wchar_t kText[] = L"&Mở hồ sơ…";
constexpr wchar_t kShortcut[] = L"Ctrl+O";

// What popups are drawn into: a bitmap of the screen's format.
class Canvas {
public:
    Canvas() {
        const HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, kWidth, kHeight);
        ReleaseDC(nullptr, screen);
        before_ = SelectObject(dc_, bitmap_);
    }
    ~Canvas() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    HDC Dc() const { return dc_; }

private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

// A window with one menu, whose items the library draws.
class Host {
public:
    explicit Host(const wchar_t* marks) : popup_(CreatePopupMenu()) {
        const HMENU bar = CreateMenu();
        AppendMenuW(popup_, MF_STRING, 101,
                    (std::wstring(kText) + L"\t" + kShortcut + L"|Mở một hồ sơ|" + marks).c_str());
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup_), L"&Tệp");
        window_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                  bar, GetModuleHandleW(nullptr), nullptr);
        images_ = ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1);
        const HICON icon = LoadIconW(nullptr, MAKEINTRESOURCEW(32516));
        ImageList_ReplaceIcon(images_, -1, icon);
        const _variant_t list(static_cast<long>(reinterpret_cast<LONG_PTR>(images_)));
        if (!InstallMenus(window_, nullptr, ImageSource(list)))
            throw std::runtime_error("the menus are not installed");
        OnInitMenuPopup(*FindCoolMenu(window_), popup_, 0, false);
    }
    ~Host() {
        UninstallMenus(window_);
        DestroyWindow(window_);
        ImageList_Destroy(images_);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    HWND Window() const { return window_; }
    HMENU Popup() const { return popup_; }
    HIMAGELIST Images() const { return images_; }

private:
    HMENU popup_;
    HWND window_;
    HIMAGELIST images_;
};

// The same item by hand: measured by its texts, drawn with system colours, the picture where asked.
void Bare(HDC dc, HFONT font, HIMAGELIST images, bool selected, bool measure) {
    const HGDIOBJ before = SelectObject(dc, font);
    RECT text{}, shortcut{};
    if (measure) {
        DrawTextW(dc, kText, -1, &text, DT_CALCRECT | DT_SINGLELINE);
        DrawTextW(dc, kShortcut, -1, &shortcut, DT_CALCRECT | DT_SINGLELINE);
        Keep(text);
        Keep(shortcut);
    } else {
        RECT item{0, 0, kWidth, kHeight};
        FillRect(dc, &item, GetSysColorBrush(COLOR_MENU));
        if (selected)
            FillRect(dc, &item, GetSysColorBrush(COLOR_HIGHLIGHT));
        if (images)
            ImageList_Draw(images, 0, dc, 2, 3, ILD_TRANSPARENT);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
        text = {24, 0, 180, kHeight};
        DrawTextW(dc, kText, -1, &text, DT_SINGLELINE | DT_VCENTER);
        shortcut = {196, 0, kWidth - 14, kHeight};
        DrawTextW(dc, kShortcut, -1, &shortcut, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    SelectObject(dc, before);
}

void Measure(Report& report, const char* name, const wchar_t* marks, bool picture, UINT state) {
    const Host host(marks);
    const Canvas canvas, other;
    const std::shared_ptr<WndCoolMenu> window = FindCoolMenu(host.Window());
    MenuItem item;
    ReadItem(host.Popup(), 0, item);
    const HFONT font = window->Fonts().item.get();
    const HIMAGELIST images = picture ? host.Images() : nullptr;
    const bool selected = (state & ODS_SELECTED) != 0;

    const auto measure = [&] {
        MEASUREITEMSTRUCT measured{};
        measured.CtlType = ODT_MENU;
        measured.itemID = 101;
        measured.itemData = item.data;
        if (!OnMeasureItem(*window, measured))
            throw std::runtime_error("the item is not measured");
        Keep(measured);
    };
    const auto draw = [&] {
        DRAWITEMSTRUCT drawn{};
        drawn.CtlType = ODT_MENU;
        drawn.itemID = 101;
        drawn.itemState = state;
        drawn.hwndItem = reinterpret_cast<HWND>(host.Popup());
        drawn.hDC = canvas.Dc();
        drawn.rcItem = {0, 0, kWidth, kHeight};
        drawn.itemData = item.data;
        if (!OnDrawItem(*window, drawn))
            throw std::runtime_error("the item is not drawn");
        SelectClipRgn(drawn.hDC, nullptr); // drawing has clipped the item out
    };
    report.Compare({std::string(name) + " measured", "DrawText on a device context at hand",
                    Target::Nothing, 2, Each(measure),
                    Each([&] { Bare(other.Dc(), font, images, selected, true); })});
    report.Compare({std::string(name) + " measured and drawn", "DrawText and FillRect",
                    Target::AtMost, 2, Each([&] {
                        measure();
                        draw();
                    }),
                    Each([&] {
                        Bare(other.Dc(), font, images, selected, true);
                        Bare(other.Dc(), font, images, selected, false);
                    })});
}

// A window's popup with 600 submenus of 20 items each: what the user waits for when it opens.
void MeasureLargeMenu(Report& report) {
    constexpr UINT kSubmenus = 600, kItems = 20;
    constexpr int kTimes = 9;
    constexpr double kMaxMilliseconds = 100;
    const Host host(L"");
    for (UINT i = 0; i < kSubmenus; ++i) {
        const HMENU submenu = CreatePopupMenu();
        for (UINT j = 0; j < kItems; ++j)
            AppendMenuW(submenu, MF_STRING, 1000 + i * kItems + j,
                        (L"Mục " + std::to_wstring(j) + L"\tCtrl+X|Giúp|2").c_str());
        AppendMenuW(host.Popup(), MF_POPUP, reinterpret_cast<UINT_PTR>(submenu), L"Nhóm");
    }
    WndCoolMenu& window = *FindCoolMenu(host.Window());
    const auto note = [&](const char* area, const std::function<void()>& open) {
        open(); // the first time it also converts
        std::vector<double> times;
        for (int i = 0; i < kTimes; ++i)
            times.push_back(Each(open)(1) / 1e6);
        std::nth_element(times.begin(), times.begin() + kTimes / 2, times.end());
        report.Note({area, "ms", times[kTimes / 2], kMaxMilliseconds});
    };
    note("menu bar opened, 600 submenus of 20 items",
         [&] { OnInitMenu(window, GetMenu(host.Window())); });
    note("popup of 600 submenus opened", [&] { OnInitMenuPopup(window, host.Popup(), 0, false); });
    note("one of its submenus opened",
         [&] { OnInitMenuPopup(window, GetSubMenu(host.Popup(), 300), 299, false); });
}

} // namespace

int main(int argc, char** argv) {
    CoInitialize(nullptr);
    int code = 1;
    try {
        Report report("menus", argc, argv);
        Measure(report, "menu item", L"", false, 0);
        Measure(report, "selected menu item", L"", false, ODS_SELECTED);
        Measure(report, "menu item with a picture", L"1", true, 0);
        MeasureLargeMenu(report);
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "menu_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
