// SPDX-License-Identifier: MIT
// The host's own database, read with ADO by name. Failed calls throw HostError.
#pragma once
#include <string>
#include <vector>

#include "late_bound.h"

using Row = std::vector<_variant_t>;

class HostDatabase {
public:
    explicit HostDatabase(const std::wstring& connect);

    // All rows that a statement gives, with their columns in its order.
    std::vector<Row> Read(const std::wstring& statement);

private:
    LateBound connection_; // closes itself when it goes
};

// All rows of a record set.
std::vector<Row> RowsOf(LateBound records);

// A column as a whole number, 0 when it is empty; and as text, empty when it is empty.
long NumberOf(const _variant_t& value);
std::wstring TextOf(const _variant_t& value);
