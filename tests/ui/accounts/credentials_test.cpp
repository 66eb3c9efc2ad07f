// SPDX-License-Identifier: MIT
// Passwords kept as hashes, beside the numbers of version 1.0: which of the two decides, and how
// users come from one to the other. One derivation takes the better part of a second, so records
// of these tests cost little where it is not the cost that is tried.
#include "support/accounts.h"

#include <algorithm>
#include <thread>

#include "passwords/password_hash.h"
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

class Credentials : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        settings_.PasswordScheme = vnPasswordPbkdf2;
    }

    // The hash that the user has got; whether it is of a password.
    bool HasHashOf(const wchar_t* password, long code = kThu) const {
        return MatchPassword(password, Kept(L"passwordhash", code)) == PasswordMatch::Yes;
    }

    std::wstring LastAction() const {
        const auto records = AuditRecords(*database_);
        return records.empty() ? L"" : records.back().action + L"|" + records.back().after;
    }
};

INSTANTIATE_ACCOUNTS(Credentials);

constexpr wchar_t kPassword[] = L" Mật khẩu ";

TEST_P(Credentials, FirstLogonGivesTheHashAndTakesTheNumber) {
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
    EXPECT_EQ(L"-1", Number());
    EXPECT_EQ(0u, Kept(L"passwordhash").find(L"pbkdf2-sha256$600000$"));
    EXPECT_TRUE(HasHashOf(L"abc"));
    EXPECT_EQ(L"0", Kept(L"mustchange"));
    EXPECT_GE(0, SecondsUntil(L"lastat"));
    EXPECT_LT(-60, SecondsUntil(L"lastat"));
    EXPECT_NE(L"", Kept(L"lastpc"));
}

TEST_P(Credentials, HashDecidesWhereTheNumberIsGone) {
    GiveHash(kThu, CheapHash(L"aBc"));
    EXPECT_EQ(kThu, Verify(L"thu", L"aBc"));
    for (const wchar_t* wrong : {L"abc", L"ABC", L" aBc", L"aBc ", L"aB", L""})
        EXPECT_EQ(0, Verify(L"thu", wrong)) << ToUtf8(wrong);
    EXPECT_EQ(L"-1", Number());
}

TEST_P(Credentials, BlanksAndVietnameseLettersCountHoweverTheyAreComposed) {
    GiveHash(kThu, CheapHash(kPassword));
    EXPECT_EQ(kThu, Verify(L"thu", kPassword));
    EXPECT_EQ(kThu, Verify(L"thu", L" Ma\u0302\u0323t kha\u0302\u0309u "));
    EXPECT_EQ(kThu, Verify(L"thu", L" M\u1ea1\u0302t kh\u00e2\u0309u "));
    EXPECT_EQ(0, Verify(L"thu", L" Mat khau "));
    EXPECT_EQ(0, Verify(L"thu", L"Mật khẩu"));
    EXPECT_EQ(0, Verify(L"thu", L" Mật khảu "));
}

TEST_P(Credentials, NumberThatAnotherProgramWroteLaterDecidesAndIsUpgradedAnew) {
    GiveHash(kThu, CheapHash(L"xyz"), kAbc);
    SetKept(kThu, L"mustchange=1");
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
    EXPECT_EQ(L"-1", Number());
    EXPECT_TRUE(HasHashOf(L"abc"));
    EXPECT_EQ(L"1", Kept(L"mustchange"));
}

TEST_P(Credentials, OldHashDoesNotCountBesideANumber) {
    GiveHash(kThu, CheapHash(L"xyz"), kAbc);
    EXPECT_EQ(0, Verify(L"thu", L"xyz"));
    EXPECT_EQ(L"1401", Number());
}

TEST_P(Credentials, UserWithoutHashAndNumberIsLetInByNothing) {
    database_->Execute(L"update \"user\" set password=-1 where code=901");
    settings_.UpgradeOnLogon = false;
    EXPECT_EQ(0, Verify(L"thu", L""));
    settings_ = {};
    settings_.LockAfter = 9;
    for (const wchar_t* tried : {L"", L"-1", L"abc", L"caf\u00e9"})
        EXPECT_EQ(0, Verify(L"thu", tried)) << ToUtf8(tried);
}

// In version 1.0 no number is equal to Null.
TEST_P(Credentials, NullIsNoPassword) {
    AddUser(902, L"null", std::nullopt);
    settings_ = {};
    settings_.LockAfter = 9;
    EXPECT_EQ(0, Verify(L"null", L""));
    EXPECT_EQ(0, Verify(L"null", L"caf\u00e9"));
    AddUser(903, L"trong", 0);
    EXPECT_EQ(903, Verify(L"trong", L""));
}

TEST_P(Credentials, NumbersWithMoreDigitsThanTextsHaveAreUpgraded) {
    // Of thirty letters, as version 1.0 writes it: with 15 digits.
    database_->Execute(L"update \"user\" set password=2.6043816245125E+19 where code=901");
    EXPECT_EQ(kThu, Verify(L"thu", L"abcdefghijklmnopqrstuvwxyzabcd"));
    EXPECT_EQ(L"-1", Number());
}

TEST_P(Credentials, NumberWrittenDuringTheUpgradeStays) {
    const StatementTrace trace;
    std::thread other([&] {
        // Compared already, and the hash is being made.
        EXPECT_TRUE(WaitUntil([&] {
            const Lines lines = trace.All();
            return !lines.empty() &&
                   lines.back().find(L"[VnUser] Where [UserCode]") != std::wstring::npos;
        }));
        database_->Execute(L"update \"user\" set password=77 where code=901");
    });
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
    other.join();
    EXPECT_EQ(L"77", Number());
    EXPECT_EQ(L"", Kept(L"passwordhash"));
}

TEST_P(Credentials, WithoutUpgradeTheNumberStays) {
    settings_.UpgradeOnLogon = false;
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
    EXPECT_EQ(L"1401", Number());
    EXPECT_EQ(L"", Kept(L"passwordhash"));
}

TEST_P(Credentials, HashThatCannotBeReadRefusesAndIsRecorded) {
    GiveHash(kThu, L"pbkdf2-sha256$1000$x$y");
    settings_.Audit = true;
    EXPECT_EQ(0, Verify(L"thu", L"abc"));
    EXPECT_EQ(L"logon-failed|PasswordHash cannot be read", LastAction());
}

TEST_P(Credentials, OfTwoUsersWithOneNameThePasswordDecides) {
    AddUser(902, L"thu", 65);
    GiveHash(kThu, CheapHash(L"một"));
    GiveHash(902, CheapHash(L"hai"));
    EXPECT_EQ(kThu, Verify(L"thu", L"một"));
    EXPECT_EQ(902, Verify(L"thu", L"hai"));
    EXPECT_EQ(0, Verify(L"thu", L"ba"));
}

TEST_P(Credentials, CraftedNamesAreNobodys) {
    settings_ = {};
    settings_.LockAfter = 9;
    for (const wchar_t* name :
         {L"x') OR (Code=3) OR ('1'='2", L"x' OR 1=1) --", L"thu'", L"%", L""})
        EXPECT_EQ(0, Verify(name, L"abc")) << ToUtf8(name);
    AddUser(902, L"O''Brien", kAbc);
    EXPECT_EQ(902, Verify(L"O'Brien", L"abc"));
}

// --- Writes that fail ---

class UnwritableAccounts : public Credentials {
protected:
    void Refuse(const std::wstring& event, const std::wstring& table) {
        const std::wstring head =
            L"create trigger t_" + event + L" before " + event + L" on " + table;
        if (!OnServer()) {
            database_->Execute(head + L" begin select raise(abort, 'no'); end");
            return;
        }
        database_->Execute(L"create or replace function no() returns trigger language plpgsql as "
                           L"$$begin raise exception 'no'; end$$");
        database_->Execute(head + L" for each row execute function no()");
    }
};

INSTANTIATE_ACCOUNTS(UnwritableAccounts);

TEST_P(UnwritableAccounts, UpgradeLeavesEverythingAsItWas) {
    GiveHash(kThu, L"", kAbc);
    Refuse(L"update", L"vnuser");
    settings_.Audit = true;
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
    EXPECT_EQ(L"1401", Number());
    EXPECT_EQ(L"", Kept(L"passwordhash"));
    EXPECT_EQ(L"logon|", LastAction());
}

TEST_P(UnwritableAccounts, RightPasswordLogsOnWhereNothingCanBeCounted) {
    settings_ = {};
    settings_.LockAfter = 3;
    Refuse(L"insert", L"vnuser");
    Refuse(L"update", L"vnuser");
    EXPECT_EQ(0, Verify(L"thu", L"sai"));
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
}

TEST_P(UnwritableAccounts, LockHoldsWhereNothingCanBeWritten) {
    settings_ = {};
    settings_.LockAfter = 3;
    GiveHash(kThu, L"", kAbc);
    SetKept(kThu, L"failed=3,firstat=" + TimeLiteral(0) + L",lockeduntil=" + TimeLiteral(600));
    Refuse(L"update", L"vnuser");
    EXPECT_EQ(0, Verify(L"thu", L"abc"));
}

TEST_P(UnwritableAccounts, LogonNeedsNoColumnThatOnlyTellsOfIt) {
    GiveHash(kThu, CheapHash(L"mới"));
    database_->Execute(L"alter table vnuser drop column lastat");
    EXPECT_EQ(kThu, Verify(L"thu", L"mới"));
    EXPECT_EQ(0, Verify(L"thu", L"abc"));
}

TEST_P(UnwritableAccounts, LogonDoesNotHangOnItsRecord) {
    GiveHash(kThu, CheapHash(L"mới"));
    RefuseRecords(*database_);
    settings_.Audit = true;
    EXPECT_EQ(kThu, Verify(L"thu", L"mới"));
    EXPECT_EQ(0, Verify(L"thu", L"abc"));
}

// --- Time ---

// What this process has spent, whatever else the machine does.
double ProcessorSeconds() {
    FILETIME made, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart;
    };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 1e7;
}

TEST_P(Credentials, EveryRefusalCostsOneDerivation) {
    if (OnServer())
        GTEST_SKIP() << "the processor's time does not depend on the database";
    AddUser(902, L"hash", -1);
    GiveHash(902, HashPassword(L"mật khẩu"));
    AddUser(903, L"khoa", kAbc);
    GiveHash(903, L"", kAbc);
    SetKept(903, L"failed=99,firstat=" + TimeLiteral(0) + L",lockeduntil=" + TimeLiteral(600));
    settings_.LockAfter = 99;
    // The least of several rounds is what a refusal costs: other programs only ever add to it.
    const std::vector<std::wstring> names = {L"không có ai", L"hash", L"thu", L"khoa"};
    std::vector<double> least(names.size(), 1e9);
    const auto apart = [&] {
        const auto [low, high] = std::minmax_element(least.begin(), least.end());
        return *high / *low - 1;
    };
    for (int round = 0; round < 8 && (round < 2 || apart() > 0.1); ++round)
        for (std::size_t i = 0; i < names.size(); ++i) {
            const double before = ProcessorSeconds();
            EXPECT_EQ(0, Verify(names[i].c_str(), L"sai"));
            least[i] = std::min(least[i], ProcessorSeconds() - before);
        }
    EXPECT_LT(0.1, least[0]) << "a derivation costs nothing";
    EXPECT_GE(0.1, apart()) << least[0] << ", " << least[1] << ", " << least[2] << ", " << least[3];
}

// --- A host of version 1.0 on the same database ---

TEST_P(Credentials, HostOfTheFirstVersionIsRefusedUntilItGivesANumber) {
    GiveHash(kThu, CheapHash(L"mới"));
    const auto tryOld = [&](const wchar_t* password) {
        return PlayLogon(Connect(), [=] {
            const HWND dialog = WaitForForm(L"FrmLogon");
            WaitForFocus(dialog, L"TxtUser");
            SetBox(dialog, L"TxtUser", L"thu");
            SetBox(dialog, L"TxtPass", password);
            ClickWindow(Control(dialog, L"CmdOk"));
            const auto refused = [] {
                for (const HWND window : TopWindows())
                    if (WindowName(window) == L"MessageBox")
                        return true;
                return false;
            };
            if (!WaitUntil([=] { return refused() || !IsWindow(dialog); }) || !IsWindow(dialog))
                return;
            Answer(L"Mật khẩu hoặc người sử dụng không hợp lệ ", L"Login");
            WaitReady(dialog, L"TxtUser");
            PressKey(VK_ESCAPE);
        });
    };
    EXPECT_EQ(0, tryOld(L"mới"));
    // The editor of version 1.0 writes the number.
    _bstr_t connect(Connect().c_str()), name(L"thu");
    DialogDriver user([] {
        const HWND editor = WaitForForm(L"FrmInput");
        WaitReady(editor, L"TxtPass");
        SetBox(editor, L"TxtPass", L"cu");
        SetBox(editor, L"txtConfirm", L"cu");
        PressKey('G', kAlt);
        WaitForClose(editor);
    });
    EXPECT_SUCCEEDED(CreateLogon()->ShowUser(&connect.GetBSTR(), &name.GetBSTR()));
    user.Finish();
    EXPECT_EQ(L"407", Number());
    EXPECT_EQ(kThu, tryOld(L"CU"));
    settings_.UpgradeOnLogon = false;
    EXPECT_EQ(0, Verify(L"thu", L"mới"));
    EXPECT_EQ(kThu, Verify(L"thu", L"cu"));
}

} // namespace
} // namespace vndesk::test
