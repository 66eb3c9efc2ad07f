// SPDX-License-Identifier: MIT
// The dialog in which one user is added or edited.
#pragma once

#include <string>

#include "data/connect/database.h"

namespace vndesk {

struct UserEditorOptions {
    // The state of the name, description and group fields; false where users change their own
    // password.
    bool AllowChange = false;
    // False adds a user, true edits the one named OldName.
    bool EditMode = false;
    std::wstring OldName;
};

// Returns nothing: the opener reads the table again. A statement that fails ends the dialog with
// the provider's message.
void ShowUserEditor(const Database& database, const UserEditorOptions& options);

} // namespace vndesk
