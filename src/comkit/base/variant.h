// SPDX-License-Identifier: MIT
// Variants as hosts give them: behind references, of which some lead nowhere, and senseless ones.
#pragma once

#include <windows.h>
#include <comutil.h>

namespace vndesk {

// False for what the platform's own conversions take without looking: a reference to nothing,
// references that go in a circle, a decimal with more places than there can be.
bool IsSound(const VARIANT& value) noexcept;

// The value itself, without references. Throws for what is not sound and for what the platform
// cannot copy.
_variant_t Resolved(const VARIANT& value);

} // namespace vndesk
