// SPDX-License-Identifier: MIT
// An eye for a button, drawn at the size and in the colour that the screen asks for.
#pragma once

#include "comkit/base/handles.h"

namespace vndesk {

// Null where there is no memory for it.
UniqueIcon MakeEyeIcon(int pixels, COLORREF color);

} // namespace vndesk
