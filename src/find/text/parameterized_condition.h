// SPDX-License-Identifier: MIT
// The search condition with a `?` for each value.
#pragma once

#include "data/text/dialect.h"
#include "data/text/statement.h"
#include "find/text/condition.h"

namespace vndesk {

// Brackets, joins and blanks are those of GetRes. The values are what the user meant: numbers,
// dates, and texts as they were typed, without blanks around them.
Statement GetParameterized(const ConditionLines& lines, Engine engine,
                           const Dialect* dialect = nullptr);

} // namespace vndesk
