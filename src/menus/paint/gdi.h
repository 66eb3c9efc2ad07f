// SPDX-License-Identifier: MIT
// Small drawing steps on boxes of pixels.
#pragma once

#include <windows.h>

#include <string_view>

#include "comkit/base/handles.h"
#include "forms/look/device_context.h"
#include "menus/item/item_colors.h"
#include "menus/item/menu_layout.h"

namespace vndesk {

inline RECT ToRect(const Box& box) {
    return {box.left, box.top, box.right, box.bottom};
}

inline Box ToBox(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// The device context's own brush, which takes any colour, instead of a new one for each step.
inline HBRUSH BrushOf(HDC dc, Color color) {
    SetDCBrushColor(dc, color);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

inline void Fill(HDC dc, const Box& box, Color color) {
    const RECT rect = ToRect(box);
    FillRect(dc, &rect, BrushOf(dc, color));
}

inline void Frame(HDC dc, const Box& box, Color color) {
    const RECT rect = ToRect(box);
    FrameRect(dc, &rect, BrushOf(dc, color));
}

inline void Edge(HDC dc, const Box& box, UINT edge, UINT flags) {
    RECT rect = ToRect(box);
    DrawEdge(dc, &rect, edge, flags);
}

inline void Text(HDC dc, std::wstring_view text, const Box& box, UINT flags, Color color) {
    if (text.empty())
        return;
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    RECT rect = ToRect(box);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rect, flags);
}

} // namespace vndesk
