// SPDX-License-Identifier: MIT
// Handles of ODBC and their errors. Text goes in and out as wide text, however the driver takes it.
#pragma once

#include <windows.h>

// Both spellings of the text functions are needed.
#ifndef SQL_NOUNICODEMAP
#define SQL_NOUNICODEMAP
#endif
#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "comkit/base/com_error.h"

namespace vndesk::ado {

// How a driver takes text. Drivers without Unicode entry points take UTF-8 and must be called by
// the byte functions: converting for them, the driver manager follows the Unix locale and loses
// letters where that is not UTF-8. MariaDB's driver takes both, but counts letters of wide texts
// wrong whose low byte is that of a surrogate, such as U+1ED9: it cuts such texts, or reads on
// behind them.
enum class OdbcText { Utf16, Utf8 };

struct Diagnostic {
    HRESULT code;
    std::wstring description;
    std::wstring sqlState;
    long nativeError;
};

// A failed driver call, with all its diagnostics. The first diagnostic is the error.
class DriverError : public ComError {
public:
    explicit DriverError(std::vector<Diagnostic> diagnostics);
    const std::vector<Diagnostic>& Diagnostics() const noexcept { return *diagnostics_; }

private:
    std::shared_ptr<const std::vector<Diagnostic>> diagnostics_; // exceptions are copied
};

// What a failure without a diagnostic is taken for.
struct Unsaid {
    const wchar_t* sqlState = L"HY000";
    const wchar_t* description = L"The ODBC driver failed without saying why.";
};

// Throws DriverError unless `result` is a success or "no data".
void CheckOdbc(SQLRETURN result, SQLSMALLINT handleType, SQLHANDLE handle, OdbcText text,
               const Unsaid& unsaid = {});

// One ODBC handle.
template <SQLSMALLINT kType> class OdbcHandle {
public:
    explicit OdbcHandle(SQLHANDLE parent) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_)))
            throw ComError(E_FAIL, L"The ODBC driver manager does not answer.");
    }
    ~OdbcHandle() { SQLFreeHandle(kType, handle_); }
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    SQLHANDLE Get() const { return handle_; }

private:
    SQLHANDLE handle_ = nullptr;
};

struct OdbcColumn {
    std::wstring name;
    std::wstring typeName; // the engine's own name for the type
    SQLSMALLINT type;
    SQLULEN size;
};

class OdbcConnection {
public:
    OdbcConnection(const std::wstring& connectionString, OdbcText text);
    ~OdbcConnection();

    SQLHDBC Handle() const { return connection_.Get(); }
    OdbcText Text() const { return text_; }
    const std::wstring& EngineName() const { return engine_; }
    bool IsSqlite() const { return engine_.find(L"SQLite") != std::wstring::npos; }
    wchar_t NameQuote() const { return quote_; }

    std::wstring Info(SQLUSMALLINT what) const;

    void SetAutoCommit(bool on);
    void EndTransaction(bool commit);

private:
    struct Environment : OdbcHandle<SQL_HANDLE_ENV> {
        Environment();
    };

    Environment environment_;
    OdbcHandle<SQL_HANDLE_DBC> connection_;
    OdbcText text_;
    bool connected_ = false;
    std::wstring engine_;
    wchar_t quote_ = 0;
};

class OdbcStatement {
public:
    explicit OdbcStatement(const OdbcConnection& connection);

    SQLHSTMT Handle() const { return statement_.Get(); }
    OdbcText Text() const { return text_; }

    void Execute(std::wstring_view statement);
    // Gives the rows of the catalogue instead of a statement's.
    void ReadPrimaryKeys(const std::optional<std::wstring>& catalog,
                         const std::optional<std::wstring>& schema, const std::wstring& table);
    int ColumnCount() const;
    OdbcColumn Column(int number) const; // counted from 1
    SQLLEN RowCount() const;             // -1 when the driver does not know
    bool IsScrollable() const;
    // False when there are no more rows.
    bool Fetch(SQLSMALLINT orientation, SQLLEN offset);
    void Check(SQLRETURN result) const { CheckOdbc(result, SQL_HANDLE_STMT, Handle(), text_); }

private:
    OdbcHandle<SQL_HANDLE_STMT> statement_;
    OdbcText text_;
};

} // namespace vndesk::ado
