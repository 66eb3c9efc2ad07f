// SPDX-License-Identifier: MIT
#include "controls/combo/window/combo_picture.h"

#include <vssym32.h>

#include "comkit/base/handles.h"
#include "forms/look/common_controls.h"
#include "forms/look/device_context.h"

namespace vndesk {

namespace {

constexpr int kTextMargin = 2;

void CloseTheme(HTHEME theme) {
    Controls6().CloseThemeData(theme);
}
using UniqueTheme = UniqueHandle<HTHEME, CloseTheme>;

// Frame, background and button. `rect` becomes the inside, left of the button.
void DrawThemed(HTHEME theme, HDC dc, RECT& rect, bool enabled) {
    const bool list = Controls6().IsThemePartDefined(theme, CP_READONLY, 0) != FALSE;
    Controls6().DrawThemeBackground(theme, dc, list ? CP_READONLY : CP_BORDER,
                                    enabled ? CBRO_NORMAL : CBRO_DISABLED, &rect, nullptr);
    InflateRect(&rect, -GetSystemMetrics(SM_CXBORDER), -GetSystemMetrics(SM_CYBORDER));
    RECT button = rect;
    button.left = button.right - GetSystemMetrics(SM_CXVSCROLL);
    Controls6().DrawThemeBackground(theme, dc, CP_DROPDOWNBUTTONRIGHT,
                                    enabled ? CBXSR_NORMAL : CBXSR_DISABLED, &button, nullptr);
    rect.right = button.left;
}

void DrawClassic(HDC dc, RECT& rect, const ComboPicture& picture) {
    DrawEdge(dc, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    const UniqueBrush back(
        CreateSolidBrush(picture.enabled ? picture.backColor : GetSysColor(COLOR_BTNFACE)));
    FillRect(dc, &rect, back.get());
    RECT button = rect;
    button.left = button.right - GetSystemMetrics(SM_CXVSCROLL);
    DrawFrameControl(dc, &button, DFC_SCROLL,
                     DFCS_SCROLLCOMBOBOX | (picture.enabled ? 0 : DFCS_INACTIVE));
    rect.right = button.left;
}

} // namespace

void DrawCombo(HDC dc, RECT rect, const ComboPicture& picture) {
    const SavedDc saved(dc);
    // Fonts and edges are measured in pixels, whatever the container measures in.
    if (const DWORD type = GetObjectType(dc); type == OBJ_DC || type == OBJ_MEMDC) {
        LPtoDP(dc, reinterpret_cast<POINT*>(&rect), 2);
        SetMapMode(dc, MM_TEXT);
        SetWindowOrgEx(dc, 0, 0, nullptr);
        SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    const UniqueTheme theme(picture.themed ? Controls6().OpenThemeData(nullptr, L"COMBOBOX")
                                           : nullptr);
    if (theme)
        DrawThemed(theme.get(), dc, rect, picture.enabled);
    else
        DrawClassic(dc, rect, picture);

    RECT text = {rect.left + kTextMargin, rect.top, rect.right - kTextMargin, rect.bottom};
    const Selected font(dc, picture.font ? static_cast<HGDIOBJ>(picture.font)
                                         : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, picture.enabled ? picture.foreColor : GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(dc, picture.text.c_str(), static_cast<int>(picture.text.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace vndesk
