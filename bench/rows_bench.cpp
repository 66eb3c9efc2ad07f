// SPDX-License-Identifier: MIT
// Record sets through ADO beside one pass over the same rows by plain ODBC, in 1,000, 10,000 and
// 100,000 rows.
#include "data/connect/database.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "kit/benchmark.h"
#include "support/sample_database.h"

#include <windows.h>
#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using namespace vndesk;

// Every row read once, in blocks, with typed buffers: what no layer above the driver can beat.
class RawPass {
public:
    RawPass(const std::wstring& connection, std::wstring statement)
        : statement_(std::move(statement)) {
        std::wstring text = connection;
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        if (!SQL_SUCCEEDED(SQLDriverConnectW(connection_, nullptr, text.data(), SQL_NTS, nullptr, 0,
                                             nullptr, SQL_DRIVER_NOPROMPT)))
            throw std::runtime_error("the database cannot be opened by ODBC");
    }
    ~RawPass() {
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    RawPass(const RawPass&) = delete;
    RawPass& operator=(const RawPass&) = delete;

    template <class Row> std::size_t Run(Row&& row) {
        SQLHSTMT statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        SQLULEN fetched = 0;
        SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0);
        SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
        SQLBindCol(statement, 1, SQL_C_SLONG, ids_, sizeof ids_[0], idLengths_);
        SQLBindCol(statement, 2, SQL_C_WCHAR, names_, sizeof names_[0], nameLengths_);
        SQLBindCol(statement, 3, SQL_C_DOUBLE, amounts_, sizeof amounts_[0], amountLengths_);
        std::wstring text = statement_;
        if (!SQL_SUCCEEDED(SQLExecDirectW(statement, text.data(), SQL_NTS)))
            throw std::runtime_error("the rows cannot be read by ODBC");
        std::size_t count = 0;
        while (SQL_SUCCEEDED(SQLFetch(statement)) && fetched > 0) {
            count += fetched;
            for (SQLULEN i = 0; i < fetched; ++i)
                row(names_[i]);
        }
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        return count;
    }

private:
    // Wine 10 mixes up the lengths of a block's rows in 32-bit programs.
    static constexpr SQLULEN kBlock = sizeof(void*) == 8 ? 100 : 1;

    std::wstring statement_;
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    SQLINTEGER ids_[100];
    wchar_t names_[100][64];
    double amounts_[100];
    SQLLEN idLengths_[100], nameLengths_[100], amountLengths_[100];
};

class Combo {
public:
    Combo()
        : window_(CreateWindowExW(0, L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL, 0, 0, 200,
                                  200, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
    ~Combo() { DestroyWindow(window_); }
    Combo(const Combo&) = delete;
    Combo& operator=(const Combo&) = delete;

    void Begin() const {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
        SendMessageW(window_, CB_RESETCONTENT, 0, 0);
    }
    void Add(const wchar_t* text) const {
        SendMessageW(window_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    void End() const { SendMessageW(window_, WM_SETREDRAW, TRUE, 0); }

private:
    HWND window_;
};

void Measure(Report& report, const test::SampleDatabase& source, long rows, bool withTargets) {
    const std::wstring statement =
        L"SELECT id, name, amount FROM Rows WHERE id <= " + std::to_wstring(rows);
    const Database database = OpenConnection(source.ConnectionString());
    RawPass raw(source.OdbcString(), statement);
    const auto rawPass = [&] {
        if (raw.Run([](const wchar_t*) {}) != static_cast<std::size_t>(rows))
            throw std::runtime_error("plain ODBC has not read all rows");
    };
    const Target kind = withTargets ? Target::AtMost : Target::Nothing;
    const std::string size = std::to_string(rows) + " rows";
    vndesk::Recordset recordset;
    const auto open = [&] {
        recordset.Create(database);
        recordset.Open(statement);
    };
    Comparison comparison{"record set opened, " + size,
                          "one pass by plain ODBC",
                          kind,
                          1.15,
                          Each(open),
                          Each(rawPass),
                          9};
    report.Compare(comparison);
    comparison.area = "record set opened and counted, " + size;
    comparison.target = 1.25;
    comparison.ours = Each([&] {
        open();
        if (CountRecords(recordset) != rows)
            throw std::runtime_error("not all rows were counted");
    });
    report.Compare(comparison);
    comparison.area = "record set opened, every value read, " + size;
    comparison.kind = Target::Nothing;
    comparison.ours = Each([&] {
        for (open(); !recordset.Eof(); recordset.MoveNext())
            for (long i = 0; i < 3; ++i)
                Keep(recordset.Value(i));
    });
    report.Compare(comparison);

    const Combo ours, theirs;
    comparison.area = "combo filled from a record set, " + size;
    comparison.peer = "the same by plain ODBC and messages";
    comparison.kind = kind;
    comparison.ours = Each([&] {
        ours.Begin();
        for (open(); !recordset.Eof(); recordset.MoveNext())
            ours.Add(NullToText(recordset.Value(1L)).c_str());
        ours.End();
    });
    comparison.theirs = Each([&] {
        theirs.Begin();
        raw.Run([&](const wchar_t* name) { theirs.Add(name); });
        theirs.End();
    });
    report.Compare(comparison);
}

} // namespace

int main(int argc, char** argv) {
    CoInitialize(nullptr);
    int code = 1;
    try {
        Report report("record sets", argc, argv);
        const auto source = test::SampleDatabase::Embedded();
        source.Execute(
            L"CREATE TABLE Rows (id INTEGER PRIMARY KEY, name VARCHAR(40), amount DOUBLE)");
        source.Execute(
            L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000) "
            L"INSERT INTO Rows SELECT i, 'Khách hàng số ' || printf('%06d', i), i * 1.5 FROM n");
        Measure(report, source, 1000, false);
        Measure(report, source, 10000, false);
        Measure(report, source, 100000, true);
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "rows_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
