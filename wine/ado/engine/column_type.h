// SPDX-License-Identifier: MIT
// How a driver's column type looks to a host.
#pragma once

#include "ado/engine/odbc.h"
#include "ado/engine/row_set.h"

namespace vndesk::ado {

ColumnInfo DescribeColumn(const OdbcColumn& column);

} // namespace vndesk::ado
