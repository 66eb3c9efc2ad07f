// SPDX-License-Identifier: MIT
// Patterns of LIKE that are bound, so that what a user typed is found as it stands.
#pragma once

#include <string>
#include <string_view>

#include "data/text/engine.h"

namespace vndesk {

struct Pattern {
    std::wstring text;
    std::wstring_view clause; // stands behind the `?`; empty where the engine needs none
};

// For texts that begin so. Wildcards of the engine are letters in it.
Pattern BeginningWith(std::wstring_view typed, Engine engine);

} // namespace vndesk
