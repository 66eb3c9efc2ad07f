// SPDX-License-Identifier: MIT
#include "data/connect/name_search.h"

#include "data/connect/engine.h"

namespace vndesk {

static_assert(static_cast<long>(AccentRule::Sensitive) ==
                  static_cast<long>(Sensitivity::Sensitive) &&
              static_cast<long>(AccentRule::Smart) == static_cast<long>(Sensitivity::Smart) &&
              static_cast<long>(AccentRule::Insensitive) ==
                  static_cast<long>(Sensitivity::Insensitive));

std::optional<SearchRules> NameRules(const Settings& settings) {
    if (!settings.FindsNames())
        return std::nullopt;
    return SearchRules{static_cast<Sensitivity>(settings.Accents), settings.MatchAnywhere};
}

std::optional<Pattern> NamePattern(const Database& database, std::wstring_view typed) {
    const std::optional<SearchRules> rules = NameRules(database.settings);
    if (!rules)
        return std::nullopt;
    return FindingNames(typed, EngineOf(database), rules->anywhere);
}

} // namespace vndesk
