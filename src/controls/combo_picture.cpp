// SPDX-License-Identifier: MIT
#include "combo_picture.h"

#include "forms/handles.h"

namespace vndesk {

namespace {

constexpr int kTextMargin = 2;

// Everything that is set on the device context while this lives is undone.
class SavedDc {
public:
    explicit SavedDc(HDC dc) : dc_(dc), state_(SaveDC(dc)) {}
    ~SavedDc() { RestoreDC(dc_, state_); }
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;

private:
    HDC dc_;
    int state_;
};

} // namespace

void DrawCombo(HDC dc, RECT place, const ComboPicture& picture) {
    const SavedDc saved(dc);
    // Fonts and edges are measured in pixels, whatever the container measures in.
    if (const DWORD type = GetObjectType(dc); type == OBJ_DC || type == OBJ_MEMDC) {
        LPtoDP(dc, reinterpret_cast<POINT*>(&place), 2);
        SetMapMode(dc, MM_TEXT);
        SetWindowOrgEx(dc, 0, 0, nullptr);
        SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    DrawEdge(dc, &place, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    const UniqueBrush back(
        CreateSolidBrush(picture.enabled ? picture.backColor : GetSysColor(COLOR_BTNFACE)));
    FillRect(dc, &place, back.get());

    RECT button = place;
    button.left = button.right - GetSystemMetrics(SM_CXVSCROLL);
    DrawFrameControl(dc, &button, DFC_SCROLL,
                     DFCS_SCROLLCOMBOBOX | (picture.enabled ? 0 : DFCS_INACTIVE));

    RECT text = {place.left + kTextMargin, place.top, button.left - kTextMargin, place.bottom};
    const Selected font(dc, picture.font ? static_cast<HGDIOBJ>(picture.font)
                                         : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, picture.enabled ? picture.foreColor : GetSysColor(COLOR_GRAYTEXT));
    DrawTextW(dc, picture.text.c_str(), static_cast<int>(picture.text.size()), &text,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace vndesk
