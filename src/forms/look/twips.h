// SPDX-License-Identifier: MIT
// Lengths of forms are in twips (1440 to the inch); the screen's resolution turns them into pixels.
#pragma once

#include <windows.h>

#include <cmath>

namespace vndesk {

constexpr double kTwipsPerInch = 1440;

// The resolution that windows of this process are drawn in.
inline int ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

inline int ToPixels(double twips, int dpi) {
    return static_cast<int>(std::lround(twips * dpi / kTwipsPerInch));
}

inline double ToTwips(int pixels, int dpi) {
    return pixels * kTwipsPerInch / dpi;
}

struct TwipsSize {
    double width = 0;
    double height = 0;
};

struct TwipsRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool Contains(const TwipsRect& other) const {
        return other.left >= left && other.top >= top && other.left + other.width <= left + width &&
               other.top + other.height <= top + height;
    }
    bool operator==(const TwipsRect&) const = default;
};

// Right and bottom are rounded, not the size, so that neighbours meet.
inline RECT ToPixels(const TwipsRect& rect, int dpi) {
    return {ToPixels(rect.left, dpi), ToPixels(rect.top, dpi),
            ToPixels(rect.left + rect.width, dpi), ToPixels(rect.top + rect.height, dpi)};
}

} // namespace vndesk
