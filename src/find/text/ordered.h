// SPDX-License-Identifier: MIT
// The catalogue statements take their order as a column name.
#pragma once

#include <string>

namespace vndesk {

inline std::wstring Ordered(const std::wstring& statement, const std::wstring& orderColumn) {
    return orderColumn.empty() ? statement : statement + L" Order By " + orderColumn;
}

} // namespace vndesk
