// SPDX-License-Identifier: MIT
#include "convert/table.h"

#include <comutil.h>

#include <algorithm>

#include "comkit/base/bstr.h"
#include "comkit/base/com_error.h"
#include "convert/refusal.h"
#include "data/connect/command.h"
#include "data/connect/failure.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "text/ascii_text.h"

namespace vndesk::convert {

namespace {

// The engine's own, in which every name can stand: SQLite's brackets have no way to write one of
// them. A bare name stands for the folded one.
NameQuotes QuotesOf(Engine engine) {
    switch (engine) {
    case Engine::PostgreSql:
        return {L'"', L'"', true};
    case Engine::Sqlite:
        return {L'"', L'"'};
    case Engine::MySql:
        return {L'`', L'`'};
    default:
        return {};
    }
}

bool IsText(const Column& column) {
    constexpr DataTypeEnum kTexts[] = {adBSTR,  adChar,     adVarChar,     adLongVarChar,
                                       adWChar, adVarWChar, adLongVarWChar};
    return std::find(std::begin(kTexts), std::end(kTexts), column.type) != std::end(kTexts);
}

// SQL Server's varchar: what its code page lacks becomes a question mark. Other engines name their
// Unicode columns so, too.
bool IsAnsi(const Column& column, Engine engine) {
    return engine == Engine::SqlServer &&
           (column.type == adChar || column.type == adVarChar || column.type == adLongVarChar);
}

Column Described(Field& field) {
    Column column;
    const auto check = [&](HRESULT code) { CheckCall(code, &field, __uuidof(Field)); };
    _bstr_t name;
    check(field.get_Name(name.GetAddress()));
    column.name = FromBstr(name.GetBSTR());
    check(field.get_Type(&column.type));
    ADO_LONGPTR size = 0;
    check(field.get_DefinedSize(&size));
    column.size = static_cast<long>(size);
    if (column.type == adNumeric || column.type == adDecimal) {
        check(field.get_Precision(&column.precision));
        check(field.get_NumericScale(&column.scale));
    }
    return column;
}

class Finder {
public:
    Finder(const Database& database, const Options& options)
        : database_(database), options_(options) {
        table_.engine = EngineOf(database);
        table_.quotes = QuotesOf(table_.engine);
    }

    Table Find() {
        LookAtColumns();
        RequireTransactions();
        for (const std::wstring& name : options_.columns) {
            const Column& column = ColumnNamed(name);
            if (!IsText(column))
                throw Refusal{Message::NotText, {table_.name, column.name}};
            if (IsAnsi(column, table_.engine))
                throw Refusal{Message::NotUnicode, {table_.name, column.name}};
            const auto isColumn = [&](const Column& known) { return known.name == column.name; };
            if (std::none_of(table_.columns.begin(), table_.columns.end(), isColumn))
                table_.columns.push_back(column);
        }
        for (const std::wstring& name : options_.keys.empty() ? PrimaryKey() : options_.keys)
            table_.keys.push_back(ColumnNamed(name));
        if (table_.keys.empty())
            throw Refusal{Message::NoKey, {table_.name}};
        return std::move(table_);
    }

private:
    // As it is written, else as the engine would read it without quotes.
    void LookAtColumns() {
        table_.name = options_.table;
        ErrorState error = Trap([&] { ReadColumns(); });
        const std::wstring folded = FoldedName(options_.table, table_.quotes);
        if (error && folded != options_.table) {
            table_.name = folded;
            if (!Trap([&] { ReadColumns(); }))
                return;
        }
        if (error)
            throw Refusal{Message::NoTable,
                          {options_.table, ShownText(database_, error.description)}};
    }

    void ReadColumns() {
        all_.clear();
        const AdoRecordset rows = RunCommand(
            database_.connection, L"Select * From " + table_.Quoted(table_.name) + L" Where 1=0");
        ComPtr<Fields> fields;
        long count = 0;
        CheckCall(rows->get_Fields(&fields), rows.Get(), __uuidof(_Recordset));
        CheckCall(fields->get_Count(&count), fields.Get(), __uuidof(Fields));
        for (long i = 0; i < count; ++i) {
            ComPtr<Field> field;
            CheckCall(fields->get_Item(_variant_t(i), &field), fields.Get(), __uuidof(Fields));
            all_.push_back(Described(*field.Get()));
        }
    }

    const Column& ColumnNamed(const std::wstring& name) const {
        for (const Column& column : all_)
            if (column.name == name)
                return column;
        for (const Column& column : all_)
            if (EqualsIgnoringCase(column.name, name))
                return column;
        throw Refusal{Message::NoColumn, {table_.name, name}};
    }

    // MariaDB and MySQL have kinds of tables that cannot take a change back.
    void RequireTransactions() const {
        if (table_.engine != Engine::MySql)
            return;
        std::wstring kind, takesBack;
        Trap([&] {
            Recordset rows;
            rows.Create(database_);
            rows.Open({L"Select e.ENGINE, e.TRANSACTIONS From information_schema.TABLES t Join "
                       L"information_schema.ENGINES e On e.ENGINE=t.ENGINE "
                       L"Where t.TABLE_SCHEMA=Database() And t.TABLE_NAME=?",
                       {std::optional<std::wstring>(table_.name)}});
            kind = NullToText(rows.Value(0L));
            takesBack = NullToText(rows.Value(1L));
        });
        if (!EqualsIgnoringCase(takesBack, L"YES"))
            throw Refusal{Message::NoTransactions, {table_.name, kind}};
    }

    // Empty also where the provider does not tell.
    std::vector<std::wstring> PrimaryKey() const {
        std::vector<std::wstring> names;
        Trap([&] {
            constexpr ULONG kTable = 2; // behind catalogue and schema
            const SAFEARRAYBOUND bound = {kTable + 1, 0};
            _variant_t restrictions;
            V_ARRAY(&restrictions) =
                SafeArrayCreate(VT_VARIANT, 1, const_cast<SAFEARRAYBOUND*>(&bound));
            if (!V_ARRAY(&restrictions))
                throw ComError(E_OUTOFMEMORY);
            V_VT(&restrictions) = VT_ARRAY | VT_VARIANT;
            auto* elements = static_cast<VARIANT*>(V_ARRAY(&restrictions)->pvData);
            V_BSTR(&elements[kTable]) = ToBstr(table_.name);
            V_VT(&elements[kTable]) = VT_BSTR;
            AdoRecordset rows;
            CheckHr(database_.connection->OpenSchema(adSchemaPrimaryKeys, restrictions,
                                                     _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR),
                                                     &rows));
            names = NamesIn(*rows.Get());
        });
        return names;
    }

    // Of the first table where several schemas have one of that name.
    static std::vector<std::wstring> NamesIn(_Recordset& rows) {
        std::vector<std::wstring> names;
        std::optional<std::wstring> schema;
        const auto text = [&](const wchar_t* column) {
            ComPtr<Fields> fields;
            ComPtr<Field> field;
            _variant_t value;
            CheckHr(rows.get_Fields(&fields));
            CheckHr(fields->get_Item(_variant_t(column), &field));
            CheckHr(field->get_Value(&value));
            return NullToText(value);
        };
        for (VARIANT_BOOL end = VARIANT_FALSE;; CheckHr(rows.MoveNext())) {
            CheckHr(rows.get_EOF(&end));
            if (end)
                return names;
            const std::wstring found = text(L"TABLE_SCHEMA");
            if (!schema)
                schema = found;
            if (found == *schema)
                names.push_back(text(L"COLUMN_NAME"));
        }
    }

    const Database& database_;
    const Options& options_;
    Table table_;
    std::vector<Column> all_;
};

} // namespace

std::wstring Table::ReadingStatement() const {
    std::wstring list;
    for (const auto* columns : {&keys, &this->columns})
        for (const Column& column : *columns)
            list += (list.empty() ? L"" : L",") + Quoted(column.name);
    return L"Select " + list + L" From " + Quoted(name);
}

Table FindTable(const Database& database, const Options& options) {
    return Finder(database, options).Find();
}

} // namespace vndesk::convert
