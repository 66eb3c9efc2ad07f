// SPDX-License-Identifier: MIT
// Numbers and truth values as drivers write them: decimal point, no blanks, whatever the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vndesk::ado {

std::optional<std::int64_t> ParseInteger(std::string_view text);
std::optional<double> ParseDouble(std::string_view text);
std::optional<bool> ParseBoolean(std::string_view text);

} // namespace vndesk::ado
