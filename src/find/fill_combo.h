// SPDX-License-Identifier: MIT
// Fills a combo or list from the first two columns of a statement: the code as item data, the
// second as text.
#pragma once

#include <string>

#include "com/kit/com_error.h"
#include "data/recordset.h"
#include "data/values.h"
#include "find/ordered.h"

namespace vndesk {

// `Combo` has the members of LateBoundList. When the statement fails the combo keeps its items and
// its selection.
template <class Combo>
void FillCombo(const Database& database, Combo& combo, const std::wstring& statement,
               const std::wstring& orderColumn) {
    Trap([&] {
        Recordset rows;
        if (OpenRecordset(database, rows, Ordered(statement, orderColumn)) != 0)
            return;
        const long selected = combo.ListIndex();
        combo.Clear();
        for (; !rows.Eof(); rows.MoveNext()) {
            // A row that the list refuses does not keep the others out.
            Trap([&] { combo.AddItem(NullToText(rows.Value(1L))); });
            Trap([&] { combo.SetItemData(combo.NewIndex(), NullToInteger(rows.Value(0L))); });
        }
        combo.SetListIndex(selected < combo.ListCount() ? selected : 0);
    });
}

} // namespace vndesk
