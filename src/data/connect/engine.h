// SPDX-License-Identifier: MIT
// What engine an opened database speaks to, and its time.
#pragma once

#include "data/connect/database.h"
#include "data/text/engine.h"

namespace vndesk {

// What the host has named, else the provider's property "DBMS Name". Never fails: where the
// provider does not tell, the kind decides.
Engine EngineOf(const Database& database);

// The server's time in UTC, in whole seconds; this machine's for a file without a server.
Moment ServerTime(const Database& database);

// This machine's, in UTC.
Moment MachineTime();

} // namespace vndesk
