// SPDX-License-Identifier: MIT
// The ADO of this process, with calls that fail on demand. While the object lives, every
// Connection, Command and Recordset that anybody in the process creates is a wrapper around the
// registered one, by way of class objects of the process' own: the product knows nothing of it.
#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace vndesk::test {

enum class Fault {
    Once,        // the call fails, and the calls after it work again
    FromThenOn,  // every call from there on fails, as after the connection has gone
    Unconfirmed, // a statement is run, but its call fails: the answer got lost
};

class FaultyAdo {
public:
    FaultyAdo();
    ~FaultyAdo();
    FaultyAdo(const FaultyAdo&) = delete;
    FaultyAdo& operator=(const FaultyAdo&) = delete;

    // Counts the calls anew, from 1, and lets one of them fail; 0 lets all of them through.
    void Begin(size_t call = 0, Fault fault = Fault::Once);

    // What has happened since: the calls by name, the failed ones included.
    const std::vector<std::string>& Calls() const;
    // Statements that were run and bring no rows.
    int Writes() const;
    // Connections, commands, record sets and their parts that are still referenced.
    long Objects() const;

private:
    DWORD cookies_[3] = {};
};

} // namespace vndesk::test
