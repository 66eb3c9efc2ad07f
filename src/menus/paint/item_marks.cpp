// SPDX-License-Identifier: MIT
#include "menus/paint/item_marks.h"

#include "menus/paint/gdi.h"
#include "menus/state/diagnostics.h"

namespace vndesk {

namespace {

constexpr wchar_t kCheckGlyph = L'b';
constexpr wchar_t kRadioGlyph = L'h';
constexpr wchar_t kArrowGlyph = L'4';
constexpr wchar_t kArrowGlyphLeft = L'3';

struct Sign {
    UINT command;
    wchar_t glyph;
};
constexpr Sign kSigns[] = {
    {SC_MINIMIZE, L'0'}, {SC_MAXIMIZE, L'1'}, {SC_RESTORE, L'2'}, {SC_CLOSE, L'r'}};

void DrawGlyph(HDC dc, const Box& box, wchar_t glyph, int height, SharedFonts::Use use, Color color,
               SharedFonts& fonts) {
    const Selected font(dc, fonts.Glyphs(use, height));
    Text(dc, {&glyph, 1}, box, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP,
         color);
}

} // namespace

void DrawPlainMark(HDC dc, const Box& box, Mark mark, Color color, SharedFonts& fonts) {
    if (mark.checked)
        DrawGlyph(dc, box, mark.radio ? kRadioGlyph : kCheckGlyph, box.Height(), SharedFonts::kMark,
                  color, fonts);
}

void DrawBoxedMark(HDC dc, const Box& box, Mark mark, const SystemColors& system, bool disabled,
                   SharedFonts& fonts) {
    // Without its mark the item can still be read and chosen.
    Suppress(L" ( Draw3DMark )", [&] {
        const Color line = disabled ? system.grayText : system.windowText;
        if (mark.radio) {
            const UniqueBrush inside(CreateSolidBrush(system.window));
            const UniquePen outline(CreatePen(PS_SOLID, 1, line));
            const Selected brush(dc, inside.get());
            const Selected pen(dc, outline.get());
            Ellipse(dc, box.left, box.top, box.right, box.bottom);
        } else {
            Fill(dc, box, system.window);
            Frame(dc, box, line);
        }
        DrawPlainMark(dc, box, mark, line, fonts);
    });
}

void DrawArrow(HDC dc, const Box& box, bool rightToLeft, Color color, SharedFonts& fonts) {
    DrawGlyph(dc, box, rightToLeft ? kArrowGlyphLeft : kArrowGlyph, box.Width(),
              SharedFonts::kArrow, color, fonts);
}

wchar_t SystemSign(UINT command) {
    for (const Sign& sign : kSigns)
        if (sign.command == (command & ~0xFu))
            return sign.glyph;
    return 0;
}

void DrawSign(HDC dc, const Box& box, wchar_t sign, Color color, SharedFonts& fonts) {
    DrawGlyph(dc, box, sign, box.Height(), SharedFonts::kSign, color, fonts);
}

} // namespace vndesk
