// SPDX-License-Identifier: MIT
// The names and passwords in a connection string, and texts that may be shown: without them. Where
// OLE DB, ODBC and the drivers read a string differently, rather more is hidden than less.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vndesk {

class Secrets {
public:
    // Knows no values: hides those that stand behind the keys of a text only.
    Secrets() = default;
    explicit Secrets(std::wstring_view connectionString);

    // The text with *** in place of what stands behind Password, Pwd, User ID, UID and the like,
    // and wherever it repeats what stood behind them in the connection string.
    std::wstring Hide(std::wstring_view text) const;

private:
    std::vector<std::wstring> values_;
};

} // namespace vndesk
