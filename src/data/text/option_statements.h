// SPDX-License-Identifier: MIT
// The statements that read and write one named setting of the Options table.
#pragma once

#include <string>
#include <string_view>

#include "data/text/statement.h"

namespace vndesk {

struct OptionName {
    std::wstring_view section;
    std::wstring_view key;
};

Statement ReadOptionStatement(OptionName name, ValueStyle style);
Statement FindOptionStatement(OptionName name, ValueStyle style);

// An empty description is left out; any other is stored with one trailing blank.
Statement InsertOptionStatement(OptionName name, std::wstring_view value,
                                std::wstring_view description, ValueStyle style);
Statement UpdateOptionStatement(OptionName name, std::wstring_view value,
                                std::wstring_view description, ValueStyle style);

} // namespace vndesk
