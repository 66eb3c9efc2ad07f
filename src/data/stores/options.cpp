// SPDX-License-Identifier: MIT
#include "data/stores/options.h"

#include "comkit/base/com_error.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// A failed look-up counts as found: the update after it reports what is wrong with the table.
bool IsThere(const Database& database, OptionName name) {
    Recordset rows;
    return OpenRecordset(database, rows, FindOptionStatement(name, database.Style())) != 0 ||
           CountRecords(rows) > 0;
}

} // namespace

std::wstring GetOption(const Database& database, OptionName name, std::wstring_view otherwise) {
    std::wstring value;
    Trap([&] {
        Recordset rows;
        if (OpenRecordset(database, rows, ReadOptionStatement(name, database.Style())) == 0 &&
            !rows.Eof())
            value = NullToText(rows.Value(L"KeyValue"));
    });
    return value.empty() ? std::wstring(otherwise) : value;
}

long SetOption(const Database& database, OptionName name, std::wstring_view value,
               std::wstring_view description, bool insertOnly) {
    const bool found = !insertOnly && IsThere(database, name);
    const auto statement = found ? UpdateOptionStatement : InsertOptionStatement;
    const ErrorState error =
        Trap([&] { Execute(database, statement(name, value, description, database.Style())); });
    if (error)
        PlainMessage(ToUncText(texts::kOptionsNotSaved, kToUnicode) + std::wstring(name.section) +
                         L"-" + std::wstring(name.key) +
                         ToUncText(texts::kOptionsErrorIs, kToUnicode) + error.description,
                     L"");
    return error.code;
}

} // namespace vndesk
