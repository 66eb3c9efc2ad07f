// SPDX-License-Identifier: MIT
// What stands in a connection's Errors collection: the errors of the last call that failed in the
// driver. The connection, its Errors objects and its session share one log.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ado/engine/odbc.h"

namespace vndesk::ado {

struct ErrorEntry {
    Diagnostic diagnostic;
    std::wstring source;
};

class ErrorLog {
public:
    const std::vector<ErrorEntry>& Entries() const { return entries_; }
    void Clear() { entries_.clear(); }

    // Runs the body; the errors of a failing one replace the old ones and are thrown again.
    template <class Body> auto Record(const std::wstring& source, Body&& body) {
        try {
            return body();
        } catch (const DriverError& error) {
            entries_.clear();
            for (const Diagnostic& diagnostic : error.Diagnostics())
                entries_.push_back({diagnostic, source});
            throw;
        }
    }

private:
    std::vector<ErrorEntry> entries_;
};

} // namespace vndesk::ado
