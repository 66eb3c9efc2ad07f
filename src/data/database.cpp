// SPDX-License-Identifier: MIT
#include "database.h"

#include <comutil.h>

#include "com/kit/com_error.h"
#include "plain_message.h"
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
    const ErrorState error = Trap([&] {
        const auto check = [&](HRESULT code) {
            CheckCall(code, database.connection.Get(), __uuidof(_Connection));
        };
        database.connection = NewConnection();
        if (database.kind == DatabaseKind::Jet)
            check(database.connection->put_Provider(_bstr_t(kJetProvider)));
        check(database.connection->Open(_bstr_t(database.connectionString.c_str()), _bstr_t(L""),
                                        _bstr_t(L""), kAdoUnspecified));
    });
    if (error)
        PlainMessage(database.connectionString, L"");
    return database;
}

void Execute(const Database& database, const std::wstring& statement) {
    if (!database.connection)
        throw ComError(E_UNEXPECTED);
    AdoRecordset none;
    CheckCall(database.connection->Execute(_bstr_t(statement.c_str()), nullptr, adExecuteNoRecords,
                                           &none),
              database.connection.Get(), __uuidof(_Connection));
}

void CloseConnection(Database& database) {
    if (database.connection)
        database.connection->Close();
}

} // namespace vndesk
