// SPDX-License-Identifier: MIT
// What the programs read and write besides their work.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "console/language.h"

namespace vndesk::console {

// A console gets Unicode, a file or pipe UTF-8. `stream` is that of GetStdHandle.
void Print(DWORD stream, std::wstring_view text);

Language UserLanguage();

// What stands behind --connect. "-" is the first line of the standard input, in UTF-8, so that no
// other user of the machine reads it in the list of processes.
std::wstring ConnectionStringOf(const std::wstring& word);

std::string Utf8Of(std::wstring_view text);

} // namespace vndesk::console
