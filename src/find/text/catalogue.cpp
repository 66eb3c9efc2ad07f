// SPDX-License-Identifier: MIT
// Statements on the catalogue tables; doubled blanks are part of the text.
#include "find/text/catalogue.h"

#include "text/ascii_text.h"

namespace vndesk {

namespace {

std::wstring FieldsOf(std::wstring_view columns, std::wstring_view table) {
    return L"Select " + std::wstring(columns) + L" From LstFld Where [InTable]='" +
           std::wstring(table) + L"'";
}

} // namespace

std::wstring FieldListStatement(std::wstring_view table) {
    return FieldsOf(L"[Name],[Desc]", table);
}

std::wstring FieldInfoStatement(std::wstring_view table) {
    return FieldsOf(L"*", table);
}

std::wstring OperatorListStatement(long fieldType) {
    return L"Select Name,Des from Operator Where Type=" + std::to_wstring(fieldType) +
           L"  Order By Code";
}

std::wstring LookUpStatement(std::wstring_view relation, std::wstring_view value,
                             DatabaseKind dbKind) {
    const bool select = FindIgnoringCase(relation, L"SELECT") != std::wstring_view::npos;
    const std::wstring source(relation);
    return (select ? source : L"Select * From " + source + L" Where Name ") + L"  Like " +
           Literal(value, L"LR", dbKind);
}

} // namespace vndesk
