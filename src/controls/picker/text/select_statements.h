// SPDX-License-Identifier: MIT
// The look-up statements of the selection boxes. They begin with what the host gives, which ends
// with the compared column.
#pragma once

#include <string>
#include <string_view>

#include "data/text/literals.h"

namespace vndesk {

// Entries whose name begins with the text.
std::wstring NamesBeginningStatement(std::wstring_view sqlName, std::wstring_view text,
                                     DatabaseKind dbKind);

// The entry with the code.
std::wstring CodeStatement(std::wstring_view sqlID, std::wstring_view code, DatabaseKind dbKind);

} // namespace vndesk
