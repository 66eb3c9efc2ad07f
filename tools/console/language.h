// SPDX-License-Identifier: MIT
// The languages of the programs, and texts with places for values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk::console {

enum class Language { English, Vietnamese, French };

// "en", "vi", "fr".
const wchar_t* NameOf(Language language);

// What --en, --vi and --fr ask for; nothing for every other word.
std::optional<Language> LanguageOption(std::wstring_view word);

// The text with {0}, {1}... replaced by the values; a missing value leaves its place empty.
std::wstring Fill(std::wstring_view text, const std::vector<std::wstring>& values);

// A word of the command line that was not understood, as it may be shown. Where a connection string
// was not put into quotes, its pieces come as words: none is repeated.
std::wstring ShownWord(std::wstring_view word);

} // namespace vndesk::console
