// SPDX-License-Identifier: MIT
// Opening a database: which kind it is, and what happens when it cannot be opened.
#include "data/data_fixture.h"

#include "support/check_hr.h"
#include "support/temp_dir.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kNoDriver[] = L"Driver={Không có};Server=127.0.0.1;Database=x;Uid=a;Pwd=b;";

long StateOf(const Database& database) {
    LONG state = -1;
    EXPECT_SUCCEEDED(database.connection->get_State(&state));
    return state;
}

std::wstring ProviderOf(const Database& database) {
    _bstr_t provider;
    EXPECT_SUCCEEDED(database.connection->get_Provider(provider.GetAddress()));
    return static_cast<const wchar_t*>(provider);
}

class OpenConnectionTest : public DataTest {};
ON_BOTH_ENGINES(OpenConnectionTest);

TEST_P(OpenConnectionTest, OpensAndKnowsItsKind) {
    EXPECT_EQ(adStateOpen, StateOf(Db()));
    EXPECT_EQ(GetParam() == Engine::Embedded ? DatabaseKind::Jet : DatabaseKind::SqlServer, Kind());
    EXPECT_EQ(Sample().ConnectionString(), Db().connectionString);
    if (Kind() == DatabaseKind::Jet) {
        EXPECT_EQ(0u, ProviderOf(Db()).find(L"Microsoft.Jet.OLEDB.4.0"));
    }
    EXPECT_EQ(L"7", Value(L"Select Count(*) From [User]"));
    EXPECT_TRUE(TopWindows().empty());
}

TEST_P(OpenConnectionTest, ClosedConnectionIsClosedAndClosingAgainIsHarmless) {
    Database database = OpenConnection(Sample().ConnectionString());
    CloseConnection(database);
    EXPECT_EQ(adStateClosed, StateOf(database));
    CloseConnection(database);
    Database none;
    CloseConnection(none);
}

TEST(DatabaseKindTest, JetIsNamedInAnyCase) {
    for (const wchar_t* text : {L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a",
                                L"provider=microsoft.jet.oledb.4.0;data source=a"})
        EXPECT_EQ(DatabaseKind::SqlServer, KindOf(text)) << "the provider's name has no blank";
    for (const wchar_t* text :
         {L"x;Jet OLEDB:Engine Type=5", L"x;jet oledb:engine type=5", L"JET OLEDB"})
        EXPECT_EQ(DatabaseKind::Jet, KindOf(text)) << ToUtf8(text);
    EXPECT_EQ(DatabaseKind::SqlServer, KindOf(L""));
    EXPECT_EQ(DatabaseKind::SqlServer, KindOf(L"Provider=SQLOLEDB;Server=x"));
}

TEST(OpenFailureTest, LowerCaseJetStringOpensThroughTheJetProvider) {
    const SampleDatabase sample = SampleDatabase::Embedded();
    // Without a provider in the string: it is the one that the helper sets.
    Database database =
        OpenConnection(L"Data Source=" + sample.File() + L";jet oledb:engine type=5");
    EXPECT_EQ(DatabaseKind::Jet, database.kind);
    EXPECT_EQ(adStateOpen, StateOf(database));
    CloseConnection(database);
    EXPECT_TRUE(TopWindows().empty());
}

void ExpectFailure(const std::wstring& connectionString, DatabaseKind kind) {
    Database database;
    const PlainBox box = WhileClosingBox([&] { database = OpenConnection(connectionString); });
    EXPECT_EQ(connectionString, box.text);
    EXPECT_EQ(L"", box.title);
    EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
    EXPECT_EQ(kind, database.kind);
    ASSERT_NE(nullptr, database.connection.Get());
    EXPECT_EQ(adStateClosed, StateOf(database));

    Recordset rows;
    long error = 0;
    const PlainBox failed =
        WhileClosingBox([&] { error = OpenRecordset(database, rows, L"Select * From [User]"); });
    EXPECT_NE(0, error) << "the first statement fails";
    EXPECT_EQ(L"VnDesk", failed.title);
    EXPECT_NE(L"", failed.text);
}

TEST(OpenFailureTest, ServerThatCannotBeReachedIsShownAndReturnedUnopened) {
    ExpectFailure(kNoDriver, DatabaseKind::SqlServer);
}

TEST(OpenFailureTest, JetFileThatCannotBeOpenedIsShownAndReturnedUnopened) {
    const TempDir folder;
    ExpectFailure(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" +
                      folder.File(L"không có\\host.mdb") + L";Jet OLEDB:Engine Type=5",
                  DatabaseKind::Jet);
}

} // namespace
} // namespace vndesk::test
