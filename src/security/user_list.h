// SPDX-License-Identifier: MIT
// The list of all users, from which they are added, edited and deleted.
#pragma once

namespace vndesk {

// Runs on the session's current database.
void ShowUserList();

} // namespace vndesk
