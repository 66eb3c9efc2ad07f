// SPDX-License-Identifier: MIT
// What is to be written into which rows.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "convert/report.h"
#include "convert/row_key.h"

namespace vndesk::convert {

struct NewText {
    std::size_t column; // in Table::columns
    std::wstring before, after;
};

struct Change {
    Values key;
    std::vector<NewText> texts; // in the order of the columns, at least one
};

struct Found {
    std::size_t convert = 0, already = 0, plain = 0, doubtful = 0;
};

struct Changes {
    std::vector<Change> rows;
    std::vector<Found> columns; // what was found in each
    CsvReport report;

    std::size_t Doubtful() const;
};

} // namespace vndesk::convert
