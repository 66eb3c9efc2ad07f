// SPDX-License-Identifier: MIT
// The session: the databases of the operations that run. Forms and statements are handed theirs;
// the session is asked only where a host may leave the connection out. Each thread has operations
// of its own.
#pragma once

#include <windows.h>

#include <string_view>

#include "data/connect/database.h"

namespace vndesk {

// Of the operation that the calling thread started last, valid while that runs; a closed one where
// none runs.
const Database& CurrentDatabase();

// The database of one operation, the session's as long as it runs. A second operation that the host
// starts from inside the first has its own.
class SessionConnection {
public:
    // Opens a connection, and closes it at the end. What happens where it cannot be opened, the
    // settings say.
    explicit SessionConnection(std::wstring_view connectionString, const Settings& settings = {});
    // Uses one that is open already, and leaves it open.
    explicit SessionConnection(Database opened);
    ~SessionConnection();
    SessionConnection(const SessionConnection&) = delete;
    SessionConnection& operator=(const SessionConnection&) = delete;

    const Database& operator*() const { return database_; }
    // The user has been told that there is no connection, and sees no form.
    bool Ended() const { return ended_; }

private:
    friend const Database& CurrentDatabase();

    SessionConnection(OpenedOrNot opened, bool close);

    Database database_;
    const bool ended_;
    const bool close_;
    const DWORD thread_;
    SessionConnection* earlier_ = nullptr;
};

} // namespace vndesk
