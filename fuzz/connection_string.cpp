// SPDX-License-Identifier: MIT
// A user, a password, then a connection string. What is read can be written and read again, and the
// string for the driver has each key once.
#include "support/input.h"

#include <algorithm>
#include <stdexcept>

#include "ado/text/connection_string.h"
#include "text/ascii_text.h"

namespace vndesk::fuzz {

namespace {

using ado::ConnectionItem;
using ado::ConnectionString;

// Drivers take quotes for part of a value, hosts' strings take them for its marks.
bool BeginsWithQuote(const ConnectionItem& item) {
    return item.value.starts_with(L'"') || item.value.starts_with(L'\'');
}

bool SameItem(const ConnectionItem& one, const ConnectionItem& other) {
    return one.key == other.key && one.value == other.value;
}

void CheckWriting(const ConnectionString& string) {
    const auto& items = string.Items();
    if (std::any_of(items.begin(), items.end(), BeginsWithQuote))
        return;
    const ConnectionString again(FormatOdbc(string));
    MUST(std::equal(items.begin(), items.end(), again.Items().begin(), again.Items().end(),
                    SameItem));
}

void CheckKeys(ConnectionString string) {
    const std::vector<ConnectionItem> items = string.Items();
    for (const ConnectionItem& item : items) {
        MUST(TrimBlanks(item.key) == item.key);
        MUST(string.Has(item.key));
        string.Set(item.key, L"new; {value}");
        MUST(string.Value(item.key) == L"new; {value}");
    }
    MUST(string.Items().size() == items.size());
}

} // namespace

void RunOne(Input& input) {
    const std::wstring user = input.Text(), password = input.Text(), text = input.RestText();
    try {
        const ConnectionString given(text);
        MUST(given.Items().size() <= text.size() / 2 + 1);
        CheckWriting(given);
        CheckKeys(given);
        const ConnectionString odbc = OdbcConnectionString(given, user, password);
        MUST(user.empty() || odbc.Value(L"UID") == user);
        MUST(password.empty() || odbc.Value(L"PWD") == password);
        MUST(!odbc.Has(L"Provider") && !odbc.Has(L"Data Source"));
        const auto& items = odbc.Items();
        for (std::size_t i = 0; i < items.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                MUST(!EqualsIgnoringCase(items[i].key, items[j].key));
        CheckWriting(odbc);
    } catch (const std::invalid_argument&) {
    }
    const std::wstring_view provider = ado::TrimProvider(text);
    MUST(ado::TrimProvider(provider) == provider);
    MUST(ado::KindOfProvider(provider) == ado::KindOfProvider(text));
}

} // namespace vndesk::fuzz
