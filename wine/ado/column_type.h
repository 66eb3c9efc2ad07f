// SPDX-License-Identifier: MIT
// What a column of a driver is to a host.
#pragma once

#include "ado/odbc.h"
#include "ado/row_set.h"

namespace vndesk::ado {

ColumnInfo DescribeColumn(const OdbcColumn& column);

} // namespace vndesk::ado
