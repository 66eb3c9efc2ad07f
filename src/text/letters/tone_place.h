// SPDX-License-Identifier: MIT
// The place of the tone in oa, oe and uy at the end of a syllable.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

enum class TonePlace {
    Old, // hòa, khỏe, thủy
    New, // hoà, khoẻ, thuỷ
};

// Takes and gives NFC. Closed syllables (hoàn) and those with qu (quý) have one place only.
std::wstring MoveTones(std::wstring_view text, TonePlace place);

} // namespace vndesk
