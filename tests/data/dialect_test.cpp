// SPDX-License-Identifier: MIT
// A database whose host has named its engine: what it counts as, and settings that are kept in it
// without the bridge's help.
#include <gtest/gtest.h>

#include <limits>

#include "comkit/base/com_error.h"
#include "data/connect/engine.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/stores/options.h"
#include "support/engine_variant.h"
#include "support/sample_database.h"

namespace vndesk::test {
namespace {

Settings WithDialect(DialectChoice dialect) {
    Settings settings;
    settings.Dialect = dialect;
    return settings;
}

TEST(NamedEngine, IsNotAsked) {
    const SampleDatabase sample = SampleDatabase::Embedded();
    Database database = OpenConnection(sample.ConnectionString());
    EXPECT_EQ(vndesk::Engine::Sqlite, EngineOf(database));
    database.settings.Dialect = DialectChoice::MySql;
    EXPECT_EQ(vndesk::Engine::MySql, EngineOf(database));
    CloseConnection(database);
}

TEST(NamedEngine, DecidesTheKindWhateverTheStringHolds) {
    const SampleDatabase sample = SampleDatabase::Embedded();
    ASSERT_EQ(DatabaseKind::Jet, KindOf(sample.ConnectionString()));
    for (const auto& [dialect, kind] : {std::pair{DialectChoice::Jet, DatabaseKind::Jet},
                                        {DialectChoice::Sqlite, DatabaseKind::SqlServer}}) {
        Database database = OpenConnection(sample.ConnectionString(), WithDialect(dialect));
        EXPECT_TRUE(IsOpen(database));
        EXPECT_EQ(kind, database.kind);
        CloseConnection(database);
    }
}

class OptionsAsWritten : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (!SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        sample_ = std::make_unique<SampleDatabase>(SampleDatabase::Server());
        Settings settings = WithDialect(DialectChoice::PostgreSql);
        settings.BindParameters = CurrentVariant().bound;
        database_ = OpenConnection(sample_->ConnectionString(), settings);
    }
    void TearDown() override { CloseConnection(database_); }

    const VariantInUse variant_{GetParam()};
    std::unique_ptr<SampleDatabase> sample_;
    Database database_;
};

INSTANTIATE_DIALECTS(OptionsAsWritten, "PostgreSql", "PostgreSqlBound");

TEST_P(OptionsAsWritten, AreKeptAsTheyWereGiven) {
    for (const wchar_t* text :
         {L"O'Brien", L"5\" C:\\x\\", L"Hà Nội", L"'); drop table menu; --"}) {
        const OptionName name = {L"Thử", text};
        EXPECT_EQ(L"(none)", GetOption(database_, name, L"(none)"));
        EXPECT_EQ(0, SetOption(database_, name, text, L"", false));
        EXPECT_EQ(text, GetOption(database_, name, L"(none)"));
        EXPECT_EQ(0, SetOption(database_, name, L"2", text, false));
        EXPECT_EQ(L"2", GetOption(database_, name, L"(none)"));
        EXPECT_EQ(0, SetOption(database_, name, L"3", text, true));
    }
    EXPECT_EQ(L"8", sample_->ScalarText(L"select count(*) from options where section='Thử'"));
    const std::wstring described = std::wstring(L"O'Brien") + (BindsValues() ? L"" : L" ");
    EXPECT_EQ(described, sample_->ScalarText(L"select description from options where section='Thử' "
                                             L"and keyname='O''Brien' and keyvalue='2'"));
}

TEST_P(OptionsAsWritten, TheTimeOfTheServerIsRead) {
    EXPECT_NEAR(MachineTime().days, ServerTime(database_).days, 1.0 / 24);
}

// What the statements of 1.0 meet there.
TEST_P(OptionsAsWritten, HostsThatNameNoEngineNeedTheBridge) {
    database_.settings.Dialect = DialectChoice::Auto;
    Recordset rows;
    rows.Create(database_);
    EXPECT_THROW(rows.Open(OwnStatement(L"Select * From [User]", database_.Style())), ComError);
}

} // namespace
} // namespace vndesk::test
