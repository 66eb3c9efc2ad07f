// SPDX-License-Identifier: MIT
// The connection that a record set or a command works on.
#pragma once

#include <memory>

#include "ado/objects/ado_object.h"
#include "ado/objects/session_source.h"

namespace vndesk::ado {

// What a host gives as ActiveConnection: null for Nothing, Empty and Null; a text opens a
// connection of its own. Throws ADO's error 3001 for anything else that is no connection of ours.
ComPtr<_Connection> ConnectionFrom(const Argument& given);
ComPtr<_Connection> ConnectionFrom(IUnknown* object);

// Null while the connection is closed, and where there is none.
std::shared_ptr<Session> SessionOf(IUnknown* connection);

} // namespace vndesk::ado
