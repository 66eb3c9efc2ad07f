// SPDX-License-Identifier: MIT
#include "forms/look/picture_icon.h"

#include <olectl.h>

#include <algorithm>
#include <memory>

#include "forms/look/device_context.h"

namespace vndesk {

namespace {

struct DcDeleter {
    void operator()(HDC dc) const noexcept { DeleteDC(dc); }
};
using MemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

// The largest box of the picture's shape in the square.
RECT Fitted(LONG width, LONG height, int pixels) {
    const LONG longest = std::max(width, height);
    const int w = std::max(1, MulDiv(pixels, width, longest));
    const int h = std::max(1, MulDiv(pixels, height, longest));
    const int left = (pixels - w) / 2;
    const int top = (pixels - h) / 2;
    return {left, top, left + w, top + h};
}

} // namespace

UniqueIcon IconOfPicture(IPicture& picture, int pixels) {
    short type = PICTYPE_UNINITIALIZED;
    LONG width = 0, height = 0;
    if (FAILED(picture.get_Type(&type)) || FAILED(picture.get_Width(&width)) ||
        FAILED(picture.get_Height(&height)) || width <= 0 || height <= 0)
        return nullptr;
    if (type == PICTYPE_ICON) {
        OLE_HANDLE handle = 0;
        if (FAILED(picture.get_Handle(&handle)))
            return nullptr;
        const auto icon = reinterpret_cast<HICON>(static_cast<LONG_PTR>(static_cast<LONG>(handle)));
        return UniqueIcon(static_cast<HICON>(CopyImage(icon, IMAGE_ICON, pixels, pixels, 0)));
    }
    const RECT box = Fitted(width, height, pixels);
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    BITMAPINFO format = {};
    format.bmiHeader = {.biSize = sizeof format.bmiHeader,
                        .biWidth = pixels,
                        .biHeight = pixels,
                        .biPlanes = 1,
                        .biBitCount = 24};
    void* bits = nullptr;
    const UniqueBitmap colors(
        CreateDIBSection(dc.get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    const UniqueBitmap mask(CreateBitmap(pixels, pixels, 1, 1, nullptr));
    if (!dc || !colors || !mask)
        return nullptr;
    {
        // Only what is black in the mask is drawn.
        const Selected selected(dc.get(), mask.get());
        PatBlt(dc.get(), 0, 0, pixels, pixels, WHITENESS);
        FillRect(dc.get(), &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
    {
        const Selected selected(dc.get(), colors.get());
        SetStretchBltMode(dc.get(), HALFTONE);
        // Pictures measure from below.
        if (FAILED(picture.Render(dc.get(), box.left, box.top, box.right - box.left,
                                  box.bottom - box.top, 0, height, width, -height, nullptr)))
            return nullptr;
    }
    ICONINFO icon = {.fIcon = TRUE, .hbmMask = mask.get(), .hbmColor = colors.get()};
    return UniqueIcon(CreateIconIndirect(&icon));
}

} // namespace vndesk
