// SPDX-License-Identifier: MIT
// The catalogue statements take their order as a column name.
#pragma once

#include <string>

#include "data/text/statement.h"

namespace vndesk {

inline Statement Ordered(const Statement& statement, const std::wstring& orderColumn,
                         ValueStyle style = {}) {
    if (orderColumn.empty())
        return statement;
    return statement + OwnStatement(L" Order By " + orderColumn, style).text;
}

} // namespace vndesk
