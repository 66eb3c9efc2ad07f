// SPDX-License-Identifier: MIT
#include "ado/engine/odbc.h"

#include <algorithm>
#include <cstring>

#include "ado/engine/driver_error_code.h"
#include "ado/text/utf8.h"

namespace vndesk::ado {

namespace {

// Drivers say why they do not connect; newer Wine's own driver manager says nothing where there is
// no such driver. This is how others say it.
constexpr Unsaid kNoDriver = {L"IM002",
                              L"Data source name not found and no default driver specified"};

SQLPOINTER Number(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

SQLWCHAR* Wide(wchar_t* text) {
    return reinterpret_cast<SQLWCHAR*>(text);
}
SQLCHAR* Bytes(char* text) {
    return reinterpret_cast<SQLCHAR*>(text);
}

// The driver manager counts some names in bytes: only the end mark is reliable.
std::wstring UpToEnd(const wchar_t* text, std::size_t most) {
    return std::wstring(text, std::find(text, text + most, L'\0'));
}
std::wstring UpToEnd(const char* text, std::size_t most) {
    return FromUtf8(std::string_view(text, std::find(text, text + most, '\0') - text));
}

std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT type, SQLHANDLE handle, OdbcText text) {
    constexpr SQLSMALLINT kMaxMessage = 2048;
    std::vector<Diagnostic> diagnostics;
    for (SQLSMALLINT number = 1; number <= 16; ++number) {
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        Diagnostic diagnostic = {};
        if (text == OdbcText::Utf8) {
            char state[8] = "", message[kMaxMessage] = "";
            if (!SQL_SUCCEEDED(SQLGetDiagRec(type, handle, number, Bytes(state), &native,
                                             Bytes(message), kMaxMessage, &length)))
                break;
            diagnostic.sqlState = UpToEnd(state, 5);
            diagnostic.description = UpToEnd(message, kMaxMessage);
        } else {
            wchar_t state[8] = L"", message[kMaxMessage] = L"";
            if (!SQL_SUCCEEDED(SQLGetDiagRecW(type, handle, number, Wide(state), &native,
                                              Wide(message), kMaxMessage, &length)))
                break;
            diagnostic.sqlState = UpToEnd(state, 5);
            diagnostic.description = UpToEnd(message, kMaxMessage);
        }
        diagnostic.nativeError = native;
        diagnostic.code = ErrorCodeOf(diagnostic.sqlState, diagnostic.description);
        diagnostics.push_back(std::move(diagnostic));
    }
    return diagnostics;
}

} // namespace

DriverError::DriverError(std::vector<Diagnostic> diagnostics)
    : ComError(diagnostics.front().code, diagnostics.front().description),
      diagnostics_(std::make_shared<const std::vector<Diagnostic>>(std::move(diagnostics))) {}

void CheckOdbc(SQLRETURN result, SQLSMALLINT handleType, SQLHANDLE handle, OdbcText text,
               const Unsaid& unsaid) {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
        return;
    std::vector<Diagnostic> diagnostics = ReadDiagnostics(handleType, handle, text);
    if (diagnostics.empty())
        diagnostics.push_back({ErrorCodeOf(unsaid.sqlState, unsaid.description), unsaid.description,
                               unsaid.sqlState, 0});
    throw DriverError(std::move(diagnostics));
}

OdbcConnection::Environment::Environment() : OdbcHandle(SQL_NULL_HANDLE) {
    SQLSetEnvAttr(Get(), SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
}

OdbcConnection::OdbcConnection(const std::wstring& connectionString, OdbcText text)
    : connection_(environment_.Get()), text_(text) {
    SQLRETURN result;
    SQLSMALLINT length = 0;
    if (text == OdbcText::Utf8) {
        std::string bytes = ToUtf8(connectionString);
        result = SQLDriverConnect(Handle(), nullptr, Bytes(bytes.data()),
                                  static_cast<SQLSMALLINT>(bytes.size()), nullptr, 0, &length,
                                  SQL_DRIVER_NOPROMPT);
    } else {
        std::wstring wide = connectionString;
        result = SQLDriverConnectW(Handle(), nullptr, Wide(wide.data()),
                                   static_cast<SQLSMALLINT>(wide.size()), nullptr, 0, &length,
                                   SQL_DRIVER_NOPROMPT);
    }
    CheckOdbc(result, SQL_HANDLE_DBC, Handle(), text_, kNoDriver);
    connected_ = true;
    engine_ = Info(SQL_DBMS_NAME);
    const std::wstring quote = Info(SQL_IDENTIFIER_QUOTE_CHAR);
    quote_ = quote.empty() ? L'\0' : quote.front();
    // The driver of a data source is known only after connecting.
    if (IsSqlite() || Info(SQL_DRIVER_NAME).find(L"maodbc") != std::wstring::npos)
        text_ = OdbcText::Utf8;
}

OdbcConnection::~OdbcConnection() {
    if (connected_)
        SQLDisconnect(Handle());
}

std::wstring OdbcConnection::Info(SQLUSMALLINT what) const {
    SQLSMALLINT length = 0;
    if (text_ == OdbcText::Utf8) {
        char value[128] = "";
        SQLGetInfo(Handle(), what, value, sizeof value, &length);
        return UpToEnd(value, sizeof value);
    }
    wchar_t value[128] = L"";
    SQLGetInfoW(Handle(), what, value, sizeof value, &length);
    return UpToEnd(value, 128);
}

void OdbcConnection::SetAutoCommit(bool on) {
    CheckOdbc(SQLSetConnectAttr(Handle(), SQL_ATTR_AUTOCOMMIT,
                                Number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), 0),
              SQL_HANDLE_DBC, Handle(), text_);
}

void OdbcConnection::EndTransaction(bool commit) {
    CheckOdbc(SQLEndTran(SQL_HANDLE_DBC, Handle(), commit ? SQL_COMMIT : SQL_ROLLBACK),
              SQL_HANDLE_DBC, Handle(), text_);
}

OdbcStatement::OdbcStatement(const OdbcConnection& connection)
    : statement_(connection.Handle()), text_(connection.Text()) {
    // What the driver grants is asked after execution.
    SQLSetStmtAttr(Handle(), SQL_ATTR_CURSOR_TYPE, Number(SQL_CURSOR_STATIC), 0);
}

void OdbcStatement::Execute(std::wstring_view statement) {
    if (text_ == OdbcText::Utf8) {
        std::string bytes = ToUtf8(statement);
        Check(SQLExecDirect(Handle(), Bytes(bytes.data()), static_cast<SQLINTEGER>(bytes.size())));
    } else {
        std::wstring wide(statement);
        Check(SQLExecDirectW(Handle(), Wide(wide.data()), static_cast<SQLINTEGER>(wide.size())));
    }
}

void OdbcStatement::ReadPrimaryKeys(const std::optional<std::wstring>& catalog,
                                    const std::optional<std::wstring>& schema,
                                    const std::wstring& table) {
    const auto read = [&](auto function, auto convert, auto pointer) {
        const auto one = [&](const std::optional<std::wstring>& name) {
            return name ? convert(*name) : decltype(convert(table))();
        };
        auto first = one(catalog), second = one(schema), third = one(table);
        Check(function(Handle(), catalog ? pointer(first.data()) : nullptr, SQL_NTS,
                       schema ? pointer(second.data()) : nullptr, SQL_NTS, pointer(third.data()),
                       SQL_NTS));
    };
    if (text_ == OdbcText::Utf8)
        read(SQLPrimaryKeys, ToUtf8, Bytes);
    else
        read(
            SQLPrimaryKeysW, [](const std::wstring& name) { return name; }, Wide);
}

int OdbcStatement::ColumnCount() const {
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(Handle(), &count));
    return count;
}

OdbcColumn OdbcStatement::Column(int number) const {
    constexpr SQLSMALLINT kMaxName = 512;
    const auto index = static_cast<SQLUSMALLINT>(number);
    OdbcColumn column = {};
    SQLSMALLINT length = 0, digits = 0, nullable = 0;
    SQLLEN ignored = 0;
    if (text_ == OdbcText::Utf8) {
        char name[kMaxName] = "", type[128] = "";
        Check(SQLDescribeCol(Handle(), index, Bytes(name), kMaxName, &length, &column.type,
                             &column.size, &digits, &nullable));
        SQLColAttribute(Handle(), index, SQL_DESC_TYPE_NAME, type, sizeof type, &length, &ignored);
        column.name = UpToEnd(name, kMaxName);
        column.typeName = UpToEnd(type, sizeof type);
    } else {
        wchar_t name[kMaxName] = L"", type[128] = L"";
        Check(SQLDescribeColW(Handle(), index, Wide(name), kMaxName, &length, &column.type,
                              &column.size, &digits, &nullable));
        SQLColAttributeW(Handle(), index, SQL_DESC_TYPE_NAME, type, sizeof type, &length, &ignored);
        column.name = UpToEnd(name, kMaxName);
        column.typeName = UpToEnd(type, 128);
    }
    return column;
}

SQLLEN OdbcStatement::RowCount() const {
    SQLLEN count = -1; // some drivers write nothing
    return SQL_SUCCEEDED(SQLRowCount(Handle(), &count)) ? count : -1;
}

bool OdbcStatement::IsScrollable() const {
    SQLULEN cursor = SQL_CURSOR_FORWARD_ONLY;
    SQLGetStmtAttr(Handle(), SQL_ATTR_CURSOR_TYPE, &cursor, 0, nullptr);
    return cursor != SQL_CURSOR_FORWARD_ONLY;
}

bool OdbcStatement::Fetch(SQLSMALLINT orientation, SQLLEN offset) {
    const SQLRETURN result = SQLFetchScroll(Handle(), orientation, offset);
    Check(result);
    return result != SQL_NO_DATA;
}

} // namespace vndesk::ado
