// SPDX-License-Identifier: MIT
#include "security/text/permissions.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace vndesk {

namespace {

long ToLong(double value) {
    if (value > std::numeric_limits<std::int32_t>::max())
        throw std::overflow_error("a menu bar carries at most 31 commands");
    return static_cast<long>(std::nearbyint(value));
}

double PowerOfTwo(std::size_t place) {
    return std::ldexp(1.0, static_cast<int>(place));
}

} // namespace

bool IsGranted(long mask, std::size_t place) {
    return (mask & ToLong(PowerOfTwo(place))) != 0;
}

long MaskOf(const std::vector<bool>& ticked) {
    long mask = 0;
    for (std::size_t i = 0; i < ticked.size(); ++i)
        mask = ToLong((ticked[i] ? PowerOfTwo(i) : 0) + static_cast<double>(mask));
    return mask;
}

Statement MenuCommandsStatement(short barId, ValueStyle style) {
    return StatementWriter(style) << L"Select * From SubMenu Where IdMenuBar=" << long{barId}
                                  << L" Order By ID";
}

Statement GroupRightsStatement(long groupCode, ValueStyle style) {
    return StatementWriter(style) << L"Select * From Groups Where Code=" << groupCode;
}

Statement WriteRightsStatement(const std::vector<std::wstring>& columns,
                               const std::vector<long>& masks, long groupCode, ValueStyle style) {
    StatementWriter statement(style);
    statement << L"Update Groups Set ";
    for (std::size_t i = 0; i < columns.size() && i < masks.size(); ++i) {
        if (i > 0)
            statement << L",";
        statement << Reported{columns[i]} << L"=" << masks[i];
    }
    return statement << L" Where Code=" << groupCode;
}

} // namespace vndesk
