// SPDX-License-Identifier: MIT
#include "faults/faulty_odbc.h"

#include <algorithm>
#include <cstring>

#include "ado/engine/odbc.h"
#include "ado/objects/ado_object.h"
#include "support/check_hr.h"
#include "support/imports.h"

namespace vndesk::test {

namespace {

std::vector<std::string> calls;
size_t failing = 0;
OdbcFault kind = OdbcFault::Told;
bool forwardOnly = false;
int held = 0;

struct BoundColumn {
    SQLUSMALLINT number;
    char* cells;
    size_t width;
    SQLLEN* lengths;
};
std::vector<BoundColumn> bound; // until a statement is given back

// What SQLGetDiagRec tells of the last call, when that was made to fail.
struct Diagnostic {
    bool ours;
    const char* state; // null: nothing
};
Diagnostic diagnostic = {};

constexpr const char* kMessage = "This call fails on purpose.";

bool IsHit() {
    const bool lasting = kind == OdbcFault::Lost || kind == OdbcFault::Unconfirmed;
    return failing != 0 && (calls.size() == failing || (lasting && calls.size() > failing));
}

// Handles are given back whatever the driver says to it.
int HeldBy(std::string_view name) {
    if (name == "SQLAllocHandle" || name.substr(0, 16) == "SQLDriverConnect")
        return 1;
    return name == "SQLFreeHandle" || name == "SQLDisconnect" ? -1 : 0;
}

template <class Call> SQLRETURN Pass(const char* name, Call call) {
    calls.push_back(name);
    diagnostic = {};
    const bool hit = IsHit();
    const int holds = HeldBy(name);
    if (holds < 0)
        bound.clear();
    const bool works = kind == OdbcFault::Remark || kind == OdbcFault::Truncated || holds < 0 ||
                       (kind == OdbcFault::Unconfirmed && calls.size() == failing);
    SQLRETURN result = SQL_ERROR;
    if (!hit || works) {
        result = call();
        if (SQL_SUCCEEDED(result))
            held += holds;
    }
    if (!hit)
        return result;
    switch (kind) {
    case OdbcFault::Told:
        diagnostic = {true, "HY000"};
        return SQL_ERROR;
    case OdbcFault::Silent:
        diagnostic = {true, nullptr};
        return SQL_ERROR;
    case OdbcFault::Lost:
    case OdbcFault::Unconfirmed:
        diagnostic = {true, "08S01"};
        return SQL_ERROR;
    case OdbcFault::Remark:
    case OdbcFault::Truncated:
        break;
    }
    if (result != SQL_SUCCESS)
        return result;
    diagnostic = {true, kind == OdbcFault::Remark ? "01000" : "01004"};
    return SQL_SUCCESS_WITH_INFO;
}

// --- Calls of which more has to be known ---

SQLRETURN SQL_API BindCol(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                          SQLPOINTER cells, SQLLEN width, SQLLEN* lengths) {
    std::erase_if(bound, [&](const BoundColumn& known) { return known.number == column; });
    if (cells)
        bound.push_back({column, static_cast<char*>(cells), static_cast<size_t>(width), lengths});
    return Pass("SQLBindCol",
                [&] { return SQLBindCol(statement, column, type, cells, width, lengths); });
}

// What a driver leaves when the first row's cells are longer than their room; some drivers know by
// how much.
void Cut() {
    for (const BoundColumn& column : bound) {
        if (*column.lengths == SQL_NULL_DATA)
            continue;
        memset(column.cells, 'x', column.width - sizeof(wchar_t));
        memset(column.cells + column.width - sizeof(wchar_t), 0, sizeof(wchar_t));
        *column.lengths =
            column.number % 2 ? SQL_NO_TOTAL : static_cast<SQLLEN>(2 * column.width + 10);
    }
}

SQLRETURN SQL_API FetchScroll(SQLHSTMT statement, SQLSMALLINT orientation, SQLLEN offset) {
    return Pass("SQLFetchScroll", [&] {
        const SQLRETURN result = SQLFetchScroll(statement, orientation, offset);
        if (SQL_SUCCEEDED(result))
            calls.back() = kFetchingCall;
        if (kind == OdbcFault::Truncated && IsHit() && SQL_SUCCEEDED(result))
            Cut();
        return result;
    });
}

template <class Character> bool Writes(const Character* statement) {
    return std::string_view("iIuUdD").find(static_cast<char>(*statement)) != std::string_view::npos;
}

SQLRETURN SQL_API ExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length) {
    return Pass(Writes(text) ? kWritingCall : "SQLExecDirect",
                [&] { return SQLExecDirect(statement, text, length); });
}
SQLRETURN SQL_API ExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER length) {
    return Pass(Writes(text) ? kWritingCall : "SQLExecDirect",
                [&] { return SQLExecDirectW(statement, text, length); });
}

// Whether the statement that was made ready last writes.
bool preparedWrites = false;

SQLRETURN SQL_API Prepare(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length) {
    preparedWrites = Writes(text);
    return Pass("SQLPrepare", [&] { return SQLPrepare(statement, text, length); });
}
SQLRETURN SQL_API PrepareW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER length) {
    preparedWrites = Writes(text);
    return Pass("SQLPrepare", [&] { return SQLPrepareW(statement, text, length); });
}
SQLRETURN SQL_API ExecutePrepared(SQLHSTMT statement) {
    return Pass(preparedWrites ? kWritingCall : "SQLExecute",
                [&] { return SQLExecute(statement); });
}

SQLRETURN SQL_API GetStmtAttr(SQLHSTMT statement, SQLINTEGER attribute, SQLPOINTER value,
                              SQLINTEGER size, SQLINTEGER* length) {
    return Pass("SQLGetStmtAttr", [&] {
        const SQLRETURN result = SQLGetStmtAttr(statement, attribute, value, size, length);
        if (forwardOnly && attribute == SQL_ATTR_CURSOR_TYPE)
            *static_cast<SQLULEN*>(value) = SQL_CURSOR_FORWARD_ONLY;
        return result;
    });
}

// The other side rolls back what a connection that has gone had begun.
SQLRETURN SQL_API Disconnect(SQLHDBC connection) {
    return Pass("SQLDisconnect", [&] {
        if (IsHit())
            SQLEndTran(SQL_HANDLE_DBC, connection, SQL_ROLLBACK);
        return SQLDisconnect(connection);
    });
}

template <class Character> void Write(const char* from, Character* to) {
    std::copy(from, from + strlen(from) + 1, to);
}

template <class Character>
SQLRETURN OurDiagnostic(SQLSMALLINT number, Character* state, SQLINTEGER* native,
                        Character* message, SQLSMALLINT* length) {
    if (!diagnostic.state || number != 1)
        return SQL_NO_DATA;
    Write(diagnostic.state, state);
    Write(kMessage, message);
    *native = 1;
    *length = static_cast<SQLSMALLINT>(strlen(kMessage));
    return SQL_SUCCESS;
}

SQLRETURN SQL_API GetDiagRec(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number, SQLCHAR* state,
                             SQLINTEGER* native, SQLCHAR* message, SQLSMALLINT size,
                             SQLSMALLINT* length) {
    return diagnostic.ours
               ? OurDiagnostic(number, state, native, message, length)
               : SQLGetDiagRec(type, handle, number, state, native, message, size, length);
}
SQLRETURN SQL_API GetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number,
                              SQLWCHAR* state, SQLINTEGER* native, SQLWCHAR* message,
                              SQLSMALLINT size, SQLSMALLINT* length) {
    return diagnostic.ours
               ? OurDiagnostic(number, state, native, message, length)
               : SQLGetDiagRecW(type, handle, number, state, native, message, size, length);
}

// --- All calls ---

struct Row {
    const char* name;
    void* faulty;
};

const char* NameOf(const void* faulty);

template <auto kFunction> struct Faulty;
template <class... Arguments, SQLRETURN(SQL_API* kFunction)(Arguments...)>
struct Faulty<kFunction> {
    static SQLRETURN SQL_API Call(Arguments... arguments) {
        static const char* const name = NameOf(reinterpret_cast<void*>(&Call));
        return Pass(name, [&] { return kFunction(arguments...); });
    }
};

template <auto kFunction> void* Ordinary() {
    return reinterpret_cast<void*>(&Faulty<kFunction>::Call);
}
template <class Function> void* Own(Function* function) {
    return reinterpret_cast<void*>(function);
}

const Row kRows[] = {
    {"SQLAllocHandle", Ordinary<&SQLAllocHandle>()},
    {"SQLFreeHandle", Ordinary<&SQLFreeHandle>()},
    {"SQLSetEnvAttr", Ordinary<&SQLSetEnvAttr>()},
    {"SQLDriverConnect", Ordinary<&SQLDriverConnect>()},
    {"SQLDriverConnectW", Ordinary<&SQLDriverConnectW>()},
    {"SQLGetInfo", Ordinary<&SQLGetInfo>()},
    {"SQLGetInfoW", Ordinary<&SQLGetInfoW>()},
    {"SQLSetConnectAttr", Ordinary<&SQLSetConnectAttr>()},
    {"SQLEndTran", Ordinary<&SQLEndTran>()},
    {"SQLSetStmtAttr", Ordinary<&SQLSetStmtAttr>()},
    {"SQLNumResultCols", Ordinary<&SQLNumResultCols>()},
    {"SQLDescribeCol", Ordinary<&SQLDescribeCol>()},
    {"SQLDescribeColW", Ordinary<&SQLDescribeColW>()},
    {"SQLColAttribute", Ordinary<&SQLColAttribute>()},
    {"SQLColAttributeW", Ordinary<&SQLColAttributeW>()},
    {"SQLRowCount", Ordinary<&SQLRowCount>()},
    {"SQLGetData", Ordinary<&SQLGetData>()},
    {"SQLBindCol", Own(BindCol)},
    {"SQLFetchScroll", Own(FetchScroll)},
    {"SQLExecDirect", Own(ExecDirect)},
    {"SQLExecDirectW", Own(ExecDirectW)},
    {"SQLNumParams", Ordinary<&SQLNumParams>()},
    {"SQLBindParameter", Ordinary<&SQLBindParameter>()},
    {"SQLPrepare", Own(Prepare)},
    {"SQLPrepareW", Own(PrepareW)},
    {"SQLExecute", Own(ExecutePrepared)},
    {"SQLPrimaryKeys", Ordinary<&SQLPrimaryKeys>()},
    {"SQLPrimaryKeysW", Ordinary<&SQLPrimaryKeysW>()},
    {"SQLGetStmtAttr", Own(GetStmtAttr)},
    {"SQLDisconnect", Own(Disconnect)},
    {"SQLGetDiagRec", Own(GetDiagRec)},
    {"SQLGetDiagRecW", Own(GetDiagRecW)},
};

const char* NameOf(const void* faulty) {
    const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                  [&](const Row& known) { return known.faulty == faulty; });
    return row->name;
}

} // namespace

FaultyOdbc::FaultyOdbc() {
    CLSID clsid;
    Microsoft::WRL::ComPtr<IUnknown> connection; // makes COM load the bridge
    EXPECT_SUCCEEDED(CLSIDFromProgID(L"ADODB.Connection", &clsid));
    EXPECT_SUCCEEDED(
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&connection)));
    if (!GetModuleHandleExW(0, L"adobridge.dll", &bridge_))
        throw std::runtime_error("ADO is not the bridge");
    const HMODULE odbc = GetModuleHandleW(L"odbc32.dll");
    for (void** slot : ImportsFrom(bridge_, "odbc32.dll")) {
        const auto row = std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& known) {
            return reinterpret_cast<void*>(GetProcAddress(odbc, known.name)) == *slot;
        });
        if (row == std::end(kRows))
            throw std::runtime_error(
                "the bridge calls ODBC by a function that is not in the table");
        imports_.push_back({slot, *slot});
        SetImport(slot, row->faulty);
    }
    Begin();
    held = 0;
    forwardOnly = false;
}

FaultyOdbc::~FaultyOdbc() {
    for (const Import& import : imports_)
        SetImport(import.slot, import.real);
    FreeLibrary(bridge_);
}

void FaultyOdbc::Begin(size_t call, OdbcFault fault) {
    calls.clear();
    bound.clear();
    diagnostic = {};
    failing = call;
    kind = fault;
}

void FaultyOdbc::SetForwardOnly(bool given) {
    forwardOnly = given;
}

const std::vector<std::string>& FaultyOdbc::Calls() const {
    return calls;
}
int FaultyOdbc::Held() const {
    return held;
}
bool FaultyOdbc::BridgeIsIdle() const {
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(bridge_, "DllCanUnloadNow")));
    return canUnload() == S_OK;
}

} // namespace vndesk::test
