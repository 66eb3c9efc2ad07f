// SPDX-License-Identifier: MIT
// The catalogue statements take their order as a column name.
#pragma once

#include <string>

#include "data/text/statement.h"

namespace vndesk {

inline Statement Ordered(const Statement& statement, const std::wstring& orderColumn) {
    return orderColumn.empty() ? statement : statement + (L" Order By " + orderColumn);
}

} // namespace vndesk
