// SPDX-License-Identifier: MIT
// vndesk-check --connect, on databases of both engines that lack one thing or another.
#include <filesystem>
#include <fstream>
#include <optional>

#include "com/check_program.h"
#include "support/sample_database.h"
#include "support/security_settings.h"

namespace {

using namespace vndesk::test;

class CheckDatabase : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (OnServer() && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no server: scripts/with-postgres starts one";
        database_.emplace(OnServer() ? SampleDatabase::Server() : SampleDatabase::Embedded());
    }

    static bool OnServer() { return GetParam() == std::string_view("Server"); }
    const SampleDatabase& Database() const { return *database_; }
    Found Check() const { return Found({L"--connect", Database().ConnectionString()}); }

private:
    std::optional<SampleDatabase> database_;
};

INSTANTIATE_TEST_SUITE_P(Embedded, CheckDatabase, testing::Values("Embedded"));
INSTANTIATE_TEST_SUITE_P(Server, CheckDatabase, testing::Values("Server"));

TEST_P(CheckDatabase, SampleDatabaseLacksNothingButTheUpgrades) {
    const Found found = Check();
    EXPECT_EQ(Names{}, found.bad);
    EXPECT_EQ(0u, found.code);
    EXPECT_NE(std::wstring::npos,
              found.Values(L"database-opened").at(0).find(OnServer() ? L"PostgreSQL" : L"SQLite"));
    EXPECT_EQ(L"User, Groups, Menu, SubMenu, LstFld, Operator, Options",
              found.Values(L"tables-present").at(0));
    EXPECT_EQ(L"VnUser", found.Values(L"upgrade-missing").at(0));
    EXPECT_EQ(OnServer() ? L"accounts.postgresql" : L"accounts.sqlite",
              found.Values(L"upgrade-missing").at(1));
    EXPECT_FALSE(found.Has(L"upgrades-present"));
}

TEST_P(CheckDatabase, FindsTheUpgrades) {
    Upgrade(Database(), L"accounts");
    Upgrade(Database(), L"audit");
    const Found found = Check();
    EXPECT_EQ(L"VnUser, VnAudit", found.Values(L"upgrades-present").at(0));
    EXPECT_FALSE(found.Has(L"upgrade-missing"));
    EXPECT_EQ(0u, found.code);
}

TEST_P(CheckDatabase, NamesWhatIsMissing) {
    Database().Execute(L"drop table submenu");
    Database().Execute(L"drop table operator");
    Database().Execute(L"alter table groups rename column des to mota");
    Database().Execute(L"delete from \"user\" where code=3");
    Database().Execute(L"delete from groups where code=8");
    Database().Execute(L"insert into menu(id) values (901)");
    const Found found = Check();
    EXPECT_EQ((Names{L"table-missing", L"search-table-missing", L"column-missing",
                     L"rights-columns-missing", L"group-missing", L"administrator-missing"}),
              found.bad);
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ(L"SubMenu", found.Values(L"table-missing").at(0));
    EXPECT_EQ(L"Operator", found.Values(L"search-table-missing").at(0));
    EXPECT_EQ(L"Groups", found.Values(L"column-missing").at(0));
    EXPECT_EQ(L"Des", found.Values(L"column-missing").at(1));
    EXPECT_EQ(L"3", found.Values(L"rights-columns-missing").at(0));
    EXPECT_EQ(L"4", found.Values(L"rights-columns-missing").at(1));
    EXPECT_EQ(L"8", found.Values(L"group-missing").at(0));
}

TEST_P(CheckDatabase, NamesColumnsThatAreNotInTheirPlace) {
    Database().Execute(L"alter table \"user\" rename to old");
    Database().Execute(L"create table \"user\"(name varchar(50), code integer, dec varchar(50), "
                       L"idgroup integer, password float)");
    Database().Execute(L"insert into \"user\" select name, code, dec, idgroup, password from old");
    const Found found = Check();
    EXPECT_EQ(Names{L"column-order"}, found.bad);
    EXPECT_EQ(L"User", found.Values(L"column-order").at(0));
    EXPECT_EQ(L"Code", found.Values(L"column-order").at(1));
    EXPECT_EQ(L"1", found.Values(L"column-order").at(2));
}

TEST_P(CheckDatabase, ChangesNothing) {
    const auto contents = [&] {
        std::wstring all;
        for (const wchar_t* table :
             {L"\"user\"", L"groups", L"menu", L"submenu", L"lstfld", L"operator", L"options"})
            for (const auto& row :
                 Database().Query(L"select * from " + std::wstring(table) + L" order by 1"))
                for (const auto& cell : row)
                    all += cell.value_or(L"(null)") + L"|";
        return all;
    };
    const std::wstring before = contents();
    Check();
    EXPECT_EQ(before, contents());
}

// --- Connections that fail ---

constexpr wchar_t kMissingFile[] =
    L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\khong co\\host.db;User ID=thungan;"
    L"Jet OLEDB:Database Password=rat-bi-mat";

TEST(CheckConnection, AFailureHasANameAndNoSecretIsPrinted) {
    for (const wchar_t* language : {L"--en", L"--vi", L"--fr"}) {
        const Printed printed = RunCheck({L"--connect", kMissingFile, language});
        EXPECT_EQ(2u, printed.code);
        EXPECT_NE(std::wstring::npos, printed.text.find(L"(database-file-not-found)"));
        EXPECT_EQ(std::wstring::npos, printed.text.find(L"rat-bi-mat")) << ToUtf8(printed.text);
        EXPECT_EQ(std::wstring::npos, printed.text.find(L"thungan")) << ToUtf8(printed.text);
    }
    const Found found({L"--connect", L"Provider=KhongCo.1;Password=rat-bi-mat"});
    EXPECT_EQ(Names{L"database-driver-missing"}, found.bad);
    EXPECT_EQ(std::to_wstring(8 * sizeof(void*)), found.Values(L"database-driver-missing").at(1));
}

TEST(CheckConnection, PiecesOfAStringWithoutQuotesAreNotRepeated) {
    const TempDir folder;
    const std::wstring output = folder.File(L"errors.txt");
    ChildProcess program({BesideTests(L"vndesk-check.exe"), L"--connect", L"Provider=x;User",
                          L"ID=thungan;Password=rat", L"bi", L"mat"},
                         output);
    EXPECT_EQ(3u, program.ExitCode(kCheckLimit));
    const std::wstring text = ReadUtf8File(output);
    EXPECT_NE(std::wstring::npos, text.find(L"--connect \"...\"?")) << ToUtf8(text);
    EXPECT_EQ(std::wstring::npos, text.find(L"thungan")) << ToUtf8(text);
}

TEST(CheckConnection, TheStringMayComeByTheStandardInput) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const TempDir folder;
    const std::wstring file = folder.File(L"string.txt");
    std::ofstream(std::filesystem::path(file)) << ToUtf8(database.ConnectionString()) << "\n--en\n";
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    const HANDLE input = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, &inherited,
                                     OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, input);
    const HANDLE before = GetStdHandle(STD_INPUT_HANDLE);
    SetStdHandle(STD_INPUT_HANDLE, input);
    const Found found({L"--connect", L"-"});
    SetStdHandle(STD_INPUT_HANDLE, before);
    CloseHandle(input);
    EXPECT_TRUE(found.Has(L"database-opened"));
    EXPECT_EQ(0u, found.code);
}

} // namespace
