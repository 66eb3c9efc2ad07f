// SPDX-License-Identifier: MIT
#include "menus/paint/item_painter.h"

#include <string>

#include "menus/paint/gdi.h"
#include "menus/paint/item_marks.h"
#include "menus/paint/item_picture.h"
#include "menus/paint/menu_text.h"
#include "menus/state/menu_module.h"

namespace vndesk {

namespace {

constexpr UINT kOneLine = DT_SINGLELINE | DT_VCENTER;

Color ToColor(int index) {
    return GetSysColor(index);
}

// Hosts may give the number of a system colour instead of a colour.
std::optional<Color> Resolved(std::optional<Color> color) {
    if (color && (*color & 0x80000000))
        return ToColor(static_cast<int>(*color & 0xFF));
    return color;
}

bool InHighContrast() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

bool HasFlatMenus() {
    BOOL flat = FALSE;
    SystemParametersInfoW(SPI_GETFLATMENU, 0, &flat, 0);
    return flat;
}

// What every step needs.
struct Painting {
    HDC dc;
    Box item;
    WndCoolMenu& window;
    const CMyItemData& data;
    ItemState state;
    SystemColors system;
    ItemColors colors;
    MenuMetrics metrics;
    ItemLayout layout;
    bool rightToLeft;
    SharedFonts& fonts;
};

void PaintSeparator(const Painting& paint) {
    const int line = SeparatorLine(paint.item);
    const Box across = {paint.item.left, line, paint.item.right, line + 2};
    const std::wstring_view caption = TextPart(paint.data.sMenuText);
    if (caption.empty()) {
        Edge(paint.dc, across, EDGE_ETCHED, BF_TOP);
        return;
    }
    const Selected font(paint.dc, FontOf(paint.window, paint.data, false));
    // The line stands at both sides of the caption.
    const int room = CaptionExtent(paint.window, paint.data).width + paint.metrics.imageSize / 2;
    const int side = (paint.item.Width() - room) / 2;
    if (side > 0) {
        Edge(paint.dc, {across.left, across.top, across.left + side, across.bottom}, EDGE_ETCHED,
             BF_TOP);
        Edge(paint.dc, {across.right - side, across.top, across.right, across.bottom}, EDGE_ETCHED,
             BF_TOP);
    }
    constexpr UINT kCentred = DT_CENTER | kOneLine;
    const EmbossColors colors = SeparatorColors(paint.system);
    const Box& box = paint.item;
    if (colors.below)
        Text(paint.dc, caption, {box.left + 1, box.top + 1, box.right + 1, box.bottom + 1},
             kCentred, *colors.below);
    Text(paint.dc, caption, box, kCentred, colors.text);
}

// A small mark in the corner of a picture, on ground of its own so that any picture leaves it
// readable.
void PaintBadge(const Painting& paint, Mark mark) {
    const int side = paint.metrics.imageSize * 5 / 8;
    const Box& frame = paint.layout.image;
    Box badge = {frame.right - side, frame.bottom - side, frame.right, frame.bottom};
    if (paint.rightToLeft)
        badge = {frame.left, badge.top, frame.left + side, badge.bottom};
    DrawBoxedMark(paint.dc, badge, mark, paint.system, paint.state.disabled, paint.fonts);
}

void PaintPicture(const Painting& paint, HIMAGELIST images, Mark mark) {
    const Box& frame = paint.layout.image;
    if (mark.checked)
        Fill(paint.dc, frame, Blend(paint.system.menu, paint.system.window));
    DrawPicture(paint.dc, paint.layout.picture, images, paint.data.iButton,
                {paint.state.disabled, paint.window.ColorEmbossed});
    if (mark.checked) {
        Edge(paint.dc, frame, BDR_SUNKENOUTER, BF_RECT);
        PaintBadge(paint, mark);
    } else if (paint.state.selected && !paint.state.disabled) {
        Edge(paint.dc, frame, BDR_RAISEDINNER, BF_RECT);
    }
}

void PaintMark(const Painting& paint, Mark mark) {
    if (paint.window.ComplexChecks) {
        // Odd, so that the mark has a middle.
        const int side = (paint.metrics.imageSize * 13 / 16) | 1;
        DrawBoxedMark(paint.dc, Centred(paint.layout.image, side), mark, paint.system,
                      paint.state.disabled, paint.fonts);
        return;
    }
    const bool onSelection = paint.state.selected && paint.window.FullSelect;
    DrawPlainMark(paint.dc, paint.layout.picture, mark,
                  onSelection || paint.state.disabled
                      ? paint.colors.text
                      : Resolved(paint.window.Colors().text).value_or(paint.system.menuText),
                  paint.fonts);
}

void PaintImageColumn(const Painting& paint) {
    const Mark mark = {paint.data.bAsMark, paint.state.checked};
    const HIMAGELIST images = paint.window.ilHandle.Handle();
    if (HasPicture(images, paint.data.iButton))
        PaintPicture(paint, images, mark);
    else if (mark.checked || (paint.data.bAsCheck && paint.window.ComplexChecks))
        PaintMark(paint, mark);
    else if (const wchar_t sign = SystemSign(paint.data.id))
        DrawSign(paint.dc, paint.layout.picture, sign,
                 paint.window.FullSelect || !paint.state.selected ? paint.colors.text
                                                                  : paint.system.menuText,
                 paint.fonts);
}

// Windows gives the menu bar its height (SM_CYMENU), whatever the font: a font that is too high is
// made smaller.
UniqueFont FittedFont(HDC dc, int height) {
    TEXTMETRICW metrics;
    LOGFONTW font;
    if (!GetTextMetricsW(dc, &metrics) || metrics.tmHeight <= height ||
        !GetObjectW(GetCurrentObject(dc, OBJ_FONT), sizeof font, &font))
        return nullptr;
    font.lfHeight = MulDiv(font.lfHeight, height, metrics.tmHeight);
    return UniqueFont(CreateFontIndirectW(&font));
}

void PaintCaption(const Painting& paint, std::wstring_view text, const Box& box, UINT side) {
    if (paint.state.hideMnemonics)
        Text(paint.dc, WithoutMnemonics(text), box, side | kOneLine | DT_NOPREFIX,
             paint.colors.text);
    else
        Text(paint.dc, text, box, side | kOneLine, paint.colors.text);
}

void PaintBarCaption(const Painting& paint) {
    const Selected font(paint.dc, FontOf(paint.window, paint.data, false));
    const UniqueFont fitted = FittedFont(paint.dc, paint.item.Height() - 2);
    const Selected smaller(paint.dc, fitted ? fitted.get() : GetCurrentObject(paint.dc, OBJ_FONT));
    PaintCaption(paint, TextPart(paint.data.sMenuText), paint.item, DT_CENTER);
}

void PaintTexts(const Painting& paint) {
    const Selected font(paint.dc, FontOf(paint.window, paint.data, paint.state.isDefault));
    const UINT side = paint.rightToLeft ? DT_RIGHT | DT_RTLREADING : DT_LEFT;
    PaintCaption(paint, TextPart(paint.data.sMenuText), paint.layout.text, side);
    Text(paint.dc, ShortcutPart(paint.data.sMenuText), paint.layout.shortcut,
         side | kOneLine | DT_NOPREFIX, paint.colors.text);
}

void PaintPopupItem(const Painting& paint) {
    if (paint.data.fType & MFT_SEPARATOR) {
        PaintSeparator(paint);
        return;
    }
    if (paint.state.selected)
        Fill(paint.dc, paint.layout.selection, paint.colors.fill);
    PaintImageColumn(paint);
    PaintTexts(paint);
    if (paint.data.bTrueSub)
        DrawArrow(paint.dc, paint.layout.arrow, paint.rightToLeft, paint.colors.text, paint.fonts);
}

void PaintBarItem(const Painting& paint) {
    if (paint.state.selected)
        Fill(paint.dc, paint.item, paint.colors.fill);
    PaintBarCaption(paint);
    if (paint.state.hovered && !paint.state.selected && !paint.state.disabled)
        Edge(paint.dc, paint.item, BDR_RAISEDINNER, BF_RECT);
}

} // namespace

SystemColors ReadSystemColors() {
    SystemColors colors;
    colors.menu = ToColor(COLOR_MENU);
    colors.menuBar = ToColor(HasFlatMenus() ? COLOR_MENUBAR : COLOR_MENU);
    colors.menuText = ToColor(COLOR_MENUTEXT);
    colors.highlight = ToColor(COLOR_HIGHLIGHT);
    colors.highlightText = ToColor(COLOR_HIGHLIGHTTEXT);
    colors.grayText = ToColor(COLOR_GRAYTEXT);
    colors.light = ToColor(COLOR_3DLIGHT);
    colors.shadow = ToColor(COLOR_BTNSHADOW);
    colors.window = ToColor(COLOR_WINDOW);
    colors.windowText = ToColor(COLOR_WINDOWTEXT);
    colors.highContrast = InHighContrast();
    return colors;
}

void PaintItem(HDC dc, const Box& item, WndCoolMenu& window, const CMyItemData& data,
               const ItemState& state) {
    MenuModule* module = CurrentMenuModule();
    if (!module)
        return;
    const SavedDc saved(dc);
    const SystemColors system = ReadSystemColors();
    const HostColors host = {Resolved(window.Colors().text), Resolved(window.Colors().selection)};
    const MenuMetrics metrics = MetricsOf(window);
    // A mirrored device context mirrors by itself.
    const bool mirrored = window.RightToLeft && !(GetLayout(dc) & LAYOUT_RTL);
    const auto column = window.shortcutWidths.find(data.menu);
    const bool hasShortcut =
        column != window.shortcutWidths.end() && !ShortcutPart(data.sMenuText).empty();
    const LayoutOptions options = {mirrored, window.FullSelect, hasShortcut ? column->second : 0};
    const Painting paint = {dc,
                            item,
                            window,
                            data,
                            state,
                            system,
                            ColorsOf(state, system, host),
                            metrics,
                            LayoutItem(item, options, metrics),
                            mirrored,
                            module->fonts};
    Fill(dc, item, paint.colors.background);
    if (data.bMainMenu)
        PaintBarItem(paint);
    else
        PaintPopupItem(paint);
}

} // namespace vndesk
