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

std::wstring MenuCommandsStatement(short barId) {
    return L"Select * From SubMenu Where IdMenuBar=" + std::to_wstring(barId) + L" Order By ID";
}

std::wstring GroupRightsStatement(long groupCode) {
    return L"Select * From Groups Where Code=" + std::to_wstring(groupCode);
}

std::wstring WriteRightsStatement(const std::vector<std::wstring>& columns,
                                  const std::vector<long>& masks, long groupCode) {
    std::wstring pairs;
    for (std::size_t i = 0; i < columns.size() && i < masks.size(); ++i) {
        if (i > 0)
            pairs += L',';
        pairs += columns[i] + L"=" + std::to_wstring(masks[i]);
    }
    return L"Update Groups Set " + pairs + L" Where Code=" + std::to_wstring(groupCode);
}

} // namespace vndesk
