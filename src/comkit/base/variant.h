// SPDX-License-Identifier: MIT
// VARIANTs as hosts pass them: possibly dangling or malformed.
#pragma once

#include <windows.h>
#include <comutil.h>

namespace vndesk {

// False for what VariantCopyInd and VariantChangeType do not check: null references, references in
// a circle, a DECIMAL with an impossible scale or sign.
bool IsSound(const VARIANT& value) noexcept;

// The value itself, without references. Throws for what is not sound and for what VariantCopyInd
// refuses.
_variant_t Resolved(const VARIANT& value);

} // namespace vndesk
