// SPDX-License-Identifier: MIT
// What is true of a host's database whatever its users have done with the library's forms.
#pragma once

#include <string>

#include "support/sample_database.h"

namespace vndesk::test {

class DatabaseRules {
public:
    // Remembers the tables that no form may change.
    explicit DatabaseRules(const SampleDatabase& database);

    // The broken rules, one a line; empty when there is none.
    std::wstring Broken() const;

    // Every row of the tables, to see whether anything has changed.
    static std::wstring Rows(const SampleDatabase& database, const std::wstring& table);

private:
    std::wstring UntouchedTables() const;

    const SampleDatabase& database_;
    std::wstring untouched_;
};

} // namespace vndesk::test
