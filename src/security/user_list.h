// SPDX-License-Identifier: MIT
// The list of all users, from which they are added, edited and deleted.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

void ShowUserList(const Database& database);

} // namespace vndesk
