// SPDX-License-Identifier: MIT
// Opening goes on after a step that fails: a machine without the provider that the library names
// first may still have the one that the connection string names.
#include <gtest/gtest.h>

#include <algorithm>

#include "data/connect/database.h"
#include "faults/faulty_ado.h"
#include "faults/uses.h"

namespace vndesk::test {
namespace {

TEST(RefusedProvider, StringsOwnProviderIsOpenedAfterTheMessage) {
    FaultyAdo ado;
    const SampleDatabase database = SampleDatabase::Embedded();
    const Use& logon = AllUses().front();
    ado.Begin();
    const Played well = Play(logon, database);
    ASSERT_EQ(logon.answer, well.answer);
    const auto provider = std::find(ado.Calls().begin(), ado.Calls().end(), "Connection.Provider");
    ASSERT_NE(ado.Calls().end(), provider);
    ado.Begin(static_cast<size_t>(provider - ado.Calls().begin()) + 1);
    const Played refused = Play(logon, database);
    EXPECT_EQ(logon.answer, refused.answer);
    EXPECT_EQ(std::vector<std::wstring>{database.ConnectionString()}, refused.messages);
    EXPECT_EQ(0, ado.Objects());
}

// Where the host names a dialect the connection string says all: providers that refuse another
// one's name are asked nothing.
TEST(RefusedProvider, IsNotSetWhereTheHostNamesADialect) {
    const SampleDatabase sample = SampleDatabase::Embedded();
    const auto sets = [&](DialectChoice dialect) {
        FaultyAdo ado;
        ado.Begin();
        Settings settings;
        settings.Dialect = dialect;
        Database database = OpenConnection(sample.ConnectionString(), settings);
        EXPECT_TRUE(IsOpen(database));
        CloseConnection(database);
        return std::count(ado.Calls().begin(), ado.Calls().end(), "Connection.Provider");
    };
    EXPECT_EQ(1, sets(DialectChoice::Auto));
    for (const DialectChoice dialect : {DialectChoice::Jet, DialectChoice::Sqlite})
        EXPECT_EQ(0, sets(dialect));
}

} // namespace
} // namespace vndesk::test
