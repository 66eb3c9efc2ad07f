// SPDX-License-Identifier: MIT
// Runs a statement whose values cross ODBC beside it.
#pragma once

#include <string_view>
#include <vector>

#include "ado/engine/odbc.h"
#include "ado/engine/parameter_value.h"

namespace vndesk::ado {

// A value as the driver reads it, where it lies until the statement has run.
struct BoundValue {
    SQLSMALLINT cType = 0;
    SQLSMALLINT sqlType = 0;
    SQLULEN size = 1; // in characters, of the column that would hold it
    SQLSMALLINT digits = 0;
    std::vector<BYTE> bytes;
    SQLLEN length = SQL_NULL_DATA;
};

std::vector<BoundValue> BindableValues(const std::vector<ParameterValue>& values, OdbcText text);

void Prepare(OdbcStatement& running, std::wstring_view statement);

// Runs what was prepared, with one value for each question mark; the driver reads them where they
// lie. Throws the driver's error, or one like it when there are more values: drivers do not care.
void ExecuteBound(OdbcStatement& running, std::vector<BoundValue>& values);

} // namespace vndesk::ado
