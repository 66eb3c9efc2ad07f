// SPDX-License-Identifier: MIT
#include "ado/engine/column_type.h"

#include <string_view>

#include <msado15_backcompat.h>

#include "text/ascii_text.h"

namespace vndesk::ado {

namespace {

constexpr LONGLONG kMemoSize = 536870910; // the size that Jet reports for a memo column

struct TypeRow {
    SQLSMALLINT odbc;
    ColumnKind kind;
    DataTypeEnum ado;
    LONGLONG size; // 0: as the driver says
};

// Values of all whole-number types are handed out as 32-bit integers, those of all others as
// doubles: the ADO types say the same.
constexpr TypeRow kTypes[] = {
    {SQL_INTEGER, ColumnKind::Integer, adInteger, 4},
    {SQL_SMALLINT, ColumnKind::Integer, adInteger, 4},
    {SQL_TINYINT, ColumnKind::Integer, adInteger, 4},
    {SQL_BIGINT, ColumnKind::Integer, adBigInt, 8},
    {SQL_NUMERIC, ColumnKind::Double, adDouble, 8},
    {SQL_DECIMAL, ColumnKind::Double, adDouble, 8},
    {SQL_FLOAT, ColumnKind::Double, adDouble, 8},
    {SQL_REAL, ColumnKind::Double, adDouble, 8},
    {SQL_DOUBLE, ColumnKind::Double, adDouble, 8},
    {SQL_BIT, ColumnKind::Boolean, adBoolean, 2},
    {SQL_DATETIME, ColumnKind::Date, adDate, 8}, // the types of ODBC 2
    {SQL_TIME, ColumnKind::Date, adDBTime, 8},
    {SQL_TIMESTAMP, ColumnKind::Date, adDate, 8},
    {SQL_TYPE_DATE, ColumnKind::Date, adDate, 8},
    {SQL_TYPE_TIME, ColumnKind::Date, adDBTime, 8},
    {SQL_TYPE_TIMESTAMP, ColumnKind::Date, adDate, 8},
    {SQL_BINARY, ColumnKind::Binary, adLongVarBinary, kMemoSize * 2},
    {SQL_VARBINARY, ColumnKind::Binary, adLongVarBinary, kMemoSize * 2},
    {SQL_LONGVARBINARY, ColumnKind::Binary, adLongVarBinary, kMemoSize * 2},
    {SQL_CHAR, ColumnKind::Text, adWChar, 0},
    {SQL_WCHAR, ColumnKind::Text, adWChar, 0},
    {SQL_LONGVARCHAR, ColumnKind::Text, adLongVarWChar, kMemoSize},
    {SQL_WLONGVARCHAR, ColumnKind::Text, adLongVarWChar, kMemoSize},
    {SQL_VARCHAR, ColumnKind::Text, adVarWChar, 0},
    {SQL_WVARCHAR, ColumnKind::Text, adVarWChar, 0}};

// Declared types that drivers pass off as text: PostgreSQL's truth values, Jet's names in SQLite.
struct NameRow {
    std::wstring_view name;
    SQLSMALLINT odbc;
};

constexpr NameRow kNames[] = {
    {L"bool", SQL_BIT},        {L"yesno", SQL_BIT},     {L"logical", SQL_BIT},
    {L"counter", SQL_INTEGER}, {L"long", SQL_INTEGER},  {L"byte", SQL_INTEGER},
    {L"short", SQL_INTEGER},   {L"single", SQL_DOUBLE}, {L"money", SQL_DOUBLE},
    {L"currency", SQL_DOUBLE}, {L"number", SQL_DOUBLE}, {L"decimal", SQL_DOUBLE}};

SQLSMALLINT TypeOf(const OdbcColumn& column) {
    for (const auto& [name, type] : kNames)
        if (EqualsIgnoringCase(column.typeName, name))
            return type;
    return column.type;
}

} // namespace

ColumnInfo DescribeColumn(const OdbcColumn& column) {
    const SQLSMALLINT type = TypeOf(column);
    for (const TypeRow& row : kTypes)
        if (row.odbc == type)
            return {column.name, row.kind, row.ado,
                    row.size ? row.size : static_cast<LONGLONG>(column.size)};
    return {column.name, ColumnKind::Text, adVarWChar, static_cast<LONGLONG>(column.size)};
}

} // namespace vndesk::ado
