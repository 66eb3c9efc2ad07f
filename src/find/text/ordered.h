// SPDX-License-Identifier: MIT
// The catalogue statements take their order as a column name.
#pragma once

#include <string>

#include "data/text/statement.h"

namespace vndesk {

inline Statement Ordered(Statement statement, const std::wstring& orderColumn) {
    if (!orderColumn.empty())
        statement.text += L" Order By " + orderColumn;
    return statement;
}

} // namespace vndesk
