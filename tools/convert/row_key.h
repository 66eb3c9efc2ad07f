// SPDX-License-Identifier: MIT
// The key of a row as texts.
#pragma once

#include <comutil.h>

#include <string>
#include <vector>

#include "convert/table.h"

namespace vndesk::convert {

using Values = std::vector<_variant_t>;

bool HasNull(const Values& key);

// For comparing.
std::wstring KeyText(const Values& key);

// For people: Ma=5, Nam=2004
std::wstring ShownKey(const std::vector<Column>& columns, const Values& key);

} // namespace vndesk::convert
