// SPDX-License-Identifier: MIT
#include "data/text/registry_value.h"

#include <cstdint>

namespace vndesk {

std::string_view WithoutFinalZero(std::string_view data) {
    if (!data.empty() && data.back() == '\0')
        data.remove_suffix(1);
    return data;
}

std::wstring NumberText(std::string_view data) {
    if (data.empty() || data.size() > sizeof(std::uint32_t))
        return {};
    std::uint32_t number = 0;
    for (std::size_t i = data.size(); i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(data[i]);
    return std::to_wstring(static_cast<std::int32_t>(number));
}

} // namespace vndesk
