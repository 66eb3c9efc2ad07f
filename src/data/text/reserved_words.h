// SPDX-License-Identifier: MIT
// Words that are no names without quotes.
#pragma once

#include <string_view>

namespace vndesk {

// Whether one of the engines has reserved the word. Quotes harm a name in none of them.
bool IsReservedWord(std::wstring_view word);

} // namespace vndesk
