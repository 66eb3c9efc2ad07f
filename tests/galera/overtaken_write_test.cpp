// SPDX-License-Identifier: MIT
// A host writes a row that another node writes meanwhile: the node that hears of it later refuses
// its own write, whole.
#include <algorithm>

#include "faults/uses.h"
#include "galera/galera.h"
#include "support/engine_variant.h"
#include "support/in_threads.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

using OvertakenWrite = Galera;

TEST_F(OvertakenWrite, IsToldAndLeavesNothing) {
    const VariantInUse variant("MariaDbBound");
    const SampleDatabase database = SampleDatabase::Galera();
    MakeSmall(database);
    const auto& uses = ToldUses();
    const auto edit = std::ranges::find(uses, std::string_view("GroupEditedRecorded"),
                                        [](const Use& use) { return std::string_view(use.name); });
    ASSERT_NE(uses.end(), edit);

    // The host has written the group, and waits where it would write its record.
    OdbcSession first(From(1, database.OdbcString())), second(From(2, database.OdbcString()));
    first.Execute(L"start transaction");
    first.Query(L"select code from vnaudit for update");
    Played played;
    InThreads(2, COINIT_APARTMENTTHREADED, 60000, [&](int number) {
        if (number == 0) {
            played = Play(*edit, database);
            return;
        }
        EXPECT_TRUE(WaitUntil([&] {
            return first.ScalarText(L"select count(*) from information_schema.processlist where "
                                    L"state='Update' and info like 'Insert Into `VnAudit`%'") ==
                   L"1";
        }));
        second.Execute(L"update groups set des='o nut khac' where code=2");
    });
    first.Execute(L"rollback");
    EXPECT_EQ(std::vector<std::wstring>{L"Không thể ghi dữ liệu vào bảng"}, played.messages);
    EXPECT_EQ(L"o nut khac", database.ScalarText(L"select des from groups where code=2"));
    EXPECT_EQ(L"0", database.ScalarText(L"select count(*) from vnaudit"));
    ExpectSameEverywhere(database);
}

} // namespace
} // namespace vndesk::test
