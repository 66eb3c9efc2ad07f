// SPDX-License-Identifier: MIT
// The statement that looks for the user who logs on.
#pragma once

#include "data/text/literals.h"

#include <string>
#include <string_view>

namespace vndesk {

std::wstring LogonStatement(std::wstring_view name, double passwordCode, DatabaseKind dbKind);

} // namespace vndesk
