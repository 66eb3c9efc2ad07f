// SPDX-License-Identifier: MIT
// The table that is converted, as the database has it.
#pragma once

#include <string>
#include <vector>

#include "convert/options.h"
#include "data/connect/database.h"
#include "data/connect/engine.h"
#include "text/sql_name.h"

namespace vndesk::convert {

struct Column {
    std::wstring name;
    DataTypeEnum type = adEmpty;
    long size = 0;
    BYTE precision = 0, scale = 0; // of decimals
};

struct Table {
    std::wstring name;
    Engine engine = Engine::Jet;
    NameQuotes quotes;
    std::vector<Column> keys, columns;

    std::wstring Quoted(const std::wstring& given) const { return QuotedName(given, quotes); }
    // Keys and columns of all rows, in this order.
    std::wstring ReadingStatement() const;
};

// Throws Refusal where something prevents its conversion.
Table FindTable(const Database& database, const Options& options);

} // namespace vndesk::convert
