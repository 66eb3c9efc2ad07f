// SPDX-License-Identifier: MIT
// A picture object of a host (StdPicture) as the icon that an image control shows.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "comkit/base/handles.h"

namespace vndesk {

// As large as fits into a square of `pixels`, in its middle; transparent around it. Null where the
// picture is empty or cannot be drawn.
UniqueIcon IconOfPicture(IPicture& picture, int pixels);

} // namespace vndesk
