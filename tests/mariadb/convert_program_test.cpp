// SPDX-License-Identifier: MIT
// vndesk-convert.exe on MariaDB, where a kind of table takes nothing back.
#include <gtest/gtest.h>

#include "support/convert_program.h"

namespace vndesk::test {
namespace {

TEST(MariaDbConvert, ConvertsTablesWithTransactionsOnly) {
    if (!SampleDatabase::MariaDbAvailable())
        GTEST_SKIP() << "no MariaDB server: VNDESK_MARIADB is not set";
    const SampleDatabase database = SampleDatabase::MariaDb();
    const std::wstring name = L"Nguyễn Văn Hưng, Một Số Lớp", old = Old(name);
    for (const wchar_t* engine : {L"InnoDB", L"MyISAM", L"Aria"}) {
        const std::wstring table = std::wstring(L"Bảng `") + engine,
                           quoted = std::wstring(L"`Bảng ``") + engine + L"`";
        database.Execute(L"create table " + quoted +
                         L"(`Mã` integer primary key, `Tên?` "
                         L"varchar(60)) engine=" +
                         engine);
        database.Execute(L"insert into " + quoted + L" values(1," + Literal(old) + L"),(2,null)");
        const Conversion conversion(OnTable(database, table, L"tên?", {L"--from", L"tcvn3"}));
        const bool takesBack = engine == std::wstring_view(L"InnoDB");
        EXPECT_EQ(takesBack ? 0u : 2u, conversion.Code()) << ToUtf8(conversion.Said());
        EXPECT_EQ(takesBack, conversion.Said().find(L"takes nothing back") == std::wstring::npos);
        EXPECT_EQ(takesBack ? name : old,
                  database.ScalarText(L"select `Tên?` from " + quoted + L" where `Mã`=1"));
    }
}

} // namespace
} // namespace vndesk::test
