// SPDX-License-Identifier: MIT
// The option bits of Execute and Open.
#pragma once

#include <msado15_backcompat.h>

#include "ado/engine/session.h"

namespace vndesk::ado {

// Throws for stored procedures and stored files, which this ADO does not have.
inline CommandKind KindOfCommand(long options) {
    if (options == adOptionUnspecified)
        return CommandKind::Statement;
    if (options & (adCmdStoredProc | adCmdFile))
        throw ComError(E_NOTIMPL, L"Stored procedures and stored record sets are not available in "
                                  L"the ADO for Wine.");
    return options & (adCmdTable | adCmdTableDirect) ? CommandKind::Table : CommandKind::Statement;
}

inline bool WantsNoRecords(long options) {
    return options != adOptionUnspecified && (options & adExecuteNoRecords);
}

} // namespace vndesk::ado
