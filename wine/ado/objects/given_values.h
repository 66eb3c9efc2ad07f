// SPDX-License-Identifier: MIT
// Several values in one argument.
#pragma once

#include <windows.h>
#include <comutil.h>

#include <vector>

namespace vndesk::ado {

// The elements of an array, or the one value; nothing where the argument is left out. Throws ADO's
// error 3001 for an array of several dimensions.
std::vector<_variant_t> GivenValues(const VARIANT* given);

} // namespace vndesk::ado
