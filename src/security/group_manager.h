// SPDX-License-Identifier: MIT
// The form in which user groups are listed, added, described and deleted, and their rights opened.
#pragma once

namespace vndesk {

// Runs on the session's current database.
void ShowGroupManager();

} // namespace vndesk
