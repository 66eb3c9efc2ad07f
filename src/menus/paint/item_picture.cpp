// SPDX-License-Identifier: MIT
#include "menus/paint/item_picture.h"

#include "forms/look/common_controls.h"
#include "menus/paint/gdi.h"

namespace vndesk {

namespace {

Extent PictureSize(HIMAGELIST list) {
    Extent size;
    Controls6().ImageList_GetIconSize(list, &size.width, &size.height);
    return size;
}

// The picture as an icon of the box's size.
UniqueIcon PictureIcon(HIMAGELIST list, int index, const Box& box) {
    UniqueIcon icon(Controls6().ImageList_GetIcon(list, index, ILD_TRANSPARENT));
    if (icon && PictureSize(list) != Extent{box.Width(), box.Height()})
        if (const auto scaled =
                static_cast<HICON>(CopyImage(icon.get(), IMAGE_ICON, box.Width(), box.Height(), 0)))
            icon.reset(scaled);
    return icon;
}

void DrawEmbossed(HDC dc, const Box& box, HICON icon) {
    DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon), 0, box.left, box.top,
               box.Width(), box.Height(), DST_ICON | DSS_DISABLED);
}

// The picture half faded into the background, on a light copy of itself one pixel lower.
void DrawColorEmbossed(HDC dc, const Box& box, HICON icon) {
    DrawStateW(dc, GetSysColorBrush(COLOR_3DHILIGHT), nullptr, reinterpret_cast<LPARAM>(icon), 0,
               box.left + 1, box.top + 1, box.Width(), box.Height(), DST_ICON | DSS_MONO);
    const HDC memory = CreateCompatibleDC(dc);
    const UniqueBitmap bitmap(CreateCompatibleBitmap(dc, box.Width(), box.Height()));
    if (memory && bitmap) {
        const Selected selected(memory, bitmap.get());
        BitBlt(memory, 0, 0, box.Width(), box.Height(), dc, box.left, box.top, SRCCOPY);
        DrawIconEx(memory, 0, 0, icon, box.Width(), box.Height(), 0, nullptr, DI_NORMAL);
        const BLENDFUNCTION half = {AC_SRC_OVER, 0, 128, 0};
        GdiAlphaBlend(dc, box.left, box.top, box.Width(), box.Height(), memory, 0, 0, box.Width(),
                      box.Height(), half);
    }
    DeleteDC(memory);
}

} // namespace

bool HasPicture(HIMAGELIST list, int index) {
    return list && index >= 0 && index < Controls6().ImageList_GetImageCount(list);
}

void DrawPicture(HDC dc, const Box& box, HIMAGELIST list, int index, const PictureLook& look) {
    if (box.Width() <= 0 || box.Height() <= 0)
        return;
    if (!look.disabled && PictureSize(list) == Extent{box.Width(), box.Height()}) {
        Controls6().ImageList_Draw(list, index, dc, box.left, box.top, ILD_TRANSPARENT);
        return;
    }
    const UniqueIcon icon = PictureIcon(list, index, box);
    if (!icon)
        return;
    if (!look.disabled)
        DrawIconEx(dc, box.left, box.top, icon.get(), box.Width(), box.Height(), 0, nullptr,
                   DI_NORMAL);
    else if (look.colorEmbossed)
        DrawColorEmbossed(dc, box, icon.get());
    else
        DrawEmbossed(dc, box, icon.get());
}

} // namespace vndesk
