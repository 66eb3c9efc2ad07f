// SPDX-License-Identifier: MIT
// What the library's forms share in one process: the database that the running operation opened.
#pragma once

#include <string>
#include <string_view>

#include "data/database.h"

namespace vndesk {

struct Session {
    Database current;
    // The host's connection string, kept by the operations that hand it on.
    std::wstring connectionString;
};

Session& CurrentSession();

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
    Database previous_;
    const bool close_;
};

} // namespace vndesk
