// SPDX-License-Identifier: MIT
// Statements with bound values as commands of ADO.
#pragma once

#include "data/connect/ado.h"
#include "data/text/statement.h"

namespace vndesk {

using AdoCommand = ComPtr<_Command>;

// A command on the connection, ready to run. Throws ComError with the provider's description, as
// the others.
AdoCommand NewCommand(const AdoConnection& connection, const Statement& statement);

// Runs a statement that gives rows.
AdoRecordset RunCommand(const AdoConnection& connection, const Statement& statement);

// Runs a statement that gives no rows; how many it has changed.
long ExecuteCommand(const AdoConnection& connection, const Statement& statement);

} // namespace vndesk
