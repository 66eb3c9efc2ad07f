// SPDX-License-Identifier: MIT
// The conversion of a table beside the same updates by plain ODBC: prepared once, bound, in one
// transaction. The conversion also reads, judges, and looks whether the database has kept it.
#include "console/language.h"
#include "convert/table_conversion.h"
#include "kit/benchmark.h"
#include "support/env.h"
#include "support/sample_database.h"
#include "text/encodings/convert.h"

#include <windows.h>
#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <stdexcept>
#include <string>

namespace {

using namespace bench;
using namespace vndesk;

constexpr long kRows = 100000;
const std::wstring kName = L"Công ty Thương mại Đông Đô số ", kStreet = L" Lê Lợi, Quận 1";

std::wstring Old(const std::wstring& text) {
    return ConvertEncoding(text, Encoding::Unicode, Encoding::Tcvn3).text;
}

// Texts go to SQLite's driver as UTF-8 bytes: its wide functions follow the Unix locale.
class PlainUpdates {
public:
    explicit PlainUpdates(const test::SampleDatabase& source) : utf8_(!source.File().empty()) {
        std::wstring text = source.OdbcString();
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
        Check(SQLDriverConnectW(connection_, nullptr, text.data(), SQL_NTS, nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT));
    }
    ~PlainUpdates() {
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    PlainUpdates(const PlainUpdates&) = delete;
    PlainUpdates& operator=(const PlainUpdates&) = delete;

    void Run() {
        SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT,
                          reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
        SQLHSTMT statement = nullptr;
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
        wchar_t text[] = L"Update goods Set ten=?,dc=? Where ma=?";
        Check(SQLPrepareW(statement, text, SQL_NTS));
        wchar_t name[100], street[100];
        char nameBytes[200], streetBytes[200];
        SQLINTEGER key = 0;
        SQLLEN ended = SQL_NTS, whole = 0;
        Bind(statement, 1, name, nameBytes, &ended);
        Bind(statement, 2, street, streetBytes, &ended);
        Check(SQLBindParameter(statement, 3, SQL_PARAM_INPUT, SQL_C_SLONG, SQL_INTEGER, 0, 0, &key,
                               0, &whole));
        for (key = 1; key <= kRows; ++key) {
            const std::wstring number = std::to_wstring(key);
            Put(kName + number, name, nameBytes);
            Put(number + kStreet, street, streetBytes);
            Check(SQLExecute(statement));
        }
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        Check(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT));
        SQLSetConnectAttr(connection_, SQL_ATTR_AUTOCOMMIT,
                          reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
    }

private:
    static void Check(SQLRETURN result) {
        if (!SQL_SUCCEEDED(result))
            throw std::runtime_error("plain ODBC has failed");
    }
    void Bind(SQLHSTMT statement, SQLUSMALLINT number, wchar_t* wide, char* bytes,
              SQLLEN* length) const {
        Check(utf8_ ? SQLBindParameter(statement, number, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR,
                                       60, 0, bytes, 200, length)
                    : SQLBindParameter(statement, number, SQL_PARAM_INPUT, SQL_C_WCHAR,
                                       SQL_WVARCHAR, 60, 0, wide, 200, length));
    }
    void Put(const std::wstring& text, wchar_t* wide, char* bytes) const {
        if (utf8_)
            bytes[WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes,
                                      199, nullptr, nullptr)] = 0;
        else
            text.copy(wide, text.size() + 1), wide[text.size()] = 0;
    }

    const bool utf8_;
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
};

void Measure(Report& report, const test::SampleDatabase& source, const char* engine, Target kind) {
    source.Execute(L"create table goods(ma integer primary key, ten varchar(60), dc varchar(60))");
    source.Execute(L"insert into goods(ma) with recursive s(n) as (select 1 union all select n+1 "
                   L"from s where n<100000) select n from s");
    const auto makeOld = [&] {
        source.Execute(L"update goods set ten='" + Old(kName) + L"'||ma, dc=ma||'" + Old(kStreet) +
                       L"'");
    };
    convert::Options options;
    options.table = L"goods";
    options.columns = {L"ten", L"dc"};
    const auto converted = [&] {
        if (source.ScalarText(L"select count(*) from goods where ten='" + kName +
                              L"'||ma and dc=ma||'" + kStreet + L"'") != std::to_wstring(kRows))
            throw std::runtime_error("not all rows were converted");
    };
    Settings settings;
    settings.OnConnectionError = ConnectionErrors::Raise;
    PlainUpdates plain(source);
    report.Compare({std::string("conversion of 100,000 rows, ") + engine,
                    "the updates alone by plain ODBC", kind, 1.5,
                    Between(
                        makeOld,
                        [&] {
                            OpenedDatabase database(source.ConnectionString(), settings);
                            convert::ConvertTable(*database, options, [](auto, const auto&) {});
                        },
                        converted),
                    Between(
                        makeOld, [&] { plain.Run(); }, converted),
                    3});
}

} // namespace

int main(int argc, char** argv) {
    CoInitialize(nullptr);
    int code = 1;
    try {
        Report report("conversion", argc, argv);
        Measure(report, test::SampleDatabase::Embedded(), "SQLite", Target::Nothing);
        if (test::SampleDatabase::ServerAvailable())
            Measure(report, test::SampleDatabase::Server(), "PostgreSQL", Target::AtMost);
        code = report.Finish();
    } catch (const convert::Refusal& refusal) {
        std::fprintf(stderr, "convert_bench: refused, message %d\n",
                     static_cast<int>(refusal.message));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "convert_bench: %s\n", error.what());
    }
    CoUninitialize();
    return code;
}
