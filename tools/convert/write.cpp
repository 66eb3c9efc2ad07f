// SPDX-License-Identifier: MIT
#include "convert/write.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "comkit/base/bstr.h"
#include "comkit/base/com_error.h"
#include "convert/prepared_update.h"
#include "data/connect/failure.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "text/ascii_text.h"

namespace vndesk::convert {

namespace {

constexpr std::size_t kTellings = 10;
constexpr long kLongestText = 4000; // that every provider takes as adVarWChar

_variant_t TextValue(const std::wstring& text) {
    _variant_t value;
    V_BSTR(&value) = ToBstr(text);
    V_VT(&value) = VT_BSTR;
    return value;
}

// Whether the row is to be found by what it held, too. In SQLite nobody writes while a transaction
// that has read is open; SQL Server and Jet have long texts that a condition cannot compare.
bool IsCompared(const Column& column, Engine engine) {
    const bool isLong = column.type == adLongVarWChar;
    return engine != Engine::Sqlite &&
           !(isLong && (engine == Engine::SqlServer || engine == Engine::Jet));
}

// Rows in which the same columns change share a statement.
using Places = std::vector<std::size_t>;

Places PlacesOf(const Change& change) {
    Places places;
    for (const NewText& text : change.texts)
        places.push_back(text.column);
    return places;
}

// Update T Set a=?,b=? Where key=? And a=? And b=?, so that what somebody else has written since
// the row was read is not written over.
class RowUpdate {
public:
    RowUpdate(const Database& database, const Table& table, const Places& places,
              const std::vector<const Change*>& changes)
        : table_(table), update_(database.connection, Statement(table, places),
                                 Parameters(table, places, changes)) {}

    long Run(const Change& change) {
        std::size_t parameter = 0;
        for (const NewText& text : change.texts)
            update_.Set(parameter++, TextValue(text.after));
        for (const _variant_t& value : change.key)
            update_.Set(parameter++, value);
        for (const NewText& text : change.texts)
            if (IsCompared(table_.columns[text.column], table_.engine))
                update_.Set(parameter++, TextValue(text.before));
        return update_.Run();
    }

private:
    static std::wstring Statement(const Table& table, const Places& places) {
        std::wstring list, condition;
        for (const std::size_t place : places)
            list += (list.empty() ? L"" : L",") + Given(table, table.columns[place]);
        for (const Column& key : table.keys)
            condition += (condition.empty() ? L"" : L" And ") + Given(table, key);
        for (const std::size_t place : places)
            if (IsCompared(table.columns[place], table.engine))
                condition += L" And " + Given(table, table.columns[place]);
        return L"Update " + table.Quoted(table.name) + L" Set " + list + L" Where " + condition;
    }

    static std::wstring Given(const Table& table, const Column& column) {
        return table.Quoted(column.name) + L"=?";
    }

    static std::vector<Column> Parameters(const Table& table, const Places& places,
                                          const std::vector<const Change*>& changes) {
        long longest = 1;
        std::vector<Column> keys = table.keys;
        for (const Change* change : changes) {
            for (const NewText& text : change->texts)
                longest = std::max(
                    longest, static_cast<long>(std::max(text.before.size(), text.after.size())));
            for (std::size_t i = 0; i < keys.size(); ++i)
                if (V_VT(&change->key[i]) == VT_BSTR)
                    keys[i].size = std::max(
                        keys[i].size, static_cast<long>(SysStringLen(V_BSTR(&change->key[i]))));
        }
        const Column text = {{}, longest > kLongestText ? adLongVarWChar : adVarWChar, longest};
        std::vector<Column> parameters(places.size(), text);
        parameters.insert(parameters.end(), keys.begin(), keys.end());
        for (const std::size_t place : places)
            if (IsCompared(table.columns[place], table.engine))
                parameters.push_back(text);
        return parameters;
    }

    const Table& table_;
    PreparedUpdate update_;
};

// Blanks at the end come and go in columns of a fixed length.
std::wstring_view WithoutEnd(std::wstring_view text) {
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

// A column of the key may be one of those that change.
Values KeyAfter(const Table& table, const Change& change) {
    Values key = change.key;
    for (std::size_t i = 0; i < key.size(); ++i)
        for (const NewText& text : change.texts)
            if (table.columns[text.column].name == table.keys[i].name)
                key[i] = TextValue(text.after);
    return key;
}

} // namespace

void WriteChanges(const Database& database, const Table& table, const Changes& changes,
                  const Tell& tell) {
    std::map<Places, std::vector<const Change*>> groups;
    for (const Change& change : changes.rows)
        groups[PlacesOf(change)].push_back(&change);
    const std::size_t all = changes.rows.size();
    std::size_t written = 0;
    for (const auto& [places, group] : groups) {
        std::optional<RowUpdate> update;
        for (const Change* change : group) {
            long changed = 0;
            const ErrorState error = Trap([&] {
                if (!update)
                    update.emplace(database, table, places, group);
                changed = update->Run(*change);
            });
            const std::wstring row =
                error || changed != 1 ? ShownKey(table.keys, change->key) : L"";
            if (error)
                throw Refusal{Message::WriteFailed, {row, ShownText(database, error.description)}};
            if (changed == 0)
                throw Refusal{Message::RowChanged, {row}};
            if (changed > 1)
                throw Refusal{Message::KeyNotUnique, {row}};
            ++written;
            if (written * kTellings / all != (written - 1) * kTellings / all)
                tell(Message::RowsWritten, {std::to_wstring(written), std::to_wstring(all)});
        }
    }
}

void VerifyChanges(const Database& database, const Table& table, const Changes& changes) {
    struct Wanted {
        const Change* change;
        bool seen = false;
    };
    std::unordered_map<std::wstring, Wanted> wanted;
    wanted.reserve(changes.rows.size());
    for (const Change& change : changes.rows)
        if (!wanted.emplace(KeyText(KeyAfter(table, change)), Wanted{&change}).second)
            throw Refusal{Message::KeyNotUnique, {ShownKey(table.keys, change.key)}};
    Recordset rows;
    rows.Create(database);
    rows.Open(table.ReadingStatement());
    for (; !rows.Eof(); rows.MoveNext()) {
        Values key;
        for (std::size_t i = 0; i < table.keys.size(); ++i)
            key.push_back(rows.Value(static_cast<long>(i)));
        const auto found = wanted.find(KeyText(key));
        if (found == wanted.end())
            continue;
        // Keys that differ in the database may come as the same number.
        if (std::exchange(found->second.seen, true))
            throw Refusal{Message::KeyNotUnique, {ShownKey(table.keys, key)}};
        for (const NewText& text : found->second.change->texts) {
            const _variant_t value = rows.Value(static_cast<long>(key.size() + text.column));
            if (WithoutEnd(NullToText(value)) != WithoutEnd(text.after))
                throw Refusal{Message::NotKept,
                              {ShownKey(table.keys, key), table.columns[text.column].name}};
        }
    }
    rows.Close();
    for (const auto& [key, row] : wanted)
        if (!row.seen)
            throw Refusal{Message::RowChanged, {ShownKey(table.keys, row.change->key)}};
}

} // namespace vndesk::convert
