// SPDX-License-Identifier: MIT
// The ODBC below the ADO bridge, with calls that fail on demand. While the object lives, the
// bridge's imports from odbc32.dll lead through functions of the test: bridge and product know
// nothing of it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vndesk::test {

enum class OdbcFault {
    Told,        // the call fails and its diagnostic says so
    Silent,      // it fails without a diagnostic
    Lost,        // it and all later calls fail: the connection has gone
    Unconfirmed, // a statement is run, then the connection has gone
    Remark,      // the call works, with a remark of the driver
    Truncated,   // the fetched cells had no room and are cut
};

class FaultyOdbc {
public:
    FaultyOdbc();
    ~FaultyOdbc();
    FaultyOdbc(const FaultyOdbc&) = delete;
    FaultyOdbc& operator=(const FaultyOdbc&) = delete;

    // Counts the calls anew, from 1, and lets one of them fail; 0 lets all of them through.
    void Begin(size_t call = 0, OdbcFault fault = OdbcFault::Told);
    // The driver grants no cursor that goes back: rows are then read cell by cell.
    void SetForwardOnly(bool forwardOnly);

    // What has happened since: the calls by name, the failed ones included.
    const std::vector<std::string>& Calls() const;
    // Handles and connections that have not been given back.
    int Held() const;
    // Whether the bridge has no object left.
    bool BridgeIsIdle() const;

private:
    struct Import {
        void** slot;
        void* real;
    };
    HMODULE bridge_ = nullptr;
    std::vector<Import> imports_;
};

// Among the calls: a statement that changes rows, and a fetch that has brought some.
inline constexpr const char* kWritingCall = "SQLExecDirect, writing";
inline constexpr const char* kFetchingCall = "SQLFetchScroll, rows";

} // namespace vndesk::test
