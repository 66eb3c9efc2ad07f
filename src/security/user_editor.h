// SPDX-License-Identifier: MIT
// The dialog in which one user is added or edited.
#pragma once

#include <string>

#include "accounts/operation.h"

namespace vndesk {

struct UserEditorOptions {
    // The state of the name, description and group fields; false where users change their own
    // password.
    bool AllowChange = false;
    // False adds a user, true edits the one named OldName.
    bool EditMode = false;
    std::wstring OldName = {};
    // The user must choose another password than the present one.
    bool MustChange = false;
    // The window in front of which the dialog stays; null: the one in which the user works.
    HWND Owner = nullptr;
};

// True when something was written; the opener reads the table again. A statement that fails ends
// the dialog with the provider's message.
bool ShowUserEditor(const Operation& operation, const UserEditorOptions& options);

} // namespace vndesk
