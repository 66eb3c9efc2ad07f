// SPDX-License-Identifier: MIT
#include "menus/state/menu_fonts.h"

#include <algorithm>

#include "menus/state/window_calls.h"

namespace vndesk {

namespace {

constexpr long kSmallest = 4;
constexpr long kLargest = 200;

LOGFONTW SystemMenuFont() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMenuFont;
}

LONG HeightOf(long points, int dpi) {
    return -MulDiv(static_cast<int>(std::clamp(points, kSmallest, kLargest)), dpi, 72);
}

} // namespace

MenuFonts BuildMenuFonts(HWND window, const std::wstring& name, long size) {
    const long points = std::clamp(size, kSmallest, kLargest);
    MenuFonts fonts;
    fonts.dpi = DpiOf(window);
    fonts.barHeight = MetricAt(SM_CYMENU, fonts.dpi);
    fonts.checkWidth = MetricAt(SM_CXMENUCHECK, fonts.dpi);
    LOGFONTW font = SystemMenuFont();
    font.lfWidth = 0;
    font.lfHeight = HeightOf(points, fonts.dpi);
    if (!name.empty()) {
        lstrcpynW(font.lfFaceName, name.c_str(), LF_FACESIZE);
        font.lfCharSet = DEFAULT_CHARSET;
    }
    fonts.item.reset(CreateFontIndirectW(&font));
    LOGFONTW variant = font;
    variant.lfWeight = FW_BOLD;
    fonts.defaultItem.reset(CreateFontIndirectW(&variant));
    variant = font;
    variant.lfHeight = HeightOf(points - std::max(1L, points / 8), fonts.dpi);
    fonts.separator.reset(CreateFontIndirectW(&variant));
    return fonts;
}

HFONT SharedFonts::Glyphs(Use use, int height) {
    Sized& sized = fonts_[use];
    if (!sized.font || sized.height != height) {
        sized.font.reset(CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                                     SYMBOL_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                     DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, L"Marlett"));
        sized.height = height;
    }
    return sized.font.get();
}

HDC SharedFonts::MeasuringDc() {
    if (!measuring_) {
        measuring_.reset(CreateCompatibleDC(nullptr));
        pixel_.reset(CreateBitmap(1, 1, 1, 32, nullptr));
        SelectObject(measuring_.get(), pixel_.get());
    }
    return measuring_.get();
}

} // namespace vndesk
