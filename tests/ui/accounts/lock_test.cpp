// SPDX-License-Identifier: MIT
// Users who are locked out after wrong passwords, without a window. Times are set in the table, so
// that nobody waits for them.
#include "support/accounts.h"

#include "support/forms/host_process.h"
#include "support/setup.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kWrong[] = L"sai";
constexpr long kMain = 3;

class Lock : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        settings_.LockAfter = 3;
        settings_.LockWindowMinutes = 30;
        settings_.LockMinutes = 10;
    }

    long Try(const wchar_t* password) const { return Verify(kThuName, password); }
    void Fail(int times) const {
        for (int i = 0; i < times; ++i)
            EXPECT_EQ(0, Try(kWrong));
    }
    // What the row holds of tries, with the times from now.
    void MakeTries(long failed, long firstAt, std::optional<long> lockedUntil, long code = kThu) {
        GiveHash(code, L"", kAbc);
        SetKept(code, L"failed=" + std::to_wstring(failed) + L",firstat=" + TimeLiteral(firstAt));
        if (lockedUntil)
            SetKept(code, L"lockeduntil=" + TimeLiteral(*lockedUntil));
    }
};

INSTANTIATE_ACCOUNTS_IN_DIALECTS(Lock);

TEST_P(Lock, LastFailureThatIsAllowedLocks) {
    Fail(2);
    EXPECT_EQ(L"2", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    Fail(1);
    EXPECT_EQ(L"3", Kept(L"failed"));
    EXPECT_NEAR(600, SecondsUntil(L"lockeduntil"), 30);
    EXPECT_EQ(0, Try(L"abc"));
}

TEST_P(Lock, TriesWhileLockedChangeNothing) {
    MakeTries(3, -60, 300);
    const std::wstring until = Kept(L"lockeduntil"), first = Kept(L"firstat");
    Fail(3);
    EXPECT_EQ(0, Try(L"abc"));
    EXPECT_EQ(until, Kept(L"lockeduntil"));
    EXPECT_EQ(first, Kept(L"firstat"));
    EXPECT_EQ(L"3", Kept(L"failed"));
}

TEST_P(Lock, LockThatIsOverIsForgotten) {
    MakeTries(3, -660, -1);
    Fail(1);
    EXPECT_EQ(L"1", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    EXPECT_NEAR(0, SecondsUntil(L"firstat"), 30);
    EXPECT_EQ(kThu, Try(L"abc"));
}

TEST_P(Lock, SuccessForgetsTheFailures) {
    Fail(2);
    EXPECT_EQ(kThu, Try(L"ABC "));
    EXPECT_EQ(L"0", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"firstat"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    EXPECT_NEAR(0, SecondsUntil(L"lastat"), 30);
    Fail(2);
    EXPECT_EQ(kThu, Try(L"abc"));
}

TEST_P(Lock, RightPasswordAtTheLastTryLeavesNoLock) {
    MakeTries(2, -60, std::nullopt);
    EXPECT_EQ(kThu, Try(L"abc"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    EXPECT_EQ(kThu, Try(L"abc"));
}

TEST_P(Lock, FailuresFromBeforeTheWindowDoNotCount) {
    MakeTries(2, -1810, std::nullopt);
    Fail(1);
    EXPECT_EQ(L"1", Kept(L"failed"));
    MakeTries(2, -1700, std::nullopt);
    Fail(1);
    EXPECT_NE(L"", Kept(L"lockeduntil"));
}

TEST_P(Lock, ClockThatWasSetBackNeitherLocksForEverNorLetsIn) {
    MakeTries(3, 1000000, 1000600);
    EXPECT_EQ(0, Try(L"abc"));
    EXPECT_NEAR(600, SecondsUntil(L"lockeduntil"), 30);
    const std::wstring until = Kept(L"lockeduntil");
    Fail(1);
    EXPECT_EQ(until, Kept(L"lockeduntil"));
    MakeTries(1, 1000000, std::nullopt);
    Fail(1);
    EXPECT_EQ(L"2", Kept(L"failed"));
    EXPECT_NEAR(0, SecondsUntil(L"firstat"), 30);
}

TEST_P(Lock, HostWithFewerTriesLocksWhoHasHadThem) {
    MakeTries(4, -60, std::nullopt);
    Fail(1);
    EXPECT_NE(L"", Kept(L"lockeduntil"));
}

TEST_P(Lock, UnknownNamesAreRefusedAndLeaveNothing) {
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(0, Verify(L"không có ai", kWrong));
    EXPECT_EQ(L"0", database_->ScalarText(L"select count(*) from vnuser"));
}

TEST_P(Lock, UserWhoIsLockedIsRecordedOncePerTry) {
    settings_.Audit = true;
    MakeTries(2, -60, std::nullopt);
    Fail(2);
    EXPECT_EQ((std::vector<std::wstring>{L"logon-failed|thu||", L"logon-locked|thu||"}),
              AuditLines(*database_));
}

TEST_P(Lock, MainAdministratorIsDelayedAndNeverLocked) {
    settings_.LockAfter = 1;
    EXPECT_EQ(0, Verify(L"Admin", kWrong));
    EXPECT_EQ(L"1", Kept(L"failed", kMain));
    EXPECT_GE(2, SecondsUntil(L"lockeduntil", kMain));
    const DWORD before = GetTickCount();
    EXPECT_EQ(kMain, Verify(L"Admin", L"abc"));
    EXPECT_GT(10000u, GetTickCount() - before);
    EXPECT_EQ(L"0", Kept(L"failed", kMain));
    EXPECT_EQ(L"", Kept(L"lockeduntil", kMain));
}

TEST_P(Lock, DelayOfTheMainAdministratorGrowsToHalfAMinute) {
    const long wanted[] = {2, 4, 8, 16, 30, 30};
    for (int failed = 0; failed < 6; ++failed) {
        MakeTries(failed, -60, std::nullopt, kMain);
        EXPECT_EQ(0, Verify(L"Admin", kWrong));
        EXPECT_NEAR(wanted[failed], SecondsUntil(L"lockeduntil", kMain), 1);
    }
}

// --- Many programs at once ---

TEST_P(Lock, EightProgramsThatFailAtOnceCountEight) {
    const TempDir folder;
    const std::wstring script = folder.File(L"fail.vbs");
    WriteText(script,
              "Set settings = CreateObject(\"VnDesk.clsSettings\")\r\n"
              "settings.LockAfter = 9\r\n"
              "settings.Dialect = " +
                  std::to_string(CurrentVariant().dialect) +
                  "\r\n"
                  "Set logon = CreateObject(\"VnDesk.clsLogon\")\r\n"
                  "Set logon.Settings = settings\r\n"
                  "WScript.Quit logon.VerifyPassword(WScript.Arguments(0), \"thu\", \"sai\")");
    std::vector<std::unique_ptr<HostProcess>> hosts;
    for (int i = 0; i < 8; ++i)
        hosts.push_back(std::make_unique<HostProcess>(
            L"vnscript.exe", std::vector<std::wstring>{script, Connect()}));
    for (const auto& host : hosts)
        EXPECT_EQ(0u, host->ExitCode());
    EXPECT_EQ(L"8", Kept(L"failed"));
    EXPECT_EQ(L"", Kept(L"lockeduntil"));
    settings_.LockAfter = 9;
    Fail(1);
    EXPECT_NE(L"", Kept(L"lockeduntil"));
}

} // namespace
} // namespace vndesk::test
