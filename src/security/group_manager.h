// SPDX-License-Identifier: MIT
// The form in which user groups are listed, added, described and deleted, and their rights opened.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

void ShowGroupManager(const Database& database);

} // namespace vndesk
