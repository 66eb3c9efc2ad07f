// SPDX-License-Identifier: MIT
// Record sets on an opened database: opened on statement text, walked once, counted.
#pragma once

#include <comutil.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "data/connect/ado.h"
#include "data/connect/database.h"

namespace vndesk {

// A record set and its fields. Failures of ADO are thrown as ComError with the provider's
// description.
class Recordset {
public:
    Recordset() = default;

    // Replaces the record set by a new, unopened one on the database.
    void Create(const Database& database);
    void Open(const Statement& statement);
    void Close();

    bool Eof();
    void MoveFirst();
    void MoveNext();
    void MoveLast();

    _variant_t Value(long index);
    _variant_t Value(const wchar_t* name);
    std::wstring FieldName(long index);
    long FieldCount();

private:
    _Recordset& Ado();
    void Check(HRESULT code);
    ComPtr<Fields> AllFields();
    ComPtr<Field> FieldOf(const _variant_t& item);
    _variant_t Value(Field& field);
    void ForgetFields();

    AdoConnection connection_;
    AdoRecordset recordset_;
    // Asked for once: every value goes through them, and a column's field follows the current row.
    ComPtr<Fields> fields_;
    std::vector<ComPtr<Field>> columns_;
    std::map<std::wstring, ComPtr<Field>, std::less<>> named_;
};

// What the user is told where nothing can be read. After a write, a host that is told of lost
// answers is also told that it was made: the provider's words alone may be taken for its failure.
enum class Failure { Shown, ShownAfterWrite, Ignored };

// Opens a new record set on a statement. A failure is shown in a plain message with the provider's
// description, and its error number is returned; 0 is success. Callers that say more about a
// failure get the description too.
long OpenRecordset(const Database& database, Recordset& recordset, const Statement& statement,
                   std::wstring* description = nullptr, Failure failure = Failure::Shown);

// Counts the rows by walking them, for providers that do not know, and leaves the first one
// current. If a row cannot be reached, those before it count.
long CountRecords(Recordset& recordset);

// The last value of a column in ascending order, which after an insert is the newest code; 0 when
// there is none, and after a failure.
long LastValue(const Database& database, std::wstring_view table, std::wstring_view column,
               Failure failure = Failure::Shown);

} // namespace vndesk
