// SPDX-License-Identifier: MIT
// Numbers as hosts pass them in a VARIANT, by their decimal digits.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <optional>

#include "text/numbers/exact_number.h"

namespace vndesk {

// Nothing for Null and Empty. Throws Overflow for a float that does not hold every number of its
// size, a type mismatch for what is no number and no text.
std::optional<ExactNumber> ToNumber(const VARIANT& value);

} // namespace vndesk
