// SPDX-License-Identifier: MIT
// Containers measure in hundredths of a millimetre.
#pragma once

#include <windows.h>

#include "forms/look/twips.h"

namespace vndesk {

inline constexpr int kHimetricPerInch = 2540;

inline long ToHimetric(int pixels) {
    return MulDiv(pixels, kHimetricPerInch, ScreenDpi());
}

inline int FromHimetric(long length) {
    return MulDiv(static_cast<int>(length), ScreenDpi(), kHimetricPerInch);
}

} // namespace vndesk
