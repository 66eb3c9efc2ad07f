// SPDX-License-Identifier: MIT
// The command line of vndesk-convert.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/language.h"
#include "text/encodings/encoding.h"

namespace vndesk::convert {

enum class Action { Table, File, Help, Version };

struct Options {
    Action action = Action::Table;
    std::optional<console::Language> language; // the user's where none is given
    Encoding from = Encoding::Tcvn3;
    bool dryRun = false;
    // A table.
    std::wstring connectionString; // "-" stands for the standard input
    std::wstring table;
    std::vector<std::wstring> columns;
    std::vector<std::wstring> keys; // none: those of the catalogue
    std::wstring report;
    // A text file.
    std::wstring in, out;
    bool mark = false; // of UTF-8 at the beginning
    // The first word that is not understood, without what may be a secret in it; or what is
    // missing.
    std::wstring wrong;
    std::wstring missing;
};

Options ParseOptions(const std::vector<std::wstring_view>& words);

} // namespace vndesk::convert
