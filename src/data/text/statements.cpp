// SPDX-License-Identifier: MIT
// Patches lists inside statement text by position.
#include "data/text/statements.h"

#include "text/ascii_text.h"

#include <stdexcept>

namespace vndesk {

namespace {

constexpr auto kNone = std::wstring_view::npos;

void InsertBefore(std::wstring& text, std::size_t position, const std::wstring& inserted) {
    if (position == kNone)
        throw std::invalid_argument("the statement has no column list with values");
    text.insert(position, inserted);
}

} // namespace

std::wstring AddInsertColumn(std::wstring_view statement, std::wstring_view column,
                             std::wstring_view value, DatabaseKind dbKind) {
    const std::size_t values = FindIgnoringCase(statement, L"VALUES");
    const std::size_t columnsEnd = values == kNone ? kNone : statement.rfind(L')', values);
    std::wstring result(statement);
    InsertBefore(result, columnsEnd, L"," + std::wstring(column));
    InsertBefore(result, result.rfind(L')'), L"," + FieldValue(value, kFieldText, dbKind));
    return result;
}

std::wstring AddUpdateAssignment(std::wstring_view statement, std::wstring_view column,
                                 std::wstring_view value, DatabaseKind dbKind) {
    const std::size_t set = FindIgnoringCase(statement, L"SET");
    if (set == kNone)
        return {};
    // SET and the character after it, normally a blank.
    const std::wstring_view head = statement.substr(0, set + 4);
    std::wstring result(head);
    result.append(column).append(L"=").append(FieldValue(value, kFieldText, dbKind)).append(L",");
    return result.append(statement.substr(head.size()));
}

std::wstring LastValueStatement(std::wstring_view table, std::wstring_view column) {
    std::wstring result = L"Select  [";
    result.append(column).append(L"]  from [").append(table);
    return result.append(L"] Order by [").append(column).append(L"]");
}

} // namespace vndesk
