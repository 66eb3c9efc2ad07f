// SPDX-License-Identifier: MIT
#include "menus/paint/menu_text.h"

#include <algorithm>

#include "forms/look/device_context.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

Extent TextExtent(HDC dc, std::wstring_view text) {
    if (text.empty())
        return {};
    RECT box = {};
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &box, DT_CALCRECT | DT_SINGLELINE);
    return {box.right - box.left, box.bottom - box.top};
}

} // namespace

MenuMetrics MetricsOf(WndCoolMenu& window) {
    MenuMetrics metrics;
    const MenuFonts& fonts = window.Fonts();
    metrics.dpi = fonts.dpi;
    metrics.imageSize = MulDiv(metrics.imageSize, metrics.dpi, USER_DEFAULT_SCREEN_DPI);
    metrics.minimumHeight = static_cast<short>(fonts.barHeight);
    metrics.checkWidth = fonts.checkWidth;
    return metrics;
}

bool IsDefaultItem(const CMyItemData& data) {
    return !data.bMainMenu && GetMenuDefaultItem(data.menu, FALSE, GMDI_USEDISABLED) == data.id &&
           data.id != 0;
}

HFONT FontOf(WndCoolMenu& window, const CMyItemData& data, bool isDefault) {
    const MenuFonts& fonts = window.Fonts();
    if (data.fType & MFT_SEPARATOR)
        return window.MenuFontSep();
    return isDefault ? fonts.defaultItem.get() : window.MenuFont();
}

Extent CaptionExtent(WndCoolMenu& window, const CMyItemData& data) {
    const HDC dc = EnsureMenuModule().fonts.MeasuringDc();
    const Selected font(dc, FontOf(window, data, IsDefaultItem(data)));
    Extent extent = TextExtent(dc, TextPart(data.sMenuText));
    const std::wstring_view shortcut = ShortcutPart(data.sMenuText);
    if (!shortcut.empty() && !data.bMainMenu) {
        const Extent own = TextExtent(dc, shortcut);
        const auto column = window.shortcutWidths.find(data.menu);
        const int width = column == window.shortcutWidths.end() ? 0 : column->second;
        extent.width += ShortcutGap(MetricsOf(window)) + std::max(own.width, width);
        extent.height = std::max(extent.height, own.height);
    }
    return extent;
}

int WidestShortcut(WndCoolMenu& window, HMENU menu) {
    MenuModule& module = EnsureMenuModule();
    const HDC dc = module.fonts.MeasuringDc();
    const MenuFonts& fonts = window.Fonts();
    // The default item is bold: as wide as any.
    const Selected font(dc, fonts.defaultItem.get());
    int widest = 0;
    for (const SeenMenu::Item& item : module.menus[menu].items) {
        const CMyItemData* data = module.items.Item(item.number);
        if (data && data->menu == menu && !(data->fType & MFT_SEPARATOR))
            widest = std::max(widest, TextExtent(dc, ShortcutPart(data->sMenuText)).width);
    }
    return widest;
}

} // namespace vndesk
