// SPDX-License-Identifier: MIT
// How names are found on an opened database, where its host asks for more than the beginning as it
// is typed.
#pragma once

#include <optional>
#include <string_view>

#include "data/connect/database.h"
#include "data/text/pattern.h"
#include "text/letters/name_hits.h"

namespace vndesk {

// None as in 1.0.
std::optional<SearchRules> NameRules(const Settings& settings);

// What the engine is asked for: more than the rules take. None as in 1.0.
std::optional<Pattern> NamePattern(const Database& database, std::wstring_view typed);

} // namespace vndesk
