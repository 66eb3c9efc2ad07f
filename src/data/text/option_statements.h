// SPDX-License-Identifier: MIT
// The statements that read and write one named setting of the Options table.
#pragma once

#include <string>
#include <string_view>

#include "data/text/literals.h"

namespace vndesk {

struct OptionName {
    std::wstring_view section;
    std::wstring_view key;
};

std::wstring ReadOptionStatement(OptionName name, DatabaseKind dbKind);
std::wstring FindOptionStatement(OptionName name, DatabaseKind dbKind);

// An empty description is left out; any other is stored with one trailing blank.
std::wstring InsertOptionStatement(OptionName name, std::wstring_view value,
                                   std::wstring_view description, DatabaseKind dbKind);
std::wstring UpdateOptionStatement(OptionName name, std::wstring_view value,
                                   std::wstring_view description, DatabaseKind dbKind);

} // namespace vndesk
