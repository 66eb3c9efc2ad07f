// SPDX-License-Identifier: MIT
// A menu item drawn into a bitmap by the library, and questions about its pixels.
#pragma once

#include <windows.h>

#include <functional>
#include <set>
#include <vector>

#include "ui/menus/menu_host.h"

namespace vndesk::test {

class Canvas {
public:
    Canvas(int width, int height)
        : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits_),
                                   nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
        const RECT all = {0, 0, width, height};
        const HBRUSH unpainted = CreateSolidBrush(kUnpainted);
        FillRect(dc_, &all, unpainted);
        DeleteObject(unpainted);
    }
    ~Canvas() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    static constexpr COLORREF kUnpainted = RGB(1, 254, 3);

    HDC Dc() const { return dc_; }
    int Width() const { return width_; }
    int Height() const { return height_; }

    COLORREF At(int x, int y) const {
        GdiFlush();
        const DWORD pixel = bits_[y * width_ + x];
        return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
    }
    // How many pixels of a part are as asked.
    int Count(const RECT& part, const std::function<bool(COLORREF)>& asked) const {
        int count = 0;
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                count += asked(At(x, y));
        return count;
    }
    int Count(const RECT& part, COLORREF color) const {
        return Count(part, [=](COLORREF pixel) { return pixel == color; });
    }
    int Count(COLORREF color) const { return Count(All(), color); }
    RECT All() const { return {0, 0, width_, height_}; }
    RECT Columns(int left, int right) const { return {left, 0, right, height_}; }

    bool operator==(const Canvas& other) const {
        if (width_ != other.width_ || height_ != other.height_)
            return false;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                if (At(x, y) != other.At(x, y))
                    return false;
        return true;
    }

private:
    int width_, height_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    DWORD* bits_ = nullptr;
};

inline UINT IdOf(HMENU menu, UINT position) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID;
    GetMenuItemInfoW(menu, position, TRUE, &info);
    return info.wID;
}

// Both ask the window, as the platform does.
inline SIZE MeasureItem(const MenuHost& host, HMENU menu, UINT position) {
    MEASUREITEMSTRUCT measured = {};
    measured.CtlType = ODT_MENU;
    measured.itemID = IdOf(menu, position);
    measured.itemData = DataOf(menu, position);
    EXPECT_EQ(TRUE,
              SendMessageW(host.Window(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured)));
    return {static_cast<LONG>(measured.itemWidth), static_cast<LONG>(measured.itemHeight)};
}

inline void PaintItem(const MenuHost& host, HMENU menu, UINT position, UINT state,
                      const Canvas& canvas) {
    DRAWITEMSTRUCT drawn = {};
    drawn.CtlType = ODT_MENU;
    drawn.itemID = IdOf(menu, position);
    drawn.itemAction = ODA_DRAWENTIRE;
    drawn.itemState = state;
    drawn.hwndItem = reinterpret_cast<HWND>(menu);
    drawn.hDC = canvas.Dc();
    drawn.rcItem = canvas.All();
    drawn.itemData = DataOf(menu, position);
    EXPECT_EQ(TRUE, SendMessageW(host.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn)));
}

} // namespace vndesk::test
