// SPDX-License-Identifier: MIT
// Brings all rows of an executed statement into memory. Names, where there are any, are those of
// the columns instead of the driver's.
#pragma once

#include <memory>

#include "ado/engine/odbc.h"
#include "ado/engine/row_set.h"

namespace vndesk::ado {

std::shared_ptr<const RowSet> FetchRows(OdbcStatement& statement,
                                        std::vector<std::wstring> names = {});

} // namespace vndesk::ado
