// SPDX-License-Identifier: MIT
// For Each over a collection: a walk over objects collected beforehand.
#pragma once

#include <windows.h>

#include <vector>

#include "comkit/object/com_object.h"

namespace vndesk::ado {

ComPtr<IUnknown> EnumerateObjects(std::vector<ComPtr<IDispatch>> objects);

} // namespace vndesk::ado
