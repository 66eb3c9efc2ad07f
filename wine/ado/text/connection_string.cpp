// SPDX-License-Identifier: MIT
#include "ado/text/connection_string.h"

#include <cstddef>
#include <stdexcept>

#include "text/ascii_text.h"

namespace vndesk::ado {

namespace {

constexpr std::size_t kNone = std::wstring_view::npos;

struct KeyMapping {
    std::wstring_view given;
    std::wstring_view odbc; // empty: only OLE DB knows it
};

constexpr KeyMapping kKeys[] = {{L"Provider", L""},
                                {L"Persist Security Info", L""},
                                {L"Extended Properties", L""},
                                {L"Mode", L""},
                                {L"Connect Timeout", L""},
                                {L"OLE DB Services", L""},
                                {L"User ID", L"UID"},
                                {L"User", L"UID"},
                                {L"Password", L"PWD"},
                                {L"Data Source", L"DSN"},
                                {L"Initial Catalog", L"DATABASE"}};

std::wstring_view OdbcKey(std::wstring_view key) {
    for (const auto& [given, odbc] : kKeys)
        if (EqualsIgnoringCase(key, given))
            return odbc;
    return key;
}

// The closing character of a value that starts with `opening`, or 0.
wchar_t ClosingOf(wchar_t opening) {
    return opening == L'{' ? L'}' : opening == L'"' || opening == L'\'' ? opening : L'\0';
}

// Reads a quoted value; `position` stands on the opening character and moves past the closing one.
std::wstring ReadQuoted(std::wstring_view text, std::size_t& position, wchar_t closing) {
    std::wstring value;
    for (++position; position < text.size(); ++position) {
        if (text[position] == closing) {
            if (position + 1 >= text.size() || text[position + 1] != closing) {
                ++position;
                return value;
            }
            ++position;
        }
        value += text[position];
    }
    throw std::invalid_argument("unclosed value in a connection string");
}

} // namespace

ConnectionString::ConnectionString(std::wstring_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t end = text.find(L';', position);
        const std::size_t equals = text.find(L'=', position);
        if (equals == kNone || (end != kNone && end < equals)) {
            const std::size_t length = end == kNone ? kNone : end - position;
            if (!TrimBlanks(text.substr(position, length)).empty())
                throw std::invalid_argument("no value in an item of a connection string");
            if (end == kNone)
                break;
            position = end + 1;
            continue;
        }
        const std::wstring_view key = TrimBlanks(text.substr(position, equals - position));
        position = equals + 1;
        while (position < text.size() && text[position] == L' ')
            ++position;
        std::wstring value;
        const wchar_t closing = position < text.size() ? ClosingOf(text[position]) : L'\0';
        if (closing)
            value = ReadQuoted(text, position, closing);
        const std::size_t rest = text.find(L';', position);
        if (!closing)
            value = TrimBlanks(text.substr(position, rest == kNone ? kNone : rest - position));
        items_.push_back({std::wstring(key), std::move(value)});
        if (rest == kNone)
            break;
        position = rest + 1;
    }
}

std::size_t ConnectionString::Find(std::wstring_view key) const {
    for (std::size_t i = items_.size(); i-- > 0;)
        if (EqualsIgnoringCase(items_[i].key, key))
            return i;
    return items_.size();
}

std::wstring_view ConnectionString::Value(std::wstring_view key) const {
    const std::size_t i = Find(key);
    return i < items_.size() ? std::wstring_view(items_[i].value) : std::wstring_view();
}

bool ConnectionString::Has(std::wstring_view key) const {
    return Find(key) < items_.size();
}

void ConnectionString::Set(std::wstring_view key, std::wstring_view value) {
    const std::size_t i = Find(key);
    if (i < items_.size())
        items_[i].value = value;
    else
        items_.push_back({std::wstring(key), std::wstring(value)});
}

std::wstring_view TrimProvider(std::wstring_view provider) {
    while (!provider.empty() && (provider.back() == L';' || provider.back() == L' '))
        provider.remove_suffix(1);
    return TrimBlanks(provider);
}

ProviderKind KindOfProvider(std::wstring_view provider) {
    const std::wstring_view name = TrimProvider(provider);
    if (name.empty() || EqualsIgnoringCase(name, L"MSDASQL") ||
        EqualsIgnoringCase(name, L"MSDASQL.1"))
        return ProviderKind::Odbc;
    if (EqualsIgnoringCase(name, L"Microsoft.Jet.OLEDB.4.0"))
        return ProviderKind::Jet;
    return ProviderKind::Unknown;
}

ConnectionString OdbcConnectionString(const ConnectionString& given, std::wstring_view user,
                                      std::wstring_view password) {
    ConnectionString result;
    const ConnectionString inner(given.Value(L"Extended Properties"));
    for (const ConnectionString* part : {&given, &inner})
        for (const ConnectionItem& item : part->Items()) {
            const std::wstring_view key = OdbcKey(item.key);
            if (!key.empty())
                result.Set(key, item.value);
        }
    if (!user.empty())
        result.Set(L"UID", user);
    if (!password.empty())
        result.Set(L"PWD", password);
    return result;
}

std::wstring FormatOdbc(const ConnectionString& string) {
    std::wstring text;
    for (const auto& [key, value] : string.Items()) {
        if (!text.empty())
            text += L';';
        // Some drivers take braces for part of the value: only where they are needed.
        const bool plain = value.find_first_of(L";{}") == kNone &&
                           TrimBlanks(value).size() == value.size() &&
                           !EqualsIgnoringCase(key, L"Driver");
        text += key + L"=";
        text += plain ? value : L"{" + ReplaceEach(value, L'}', L"}}") + L"}";
    }
    return text;
}

} // namespace vndesk::ado
