// SPDX-License-Identifier: MIT
// The conversion of a table with faults below the ADO bridge: whichever of its calls to ODBC fails,
// all of the table is converted or nothing, and which of the two is said.
#include <gtest/gtest.h>

#include "comkit/base/com_error.h"
#include "convert/table_conversion.h"
#include "faults/faulty_odbc.h"
#include "support/convert_program.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

struct Kind {
    OdbcFault fault;
    const char* name;
    bool onlyStatements; // that are run, and the commit
};

constexpr Kind kKinds[] = {{OdbcFault::Told, "fails", false},
                           {OdbcFault::Silent, "fails without a word", false},
                           {OdbcFault::Lost, "loses the connection", false},
                           {OdbcFault::Unconfirmed, "works and loses the connection", true},
                           {OdbcFault::Remark, "works with a remark", false}};

enum class End { Converted, Refused, NotKnown };

End ConvertAll(const SampleDatabase& database) {
    convert::Options options;
    options.table = L"t";
    options.columns = {L"ten"};
    Settings settings;
    settings.OnConnectionError = ConnectionErrors::Raise;
    End end = End::Converted;
    const ErrorState error = Trap([&] {
        try {
            const OpenedDatabase opened(database.ConnectionString(), settings);
            convert::ConvertTable(*opened, options, [](auto, const auto&) {});
        } catch (const convert::Refusal& refusal) {
            end = refusal.message == convert::Message::AnswerLost ? End::NotKnown : End::Refused;
        }
    });
    return error ? End::Refused : end;
}

TEST(ConvertFaults, LeaveAllOrNothing) {
    FaultyOdbc odbc;
    const SampleDatabase database = SampleDatabase::Embedded();
    database.Execute(L"create table t(ma integer primary key, ten varchar(60))");
    database.Execute(L"insert into t values(1,''),(2,''),(3,'')");
    const auto makeOld = [&] {
        database.Execute(L"update t set ten=" + Literal(Old(L"Nguyễn Văn Hưng")));
    };
    const auto converted = [&] {
        return database.ScalarText(L"select count(*) from t where ten='Nguyễn Văn Hưng'");
    };
    makeOld();
    odbc.Begin();
    ASSERT_EQ(End::Converted, ConvertAll(database));
    const std::vector<std::string> calls = odbc.Calls();
    EXPECT_EQ(L"3", converted());
    int refused = 0, unknown = 0;
    for (const Kind& kind : kKinds)
        for (std::size_t call = 1; call <= calls.size(); ++call) {
            const std::string& name = calls[call - 1];
            const bool runs = name.starts_with("SQLE");
            if ((kind.onlyStatements && !runs) ||
                (!FullRun() && !runs && kind.fault != OdbcFault::Told))
                continue;
            SCOPED_TRACE(name + ", call " + std::to_string(call) + " " + kind.name);
            odbc.Begin();
            makeOld();
            odbc.Begin(call, kind.fault);
            const End end = ConvertAll(database);
            odbc.Begin();
            const std::wstring rows = converted();
            if (end == End::NotKnown)
                EXPECT_TRUE(rows == L"0" || rows == L"3");
            else
                EXPECT_EQ(end == End::Converted ? L"3" : L"0", rows);
            refused += end == End::Refused ? 1 : 0;
            unknown += end == End::NotKnown ? 1 : 0;
            EXPECT_TRUE(odbc.BridgeIsIdle());
            EXPECT_EQ(0, odbc.Held());
        }
    TellFigures(calls.size(), " calls of one conversion; refused ", refused, " times, unknown ",
                unknown, " times");
    EXPECT_LT(0, refused);
    EXPECT_LT(0, unknown);
}

} // namespace
} // namespace vndesk::test
