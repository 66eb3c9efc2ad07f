// SPDX-License-Identifier: MIT
// What the find dialog needs of each searchable field besides its caption.
#pragma once

#include <string>
#include <vector>

#include "data/connect/database.h"

namespace vndesk {

// Parallel arrays in catalogue order, with one spare entry at the end.
struct FieldInfo {
    std::vector<long> FieldType;
    std::vector<std::wstring> FieldRelation;
};

// Reads the columns "Type" and "Relation" of a statement's rows. Never fails: what cannot be read
// is 0 or empty.
FieldInfo ReadFieldInfo(const Database& database, const Statement& statement,
                        const std::wstring& orderColumn);

} // namespace vndesk
