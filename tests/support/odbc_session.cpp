// SPDX-License-Identifier: MIT
#include "support/odbc_session.h"

// Both spellings of the text functions are needed.
#ifndef SQL_NOUNICODEMAP
#define SQL_NOUNICODEMAP
#endif
#include <sql.h>
#include <sqlext.h>

#include "support/text.h"

namespace vndesk::test {
namespace {

std::wstring Diagnostics(SQLSMALLINT kind, SQLHANDLE handle) {
    std::wstring text;
    SQLWCHAR state[6] = {}, message[512] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    for (SQLSMALLINT i = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(kind, handle, i, state, &native, message, 512, &length)); ++i)
        text += std::wstring(L"[") + state + L"] " + message + L" ";
    return text;
}

class Statement {
public:
    Statement(SQLHDBC connection, std::wstring_view text, bool inBytes) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_)))
            Fail(Diagnostics(SQL_HANDLE_DBC, connection));
        std::wstring copy(text);
        std::string bytes = ToUtf8(text);
        const SQLRETURN result =
            inBytes ? SQLExecDirect(handle_, reinterpret_cast<SQLCHAR*>(bytes.data()), SQL_NTS)
                    : SQLExecDirectW(handle_, copy.data(), SQL_NTS);
        if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
            const std::wstring error = Diagnostics(SQL_HANDLE_STMT, handle_);
            SQLFreeHandle(SQL_HANDLE_STMT, handle_);
            Fail(error + L"in: " + copy);
        }
    }
    ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    SQLHSTMT Get() const { return handle_; }

    template <SQLSMALLINT kType, class Character>
    std::optional<std::basic_string<Character>> Column(SQLUSMALLINT column) const {
        std::basic_string<Character> value;
        for (;;) {
            Character part[512];
            SQLLEN length = 0;
            const SQLRETURN result = SQLGetData(handle_, column, kType, part, sizeof part, &length);
            if (result == SQL_NO_DATA)
                return value;
            if (!SQL_SUCCEEDED(result))
                Fail(Diagnostics(SQL_HANDLE_STMT, handle_));
            if (length == SQL_NULL_DATA)
                return std::nullopt;
            value += part; // always terminated, cut at the buffer's end when there is more
            if (result == SQL_SUCCESS)
                return value;
        }
    }

private:
    SQLHSTMT handle_ = nullptr;
};

} // namespace

// MariaDB's driver cuts wide texts: its statements and values are UTF-8.
OdbcSession::OdbcSession(const std::wstring& connectionString)
    : inBytes_(connectionString.find(L"{MariaDB") != std::wstring::npos) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<void*>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    std::wstring text = connectionString;
    std::string bytes = ToUtf8(text);
    const SQLRETURN result =
        inBytes_ ? SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(bytes.data()),
                                    SQL_NTS, nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT)
                 : SQLDriverConnectW(connection_, nullptr, text.data(), SQL_NTS, nullptr, 0,
                                     nullptr, SQL_DRIVER_NOPROMPT);
    if (SQL_SUCCEEDED(result))
        return;
    const std::wstring error = Diagnostics(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    Fail(L"cannot connect: " + error);
}

OdbcSession::~OdbcSession() {
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

long OdbcSession::Execute(std::wstring_view statement) {
    const Statement run(connection_, statement, inBytes_);
    SQLLEN rows = 0;
    SQLRowCount(run.Get(), &rows);
    return rows > 0 && rows < 1000000 ? static_cast<long>(rows) : 0; // drivers leave junk for DDL
}

void OdbcSession::ExecuteScript(std::wstring_view script) {
    std::wstring statement;
    wchar_t quote = 0;
    for (size_t i = 0; i < script.size(); ++i) {
        const wchar_t c = script[i];
        if (quote) {
            if (c == quote)
                quote = 0; // a doubled quote closes and opens again
        } else if (c == L'-' && script.substr(i, 2) == L"--") {
            i = script.find(L'\n', i);
            if (i == std::wstring_view::npos)
                break;
            statement += L'\n';
            continue;
        } else if (c == L';') {
            if (statement.find_first_not_of(L" \r\n\t") != std::wstring::npos)
                Execute(statement);
            statement.clear();
            continue;
        } else if (c == L'\'' || c == L'"') {
            quote = c;
        } else if (c == L'[') {
            quote = L']';
        }
        statement += c;
    }
    if (statement.find_first_not_of(L" \r\n\t") != std::wstring::npos)
        Execute(statement);
}

std::vector<OdbcSession::Row> OdbcSession::Query(std::wstring_view statement) {
    const Statement run(connection_, statement, inBytes_);
    SQLSMALLINT columns = 0;
    SQLNumResultCols(run.Get(), &columns);
    std::vector<Row> rows;
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(run.Get()))) {
        Row& row = rows.emplace_back();
        for (SQLSMALLINT i = 1; i <= columns; ++i) {
            if (inBytes_) {
                const auto bytes = run.Column<SQL_C_CHAR, char>(i);
                row.push_back(bytes ? std::optional(FromUtf8(*bytes)) : std::nullopt);
            } else {
                row.push_back(run.Column<SQL_C_WCHAR, wchar_t>(i));
            }
        }
    }
    return rows;
}

std::wstring OdbcSession::ScalarText(std::wstring_view statement) {
    const std::vector<Row> rows = Query(statement);
    return rows.empty() || rows[0].empty() ? std::wstring() : rows[0][0].value_or(L"");
}

template <class Bind> void OdbcSession::BindEach(int count, Bind&& bind) {
    SQLHSTMT statement = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement)))
        Fail(Diagnostics(SQL_HANDLE_DBC, connection_));
    bool bound = true;
    for (int i = 1; i <= count; ++i)
        bound = SQL_SUCCEEDED(bind(statement, static_cast<SQLUSMALLINT>(i))) && bound;
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    if (!bound)
        Fail(L"a column or parameter cannot be bound");
}

void OdbcSession::BindColumns(int count) {
    char cell[32] = "";
    SQLLEN length = 0;
    BindEach(count, [&](SQLHSTMT statement, SQLUSMALLINT column) {
        return SQLBindCol(statement, column, SQL_C_CHAR, cell, sizeof cell, &length);
    });
}

void OdbcSession::BindParameters(int count) {
    char value[32] = "";
    SQLLEN length = 0;
    BindEach(count, [&](SQLHSTMT statement, SQLUSMALLINT parameter) {
        return SQLBindParameter(statement, parameter, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, 31,
                                0, value, sizeof value, &length);
    });
}

std::wstring DriverPath(const std::wstring& windowsPath) {
    using UnixName = char*(__cdecl*)(const wchar_t*);
    const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    if (!unixName)
        return windowsPath;
    char* name = unixName(windowsPath.c_str());
    if (!name)
        Fail(L"no such folder: " + windowsPath);
    std::wstring result = FromUtf8(name);
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

} // namespace vndesk::test
