// SPDX-License-Identifier: MIT
#include "forms/password/eye_icon.h"

#include <cmath>
#include <cstdint>
#include <vector>

namespace vndesk {

namespace {

// In halves of the eye's width, from its middle.
constexpr double kHalfHeight = 0.62;
constexpr double kPupil = 0.3;
constexpr double kLine = 0.2;
// So often is each pixel looked at in each direction, for smooth edges.
constexpr int kSamples = 4;

// Two circles through the corners, one above and one below, cut the lids out.
bool IsInk(double x, double y) {
    constexpr double kRadius = (1 + kHalfHeight * kHalfHeight) / (2 * kHalfHeight);
    const double away = std::hypot(x, std::abs(y) + kRadius - kHalfHeight) - kRadius;
    return std::abs(away + kLine / 2) <= kLine / 2 || std::hypot(x, y) <= kPupil;
}

// 0 to 255.
std::uint32_t InkAt(int column, int row, int pixels) {
    const auto place = [&](int pixel, int sample) {
        return (pixel + (sample + 0.5) / kSamples) * 2 / pixels - 1;
    };
    int ink = 0;
    for (int i = 0; i < kSamples; ++i)
        for (int j = 0; j < kSamples; ++j)
            ink += IsInk(place(column, i), place(row, j));
    return static_cast<std::uint32_t>(ink * 255 / (kSamples * kSamples));
}

} // namespace

UniqueIcon MakeEyeIcon(int pixels, COLORREF color) {
    BITMAPINFO format = {};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = pixels;
    format.bmiHeader.biHeight = -pixels; // from above
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const UniqueBitmap colors(
        CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!colors)
        return nullptr;
    const std::uint32_t full = static_cast<std::uint32_t>(GetRValue(color)) << 16 |
                               static_cast<std::uint32_t>(GetGValue(color)) << 8 | GetBValue(color);
    // The mask is all that is drawn of a grey one: a bit for each pixel that is left out, rows of
    // whole words.
    const auto rowBytes = static_cast<std::size_t>((pixels + 15) / 16 * 2);
    std::vector<std::uint8_t> left(rowBytes * static_cast<std::size_t>(pixels));
    auto* pixel = static_cast<std::uint32_t*>(bits);
    for (int row = 0; row < pixels; ++row)
        for (int column = 0; column < pixels; ++column) {
            const std::uint32_t ink = InkAt(column, row, pixels);
            *pixel++ = ink << 24 | full;
            if (ink < 128)
                left[static_cast<std::size_t>(row) * rowBytes +
                     static_cast<std::size_t>(column / 8)] |=
                    static_cast<std::uint8_t>(0x80 >> column % 8);
        }
    const UniqueBitmap mask(CreateBitmap(pixels, pixels, 1, 1, left.data()));
    if (!mask)
        return nullptr;
    ICONINFO icon = {};
    icon.fIcon = TRUE;
    icon.hbmMask = mask.get();
    icon.hbmColor = colors.get();
    return UniqueIcon(CreateIconIndirect(&icon));
}

} // namespace vndesk
