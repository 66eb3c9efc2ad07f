// SPDX-License-Identifier: MIT
// Bytes as a driver gives them for a cell, or as the registry gives them for a value. A number is
// only what is written as one.
#include "support/input.h"

#include <cmath>
#include <cstdint>

#include "ado/text/number_cell.h"
#include "data/text/registry_value.h"

namespace vndesk::fuzz {

namespace {

// [+-] digits [. digits] [e [+-] digits]: at most one sign each.
bool LooksLikeNumber(std::string_view text) {
    const auto take = [&text](std::string_view allowed) {
        const bool has = !text.empty() && allowed.find(text.front()) != std::string_view::npos;
        text.remove_prefix(has);
        return has;
    };
    const auto digits = [&take] {
        bool any = false;
        while (take("0123456789"))
            any = true;
        return any;
    };
    take("+-");
    bool any = digits();
    if (take("."))
        any = digits() || any;
    if (any && take("eE")) {
        take("+-");
        any = digits();
    }
    return any && text.empty();
}

void CheckRegistry(std::string_view data) {
    const std::string_view kept = WithoutFinalZero(data);
    MUST(data.size() - kept.size() <= 1 && data.starts_with(kept));
    const std::wstring text = NumberText(data);
    MUST(text.empty() == (data.empty() || data.size() > 4));
    if (text.empty())
        return;
    const auto number = static_cast<std::uint32_t>(std::stol(text));
    for (std::size_t i = 0; i < 4; ++i) {
        const unsigned wanted = i < data.size() ? static_cast<unsigned char>(data[i]) : 0;
        MUST((number >> (8 * i) & 0xFF) == wanted);
    }
}

} // namespace

void RunOne(Input& input) {
    const std::string_view text = input.Bytes();
    const auto integer = ado::ParseInteger(text);
    const auto number = ado::ParseDouble(text);
    MUST(!integer || (number && LooksLikeNumber(text)));
    if (integer)
        MUST(ado::ParseInteger(std::to_string(*integer)) == integer);
    if (number) {
        MUST(std::isfinite(*number) && LooksLikeNumber(text));
        MUST(*number == std::strtod(std::string(text).c_str(), nullptr));
        MUST(ado::ParseBoolean(text) == (*number != 0));
    }
    CheckRegistry(text);
}

} // namespace vndesk::fuzz
