// SPDX-License-Identifier: MIT
// The host's database: its tables and the rows that have to be there. Only reads.
#include "check/database_rules.h"
#include "check/probes.h"
#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/failure.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"

namespace vndesk::check {

namespace {

class Reader {
public:
    explicit Reader(const Database& database) : database_(database), engine_(EngineOf(database)) {}

    DatabaseSeen Read() {
        DatabaseSeen seen;
        seen.engine = NameOfEngine();
        seen.script = ScriptName(engine_);
        seen.readsHashDates = engine_ != Engine::SqlServer;
        seen.refusesBrackets = LearnQuotes();
        for (const TableWanted& wanted : TablesWanted())
            seen.tables[wanted.name] = ReadTable(wanted.name);
        Trap([&] {
            Each(L"User", L"Code", std::to_wstring(kMainAdministrator),
                 [&](long code) { seen.users.insert(code); });
        });
        Trap([&] { Each(L"Groups", L"Code", {}, [&](long code) { seen.groups.insert(code); }); });
        Trap([&] { Each(L"Menu", L"ID", {}, [&](long id) { seen.menus.push_back(id); }); });
        Trap([&] { Each(L"SubMenu", L"IdMenuBar", {}, [&](long bar) { ++seen.commands[bar]; }); });
        Trap([&] {
            Each(L"LstFld", L"Type", {}, [&](long type) { seen.fieldTypes.insert(type); });
        });
        Trap([&] {
            Each(L"Operator", L"Type", {}, [&](long type) { seen.operatorTypes.insert(type); });
        });
        return seen;
    }

private:
    // As the provider has it, which names more engines than the library tells apart.
    std::wstring NameOfEngine() const {
        std::wstring name(ScriptName(engine_));
        for (const wchar_t* part : {L"DBMS Name", L"DBMS Version"})
            Trap([&] {
                ComPtr<Properties> properties;
                ComPtr<Property> property;
                _variant_t value;
                CheckHr(database_.connection->get_Properties(&properties));
                CheckHr(properties->get_Item(_variant_t(part), &property));
                CheckHr(property->get_Value(&value));
                name = part == std::wstring_view(L"DBMS Name") ? NullToText(value)
                                                               : name + L" " + NullToText(value);
            });
        return name;
    }

    std::wstring Quoted(const wchar_t* name) const {
        if (!ownQuotes_)
            return L"[" + std::wstring(name) + L"]";
        if (engine_ == Engine::MySql)
            return L"`" + std::wstring(name) + L"`";
        std::wstring lower(name);
        for (wchar_t& ch : lower)
            ch = ch >= L'A' && ch <= L'Z' ? static_cast<wchar_t>(ch - L'A' + L'a') : ch;
        return L"\"" + lower + L"\"";
    }

    // True where the engine takes its own quotes, but not the brackets of statements without a
    // dialect.
    bool LearnQuotes() {
        const auto readsAny = [&] {
            for (const TableWanted& wanted : TablesWanted())
                if (ReadTable(wanted.name).error.empty())
                    return true;
            return false;
        };
        if ((engine_ != Engine::PostgreSql && engine_ != Engine::MySql) || readsAny())
            return false;
        ownQuotes_ = true;
        if (readsAny())
            return true;
        ownQuotes_ = false;
        return false;
    }

    TableSeen ReadTable(const wchar_t* name) const {
        TableSeen table;
        const ErrorState error = Trap([&] {
            Recordset rows;
            rows.Create(database_);
            rows.Open(L"Select * From " + Quoted(name) + L" Where 1=0");
            for (long i = 0; i < rows.FieldCount(); ++i)
                table.columns.push_back(rows.FieldName(i));
        });
        if (error)
            table.error =
                error.description.empty() ? L"?" : ShownText(database_, error.description);
        return table;
    }

    // The numbers of a column, of the rows where it has the value if there is one.
    template <class Take>
    void Each(const wchar_t* table, const wchar_t* column, const std::wstring& value, Take take) {
        Recordset rows;
        rows.Create(database_);
        const std::wstring where = value.empty() ? L"" : L" Where " + Quoted(column) + L"=" + value;
        rows.Open(L"Select " + Quoted(column) + L" From " + Quoted(table) + where);
        for (; !rows.Eof(); rows.MoveNext())
            take(NullToInteger(rows.Value(0L)));
    }

    const Database& database_;
    const Engine engine_;
    bool ownQuotes_ = false;
};

} // namespace

void ProbeDatabase(const std::wstring& connectionString, Findings& findings) {
    Settings settings;
    settings.OnConnectionError = ConnectionErrors::Raise;
    OpenedOrNot opened = TryConnection(connectionString, settings);
    if (opened.failure) {
        findings.push_back(JudgeFailure(*opened.failure));
        return;
    }
    for (Finding& finding : JudgeDatabase(Reader(opened.database).Read()))
        findings.push_back(std::move(finding));
    CloseConnection(opened.database);
}

} // namespace vndesk::check
