// SPDX-License-Identifier: MIT
// A text as it is compared: letters as keys, runs of blanks as one, the tone of hòa and hoà in one
// place. Folding is done once for each text of a list.
#pragma once

#include "text/letters/letter_keys.h"

#include <string_view>
#include <vector>

namespace vndesk {

using FoldedText = std::vector<LetterKey>;

bool IsBlank(wchar_t ch);

// Behind what is there already, so that the texts of a list can stand in one block.
void AppendFolded(FoldedText& to, std::wstring_view text);

FoldedText Fold(std::wstring_view text);

} // namespace vndesk
