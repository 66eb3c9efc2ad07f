// SPDX-License-Identifier: MIT
// Brings all rows of an executed statement into memory.
#pragma once

#include <memory>

#include "ado/odbc.h"
#include "ado/row_set.h"

namespace vndesk::ado {

std::shared_ptr<const RowSet> FetchRows(OdbcStatement& statement);

} // namespace vndesk::ado
