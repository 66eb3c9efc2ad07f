// SPDX-License-Identifier: MIT
// Fills a combo or list from the first two columns of a statement: the first as item data, the
// second as text.
#pragma once

#include <string>

#include "comkit/base/com_error.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "find/text/ordered.h"

namespace vndesk {

// Item data is what the list keeps: the value itself, a text or a number.
template <class Combo> void SetItemDataFrom(Combo& combo, long index, const VARIANT& value) {
    if constexpr (requires { combo.SetItemData(index, value); })
        combo.SetItemData(index, value);
    else if constexpr (requires { combo.SetItemData(index, std::wstring()); })
        combo.SetItemData(index, NullToText(value));
    else
        combo.SetItemData(index, NullToInteger(value));
}

// `Combo` has the members of LateBoundList. When the statement fails the combo keeps its items and
// its selection.
template <class Combo>
void FillCombo(const Database& database, Combo& combo, const Statement& statement,
               const std::wstring& orderColumn) {
    Trap([&] {
        Recordset rows;
        if (OpenRecordset(database, rows, Ordered(statement, orderColumn, database.Style())) != 0)
            return;
        const long selected = combo.ListIndex();
        combo.Clear();
        // Stops at a row that cannot be read: an item without its value would be wrong, and items
        // belong to rows by their position.
        Trap([&] {
            for (; !rows.Eof(); rows.MoveNext()) {
                const _variant_t text = rows.Value(1L);
                const _variant_t value = rows.Value(0L);
                // A row that the list refuses does not keep the others out, and leaves its value
                // to none of them.
                Trap([&] {
                    combo.AddItem(NullToText(text));
                    SetItemDataFrom(combo, combo.NewIndex(), value);
                });
            }
        });
        combo.SetListIndex(selected < combo.ListCount() ? selected : 0);
    });
}

} // namespace vndesk
