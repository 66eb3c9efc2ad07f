// SPDX-License-Identifier: MIT
#include "ado/text/number_cell.h"

#include <charconv>

namespace vndesk::ado {

namespace {

template <class Number> std::optional<Number> Parse(std::string_view text) {
    // The standard function reads a minus, but no plus.
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    return Parse<std::int64_t>(text);
}

std::optional<double> ParseDouble(std::string_view text) {
    // "inf" and "nan" are words here, not numbers.
    for (const char ch : text)
        if (ch != '+' && ch != '-') {
            if ((ch < '0' || ch > '9') && ch != '.')
                return std::nullopt;
            break;
        }
    return Parse<double>(text);
}

std::optional<bool> ParseBoolean(std::string_view text) {
    if (text == "t" || text == "true" || text == "TRUE" || text == "True")
        return true;
    if (text == "f" || text == "false" || text == "FALSE" || text == "False")
        return false;
    if (const auto number = ParseDouble(text))
        return *number != 0;
    // MariaDB's bits are bytes.
    if (text.size() == 1 && (text[0] == 0 || text[0] == 1))
        return text[0] == 1;
    return std::nullopt;
}

} // namespace vndesk::ado
