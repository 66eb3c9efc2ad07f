// SPDX-License-Identifier: MIT
// The Vietnamese order: a ă â b c d đ e ê …, letters before tones, letter case aside.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "text/letters/letter_keys.h"

namespace vndesk {

// Sorts by its code units as the text sorts in Vietnamese. Keys of Vietnamese texts are ASCII, so
// that every engine and list that compares binary has the same order. Texts that differ in letter
// case, in runs of blanks or in the place of the tone have one key.
std::wstring SortKey(std::wstring_view text);

// The same of a text that is folded already.
void AppendSortKey(std::wstring& to, std::span<const LetterKey> letters);

// -1, 0, 1.
int Compare(std::wstring_view left, std::wstring_view right);

} // namespace vndesk
