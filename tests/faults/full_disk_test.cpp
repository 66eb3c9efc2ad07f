// SPDX-License-Identifier: MIT
// The uses that need room in a table, on a server whose disk for tables is full: a small one of the
// runner's own (scripts/with-postgres). Rows that are there are read as ever.
#include <gtest/gtest.h>
#include <stdexcept>

#include "faults/uses.h"
#include "support/env.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

constexpr const wchar_t* kTableSpace = L"small_disk";

// The tables that the uses write to, on the small disk with no room left, neither on it nor in a
// page that they have already.
class FullTables {
public:
    explicit FullTables(const SampleDatabase& database)
        : database_(database), reader_(database.OdbcString()) {
        OdbcSession(PostgresConnection())
            .Execute(std::wstring(L"create tablespace ") + kTableSpace + L" location '" +
                     EnvironmentText(L"VNDESK_PG_SMALL_DISK") + L"'");
        for (const Table& table : kTables)
            database.Execute(std::wstring(L"alter table ") + table.name + L" set tablespace " +
                             kTableSpace);
        // As long as another session may still see them, deleted rows keep their places.
        reader_.Execute(L"begin isolation level repeatable read");
        reader_.ScalarText(L"select count(*) from groups");
        OdbcSession filler(database.OdbcString());
        for (const Table& table : kTables)
            for (const wchar_t* size : {L"1500", L"150", L"0"})
                while (CanInsert(filler, table, size))
                    ++rows_;
    }
    ~FullTables() {
        reader_.Execute(L"rollback");
        for (const Table& table : kTables)
            database_.Execute(std::wstring(L"alter table ") + table.name +
                              L" set tablespace pg_default");
        OdbcSession(PostgresConnection()).Execute(std::wstring(L"drop tablespace ") + kTableSpace);
    }
    FullTables(const FullTables&) = delete;
    FullTables& operator=(const FullTables&) = delete;

    int Rows() const { return rows_; }
    const std::string& Refusal() const { return refusal_; }

private:
    struct Table {
        const wchar_t* name;
        const wchar_t* text; // a column
    };
    static constexpr Table kTables[] = {
        {L"\"user\"", L"name"}, {L"groups", L"name"}, {L"options", L"keyname"}};

    // A row is put in and deleted.
    bool CanInsert(OdbcSession& filler, const Table& table, const wchar_t* size) {
        const std::wstring name = table.name;
        const std::wstring text = table.text;
        const bool coded = text == L"name";
        try {
            filler.Execute(L"insert into " + name + L" (" + (coded ? L"code," : L"") + text +
                           L") values (" + (coded ? L"-1," : L"") + L"repeat('#'," + size + L"))");
        } catch (const std::runtime_error& error) {
            refusal_ = error.what();
            return false;
        }
        filler.Execute(L"delete from " + name + L" where " + text + L"=repeat('#'," + size + L")");
        return true;
    }

    const SampleDatabase& database_;
    OdbcSession reader_;
    int rows_ = 0;
    std::string refusal_;
};

class ServersFullDisk : public testing::TestWithParam<Use> {
protected:
    void SetUp() override {
        if (!SampleDatabase::ServerAvailable() || EnvironmentText(L"VNDESK_PG_SMALL_DISK").empty())
            GTEST_SKIP() << "no PostgreSQL server with a small disk: only root can mount one";
    }
};

TEST_P(ServersFullDisk, IsToldAndLeavesTheTablesAsTheyWere) {
    const Use& use = GetParam();
    const SampleDatabase database = SampleDatabase::Server();
    MakeSmall(database);
    const std::wstring before = Contents(database);
    const SampleDatabase elsewhere = SampleDatabase::Embedded();
    MakeSmall(elsewhere);
    const Played well = Play(use, elsewhere);
    {
        const FullTables full(database);
        ASSERT_GT(full.Rows(), 100);
        ASSERT_NE(std::string::npos, full.Refusal().find("No space left on device"))
            << full.Refusal();
        const Played played = Play(use, database);
        ExpectTold(use, well, played);
        EXPECT_EQ(before, Contents(database));
    }
    // There is room again.
    Play(use, database);
    EXPECT_NE(before, Contents(database));
}

// To delete a row needs no room.
std::vector<Use> UsesThatNeedRoom() {
    std::vector<Use> uses;
    for (const Use& use : AllUses()) {
        const std::string_view name = use.name;
        if (FullRun() ? use.probe && !name.ends_with("Deleted")
                      : name == "UserAdded" || name == "RightsWritten")
            uses.push_back(use);
    }
    return uses;
}

INSTANTIATE_TEST_SUITE_P(Uses, ServersFullDisk, testing::ValuesIn(UsesThatNeedRoom()),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace vndesk::test
