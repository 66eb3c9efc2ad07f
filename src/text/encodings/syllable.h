// SPDX-License-Identifier: MIT
// Whether a word is one that Vietnamese can have.
#pragma once

#include <string_view>

namespace vndesk {

// Takes one word in NFC, in any letter case. Onset, rhyme and tone must fit: cá and cát do, càt
// not.
bool IsSyllable(std::wstring_view word);

} // namespace vndesk
