// SPDX-License-Identifier: MIT
// The conversion of a table: all of it in one transaction, or nothing.
#pragma once

#include <cstddef>

#include "convert/options.h"
#include "convert/refusal.h"
#include "data/connect/database.h"

namespace vndesk::convert {

// How many values are doubtful. Throws Refusal; nothing is changed then, unless its message is
// AnswerLost.
std::size_t ConvertTable(const Database& database, const Options& options, const Tell& tell);

} // namespace vndesk::convert
