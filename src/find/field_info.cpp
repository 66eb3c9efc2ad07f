// SPDX-License-Identifier: MIT
#include "find/field_info.h"

#include "comkit/base/com_error.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "find/text/ordered.h"

namespace vndesk {

FieldInfo ReadFieldInfo(const Database& database, const Statement& statement,
                        const std::wstring& orderColumn) {
    FieldInfo fields;
    Trap([&] {
        Recordset rows;
        OpenRecordset(database, rows, Ordered(statement, orderColumn, database.Style()));
        const auto count = static_cast<size_t>(CountRecords(rows));
        fields.FieldRelation.resize(count + 1);
        fields.FieldType.resize(count + 1);
        rows.MoveFirst();
        for (size_t i = 0; i < count && !rows.Eof(); ++i, rows.MoveNext()) {
            Trap([&] { fields.FieldRelation[i] = NullToText(rows.Value(L"Relation")); });
            Trap([&] { fields.FieldType[i] = NullToInteger(rows.Value(L"Type")); });
        }
    });
    return fields;
}

} // namespace vndesk
