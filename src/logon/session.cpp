// SPDX-License-Identifier: MIT
#include "session.h"

#include <utility>

namespace vndesk {

Session& CurrentSession() {
    static Session session;
    return session;
}

SessionConnection::SessionConnection(std::wstring_view connectionString) : close_(true) {
    Database opened = OpenConnection(connectionString);
    previous_ = std::exchange(CurrentSession().current, std::move(opened));
}

SessionConnection::SessionConnection(Database opened)
    : previous_(std::exchange(CurrentSession().current, std::move(opened))), close_(false) {}

// The connection object goes too, so that none is left when the DLL is unloaded.
SessionConnection::~SessionConnection() {
    if (close_)
        CloseConnection(CurrentSession().current);
    CurrentSession().current = std::move(previous_);
}

} // namespace vndesk
