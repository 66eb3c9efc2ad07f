// SPDX-License-Identifier: MIT
#include "data/connect/database.h"

#include <comutil.h>

#include "comkit/base/com_error.h"
#include "data/connect/plain_message.h"
#include "text/ascii_text.h"

namespace vndesk {

namespace {

constexpr wchar_t kJetProvider[] = L"Microsoft.Jet.OLEDB.4.0;";

} // namespace

AdoConnection NewConnection() {
    CLSID clsid;
    AdoConnection connection;
    CheckHr(CLSIDFromProgID(L"ADODB.Connection", &clsid));
    CheckHr(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&connection)));
    return connection;
}

DatabaseKind KindOf(std::wstring_view connectionString) {
    const bool jet = FindIgnoringCase(connectionString, L"JET OLEDB") != std::wstring_view::npos;
    return jet ? DatabaseKind::Jet : DatabaseKind::SqlServer;
}

Database OpenConnection(std::wstring_view connectionString) {
    Database database;
    database.connectionString = connectionString;
    database.kind = KindOf(connectionString);
    bool failed = false;
    const auto step = [&](auto call) {
        if (Trap([&] { CheckHr(call()); }))
            failed = true;
    };
    step([&] {
        database.connection = NewConnection();
        return S_OK;
    });
    // put_Provider fails where the provider is missing; the one that the string names may still
    // open it.
    if (database.connection && database.kind == DatabaseKind::Jet)
        step([&] { return database.connection->put_Provider(_bstr_t(kJetProvider)); });
    if (database.connection)
        step([&] {
            return database.connection->Open(_bstr_t(database.connectionString.c_str()),
                                             _bstr_t(L""), _bstr_t(L""), kAdoUnspecified);
        });
    if (failed)
        PlainMessage(database.connectionString, L"");
    return database;
}

void Execute(const Database& database, const std::wstring& statement) {
    if (!database.connection)
        throw ComError(E_UNEXPECTED);
    AdoRecordset none;
    CheckCall(
        database.connection->Execute(_bstr_t(statement.c_str()), nullptr, kAdoUnspecified, &none),
        database.connection.Get(), __uuidof(_Connection));
}

void CloseConnection(Database& database) {
    if (database.connection)
        database.connection->Close();
}

} // namespace vndesk
