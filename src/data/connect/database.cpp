// SPDX-License-Identifier: MIT
#include "data/connect/database.h"

#include <comutil.h>

#include "comkit/base/com_error.h"
#include "data/connect/command.h"
#include "data/connect/plain_message.h"
#include "data/connect/values.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

constexpr wchar_t kJetProvider[] = L"Microsoft.Jet.OLEDB.4.0;";

Database Unopened(std::wstring_view connectionString, const Settings& settings) {
    Database database;
    database.connectionString = connectionString;
    database.settings = settings;
    const Dialect* dialect = database.Dialect();
    database.kind = dialect ? KindOf(dialect->engine) : KindOf(connectionString);
    return database;
}

// What went wrong, step by step.
struct Opening {
    ErrorState named; // the provider
    ErrorState opened;
};

Opening TryOpen(_Connection& connection, std::wstring_view connectionString, bool namesProvider) {
    Opening result;
    // put_Provider fails where the provider is missing; the one that the string names may still
    // open it.
    if (namesProvider && KindOf(connectionString) == DatabaseKind::Jet)
        result.named = Trap([&] { CheckHr(connection.put_Provider(_bstr_t(kJetProvider))); });
    result.opened = Trap([&] {
        CheckCall(connection.Open(_bstr_t(std::wstring(connectionString).c_str()), _bstr_t(L""),
                                  _bstr_t(L""), kAdoUnspecified),
                  &connection, __uuidof(_Connection));
    });
    return result;
}

Opening TryOpen(Database& database) {
    Opening result;
    result.opened = Trap([&] { database.connection = NewConnection(); });
    return result.opened ? result
                         : TryOpen(*database.connection.Get(), database.connectionString,
                                   database.Dialect() == nullptr);
}

} // namespace

AdoConnection NewConnection() {
    CLSID clsid;
    AdoConnection connection;
    CheckHr(CLSIDFromProgID(L"ADODB.Connection", &clsid));
    CheckHr(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&connection)));
    return connection;
}

void Open(_Connection& connection, std::wstring_view connectionString, const Settings& settings) {
    const bool namesProvider = settings.Dialect == DialectChoice::Auto;
    if (const ErrorState error = TryOpen(connection, connectionString, namesProvider).opened)
        throw ComError(error.code, error.description);
}

DatabaseKind KindOf(std::wstring_view connectionString) {
    const bool jet = FindIgnoringCase(connectionString, L"JET OLEDB") != std::wstring_view::npos;
    return jet ? DatabaseKind::Jet : DatabaseKind::SqlServer;
}

Database OpenConnection(std::wstring_view connectionString, const Settings& settings) {
    Database database = Unopened(connectionString, settings);
    const Opening opening = TryOpen(database);
    if (opening.named || opening.opened)
        PlainMessage(database.connectionString, L"");
    return database;
}

OpenedDatabase::OpenedDatabase(std::wstring_view connectionString, const Settings& settings)
    : database_(Unopened(connectionString, settings)) {
    database_.connection = NewConnection();
    Open(*database_.connection.Get(), connectionString, settings);
}

OpenedDatabase::~OpenedDatabase() {
    CloseConnection(database_);
}

bool IsOpen(const Database& database) {
    long state = adStateClosed;
    return database.connection && SUCCEEDED(database.connection->get_State(&state)) &&
           (state & adStateOpen);
}

long Execute(const Database& database, const Statement& statement) {
    if (!database.connection)
        throw ComError(E_UNEXPECTED);
    if (!statement.values.empty())
        return ExecuteCommand(database.connection, statement);
    AdoRecordset none;
    _variant_t affected;
    CheckCall(database.connection->Execute(_bstr_t(statement.text.c_str()), &affected,
                                           kAdoUnspecified, &none),
              database.connection.Get(), __uuidof(_Connection));
    return NullToInteger(affected);
}

void CloseConnection(Database& database) {
    if (database.connection)
        database.connection->Close();
}

} // namespace vndesk
