// SPDX-License-Identifier: MIT
// What an operation of the host hands down to the forms that it opens.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "data/connect/database.h"

namespace vndesk {

// Asks the host about a new password; the reason why it is refused.
using AskHost = std::function<std::optional<std::wstring>(const std::wstring& name,
                                                          const std::wstring& password)>;

struct Operation {
    const Database& database;
    // In whose name changes are recorded; 0 where the host has not said.
    long userCode = 0;
    AskHost askHost = {};
};

} // namespace vndesk
