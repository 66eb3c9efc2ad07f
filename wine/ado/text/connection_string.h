// SPDX-License-Identifier: MIT
// Connection strings: reading them, and turning what hosts write into what ODBC reads.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vndesk::ado {

struct ConnectionItem {
    std::wstring key;
    std::wstring value;
};

// Values may stand in {..}, "..." or '...'. Throws std::invalid_argument when an item has no "=" or
// a quote is never closed.
class ConnectionString {
public:
    ConnectionString() = default;
    explicit ConnectionString(std::wstring_view text);

    // Empty when the key is missing. Keys compare without regard to case; the last one counts.
    std::wstring_view Value(std::wstring_view key) const;
    bool Has(std::wstring_view key) const;
    // Replaces the key's value, or adds the key at the end.
    void Set(std::wstring_view key, std::wstring_view value);
    const std::vector<ConnectionItem>& Items() const { return items_; }

private:
    // The last one with the key; the number of items when there is none.
    std::size_t Find(std::wstring_view key) const;

    std::vector<ConnectionItem> items_;
};

enum class ProviderKind { Jet, Odbc, Unknown };

// An empty name is ADO's default, ODBC. A trailing semicolon does not matter.
ProviderKind KindOfProvider(std::wstring_view provider);

// A provider's name without the blanks and semicolons around it.
std::wstring_view TrimProvider(std::wstring_view provider);

// What ODBC gets: OLE DB's names for common keys become ODBC's, keys that only OLE DB knows are
// left out, the ODBC string inside "Extended Properties" is opened. `user` and `password` win over
// the string's when they are not empty.
ConnectionString OdbcConnectionString(const ConnectionString& given, std::wstring_view user,
                                      std::wstring_view password);

// The text that a driver manager reads.
std::wstring FormatOdbc(const ConnectionString& string);

} // namespace vndesk::ado
