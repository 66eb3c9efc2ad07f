// SPDX-License-Identifier: MIT
// The statement that looks for the user who logs on.
#pragma once

#include "data/text/statement.h"

#include <string_view>

namespace vndesk {

Statement LogonStatement(std::wstring_view name, double passwordCode, ValueStyle style);

} // namespace vndesk
