// SPDX-License-Identifier: MIT
// What the forms of one operation share: the database that it has opened. Each thread has
// operations of its own.
#pragma once

#include <windows.h>

#include <string_view>

#include "data/connect/database.h"

namespace vndesk {

// Of the operation that the calling thread started last; a closed one where none runs.
const Database& CurrentDatabase();

// The session's database for the length of one operation. A host that starts a second operation
// from inside the first gets its own; the first finds its connection again afterwards.
class SessionConnection {
public:
    // Opens a connection, and closes it at the end.
    explicit SessionConnection(std::wstring_view connectionString);
    // Uses one that is open already, and leaves it open.
    explicit SessionConnection(Database opened);
    ~SessionConnection();
    SessionConnection(const SessionConnection&) = delete;
    SessionConnection& operator=(const SessionConnection&) = delete;

private:
    friend const Database& CurrentDatabase();

    SessionConnection(Database database, bool close);

    Database database_;
    const bool close_;
    const DWORD thread_;
    SessionConnection* earlier_ = nullptr;
};

} // namespace vndesk
