// SPDX-License-Identifier: MIT
// Lines of search conditions over the customers, and the rows that a condition finds.
#pragma once

#include "data/data_fixture.h"

#include <algorithm>
#include <vector>

#include "find/text/condition.h"

namespace vndesk::test {

// The numbers in the keys KH001, KH002, ...
using Keys = std::vector<int>;

inline constexpr int kCustomers = 31;
inline constexpr int kWithoutData = 31; // no province, address and date

inline Keys AllBut(Keys left) {
    Keys keys;
    for (int key = 1; key <= kCustomers; ++key)
        if (std::find(left.begin(), left.end(), key) == left.end())
            keys.push_back(key);
    return keys;
}

inline ConditionLine Line(const wchar_t* field, long type, const wchar_t* op,
                          const wchar_t* value) {
    ConditionLine line;
    line.fieldIndex = line.operatorIndex = 0;
    line.fieldName = field;
    line.fieldType = type;
    line.operatorName = op;
    line.value = value;
    line.joinName = L"and";
    return line;
}

inline Keys CustomersWhere(const Database& database, Statement condition) {
    condition.text = L"Select MaKH From KhachHang Where " + condition.text + L" Order By MaKH";
    Recordset rows;
    rows.Create(database);
    rows.Open(condition);
    Keys keys;
    for (; !rows.Eof(); rows.MoveNext())
        keys.push_back(_wtoi(static_cast<const wchar_t*>(_bstr_t(rows.Value(0L))) + 2));
    return keys;
}

} // namespace vndesk::test
