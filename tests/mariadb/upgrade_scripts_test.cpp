// SPDX-License-Identifier: MIT
// The scripts of schema/ on MariaDB: what they make, and that the upgrades may be run twice.
#include <gtest/gtest.h>

#include "support/env.h"
#include "support/sample_database.h"
#include "support/security_settings.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

using Rows = std::vector<OdbcSession::Row>;

class MariaDbScripts : public testing::Test {
protected:
    void SetUp() override {
        if (!SampleDatabase::MariaDbAvailable())
            GTEST_SKIP() << "no MariaDB server: VNDESK_MARIADB is not set";
        database_ = std::make_unique<SampleDatabase>(SampleDatabase::MariaDb());
    }
    std::wstring Read(const wchar_t* statement) const { return database_->ScalarText(statement); }
    void RunUpgrades() const {
        for (const wchar_t* script : {L"accounts", L"audit"})
            Upgrade(*database_, script);
    }

    std::unique_ptr<SampleDatabase> database_;
};

TEST_F(MariaDbScripts, NamesRegardNoCaseButEveryToneAndMark) {
    const auto found = [&](const wchar_t* name) {
        return Read(
            (L"select count(*) from `User` where Name='" + std::wstring(name) + L"'").c_str());
    };
    EXPECT_EQ(L"1", found(L"NGUYỄN văn HƯNG"));
    EXPECT_EQ(L"1", found(L"đặng NGỌC sơn"));
    for (const wchar_t* other :
         {L"Nguyễn Văn Hùng", L"Nguyễn Văn Hung", L"Nguyen Van Hung", L"Dang Ngoc Son"})
        EXPECT_EQ(L"0", found(other)) << ToUtf8(other);
    EXPECT_EQ(L"C:\\SaoLuu", Read(L"select KeyValue from `Options` where KeyName='ThuMucSaoLuu'"));
}

TEST_F(MariaDbScripts, NumbersGoOnBehindTheSamples) {
    database_->Execute(L"insert into `User`(Name) values('moi')");
    EXPECT_EQ(L"10", Read(L"select Code from `User` where Name='moi'"));
    database_->Execute(L"insert into `Groups`(Name) values('moi')");
    EXPECT_EQ(L"9", Read(L"select Code from `Groups` where Name='moi'"));
}

TEST_F(MariaDbScripts, LogonsAndGroupsUseTheirIndexes) {
    constexpr size_t kKey = 5;
    EXPECT_EQ(L"UserName",
              database_->Query(L"explain select * from `User` where Name='x' and Password=1")
                  .at(0)
                  .at(kKey));
    EXPECT_EQ(L"UserIdGroup",
              database_->Query(L"explain select * from `User` where IdGroup=7").at(0).at(kKey));
}

// With a row in each of the new tables before the second time: nothing is made anew.
TEST_F(MariaDbScripts, UpgradesMakeTheirTablesOnce) {
    constexpr wchar_t kUsers[] = L"select * from `User` order by Code",
                      kAccount[] = L"select * from VnUser", kRecord[] = L"select * from VnAudit";
    const Rows users = database_->Query(kUsers);
    RunUpgrades();
    // What has no default is all that a row needs.
    EXPECT_EQ(1, database_->Execute(L"insert into VnUser(UserCode) values(3)"));
    EXPECT_EQ(1, database_->Execute(L"insert into VnAudit(Action) values('logon')"));
    const Rows account = database_->Query(kAccount), record = database_->Query(kRecord);
    EXPECT_EQ(L"0|0", Read(L"select concat(Failed,'|',MustChange) from VnUser"));
    EXPECT_EQ(L"1|1",
              Read(L"select concat(Code,'|',abs(timestampdiff(second,`At`,utc_timestamp()))<60) "
                   L"from VnAudit"));
    RunUpgrades();
    EXPECT_EQ(account, database_->Query(kAccount));
    EXPECT_EQ(record, database_->Query(kRecord));
    EXPECT_EQ(users, database_->Query(kUsers));
    // One row for each user.
    EXPECT_THROW(database_->Execute(L"insert into VnUser(UserCode) values(3)"), std::runtime_error);
}

// A database made before had the collation of its server.
TEST_F(MariaDbScripts, UpgradesKeepVietnameseTextInADatabaseOfAnotherCharacterSet) {
    database_->Execute(L"alter database character set latin1");
    RunUpgrades();
    database_->Execute(
        L"insert into VnAudit(Action,Subject,`Before`) values('x','Đặng Ngọc Sơn','Hưng ằ')");
    EXPECT_EQ(L"Đặng Ngọc Sơn|Hưng ằ", Read(L"select concat(Subject,'|',`Before`) from VnAudit"));
}

} // namespace
} // namespace vndesk::test
