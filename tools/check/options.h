// SPDX-License-Identifier: MIT
// The command line of vndesk-check.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/texts.h"

namespace vndesk::check {

enum class Action { Check, Help, Version };

struct Options {
    Action action = Action::Check;
    bool json = false;
    std::optional<Language> language; // the user's where none is given
    std::wstring wrong;               // the first word that is not understood
};

Options ParseOptions(const std::vector<std::wstring_view>& words);

} // namespace vndesk::check
