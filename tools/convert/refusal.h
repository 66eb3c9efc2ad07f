// SPDX-License-Identifier: MIT
// What keeps a conversion from being made. Thrown.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "convert/texts.h"

namespace vndesk::convert {

struct Refusal {
    Message message;
    std::vector<std::wstring> values;
};

// Says something on the way.
using Tell = std::function<void(Message, const std::vector<std::wstring>&)>;

} // namespace vndesk::convert
