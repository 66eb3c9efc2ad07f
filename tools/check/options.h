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
    // The host's; "-" stands for the standard input.
    std::optional<std::wstring> connectionString;
    // The first word that is not understood, without what may be a secret in it.
    std::wstring wrong;
};

Options ParseOptions(const std::vector<std::wstring_view>& words);

} // namespace vndesk::check
