// SPDX-License-Identifier: MIT
// Statements on the catalogue tables; doubled blanks are part of the text.
#include "find/text/catalogue.h"

#include "text/ascii_text.h"

namespace vndesk {

namespace {

Statement FieldsOf(std::wstring_view columns, std::wstring_view table, ValueStyle style) {
    return StatementWriter(style) << L"Select " << columns << L" From LstFld Where [InTable]="
                                  << QuotedBare{table};
}

} // namespace

Statement FieldListStatement(std::wstring_view table, ValueStyle style) {
    return FieldsOf(L"[Name],[Desc]", table, style);
}

Statement FieldInfoStatement(std::wstring_view table, ValueStyle style) {
    return FieldsOf(L"*", table, style);
}

Statement OperatorListStatement(long fieldType, ValueStyle style) {
    return StatementWriter(style) << L"Select Name,Des from Operator Where Type=" << fieldType
                                  << L"  Order By Code";
}

Statement LookUpStatement(std::wstring_view relation, std::wstring_view value, ValueStyle style,
                          const std::optional<Pattern>& pattern) {
    const bool select = FindIgnoringCase(relation, L"SELECT") != std::wstring_view::npos;
    StatementWriter statement(style);
    if (select)
        statement << AsGiven{relation};
    else
        statement << L"Select * From " << Catalogued{relation} << L" Where Name ";
    AppendLike(statement, pattern, value);
    return statement;
}

} // namespace vndesk
