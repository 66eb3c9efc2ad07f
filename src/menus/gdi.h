// SPDX-License-Identifier: MIT
// Small drawing steps on boxes of pixels.
#pragma once

#include <windows.h>

#include <string_view>

#include "forms/handles.h"
#include "item_colors.h"
#include "menu_layout.h"

namespace vndesk {

inline RECT ToRect(const Box& box) {
    return {box.left, box.top, box.right, box.bottom};
}

inline Box ToBox(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

inline void Fill(HDC dc, const Box& box, Color color) {
    const UniqueBrush brush(CreateSolidBrush(color));
    const RECT rect = ToRect(box);
    FillRect(dc, &rect, brush.get());
}

inline void Frame(HDC dc, const Box& box, Color color) {
    const UniqueBrush brush(CreateSolidBrush(color));
    const RECT rect = ToRect(box);
    FrameRect(dc, &rect, brush.get());
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
