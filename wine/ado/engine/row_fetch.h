// SPDX-License-Identifier: MIT
// Brings all rows of an executed statement into memory.
#pragma once

#include <memory>

#include "ado/engine/odbc.h"
#include "ado/engine/row_set.h"

namespace vndesk::ado {

std::shared_ptr<const RowSet> FetchRows(OdbcStatement& statement);

} // namespace vndesk::ado
