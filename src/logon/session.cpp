// SPDX-License-Identifier: MIT
#include "logon/session.h"

#include <utility>

#include "comkit/base/lock.h"
#include "data/connect/failure.h"
#include "msgbox/details_box.h"

namespace vndesk {

namespace {

// The running operations of all threads, the latest first. Not thread_local: GCC's run-time ends
// the process where it has no memory for one, and keeps what it took for other threads when the DLL
// goes. Not owned: the process may end during one, and no destructor may run then.
SRWLOCK lock_ = SRWLOCK_INIT;
SessionConnection* latest_;

OpenedOrNot OpenAsAsked(std::wstring_view connectionString, const Settings& settings) {
    if (settings.OnConnectionError == ConnectionErrors::ShowString)
        return {OpenConnection(connectionString, settings), std::nullopt};
    OpenedOrNot opened = TryConnection(connectionString, settings);
    if (opened.failure && settings.OnConnectionError == ConnectionErrors::Raise)
        ThrowFailure(*opened.failure);
    if (opened.failure)
        ShowDetailsBox(FailureText(*opened.failure), opened.failure->providerText);
    return opened;
}

} // namespace

const Database& CurrentDatabase() {
    static const Database none;
    const Reading reading(lock_);
    for (const SessionConnection* one = latest_; one; one = one->earlier_)
        if (one->thread_ == GetCurrentThreadId())
            return one->database_;
    return none;
}

SessionConnection::SessionConnection(std::wstring_view connectionString, const Settings& settings)
    : SessionConnection(OpenAsAsked(connectionString, settings), true) {}

SessionConnection::SessionConnection(Database opened)
    : SessionConnection({std::move(opened), std::nullopt}, false) {}

SessionConnection::SessionConnection(OpenedOrNot opened, bool close)
    : database_(std::move(opened.database)), ended_(opened.failure), close_(close),
      thread_(GetCurrentThreadId()) {
    const Writing writing(lock_);
    earlier_ = std::exchange(latest_, this);
}

// The connection object goes too, so that none is left when the DLL is unloaded.
SessionConnection::~SessionConnection() {
    if (close_)
        CloseConnection(database_);
    const Writing writing(lock_);
    SessionConnection** place = &latest_;
    while (*place != this)
        place = &(*place)->earlier_;
    *place = earlier_;
}

} // namespace vndesk
