// SPDX-License-Identifier: MIT
// Named settings in the host database's Options table.
#pragma once

#include <string>
#include <string_view>

#include "data/connect/database.h"
#include "data/text/option_statements.h"

namespace vndesk {

// The setting's text. A missing row, a null or empty text, and every error give `otherwise`.
std::wstring GetOption(const Database& database, OptionName name, std::wstring_view otherwise);

// Stores a setting. Result: 0, or the number of the error, which has been shown.
// `insertOnly` adds a row even when there is one.
long SetOption(const Database& database, OptionName name, std::wstring_view value,
               std::wstring_view description, bool insertOnly);

} // namespace vndesk
