// SPDX-License-Identifier: MIT
// Logons whose tries are counted and passwords that become records, with each of their calls to ADO
// failing once, failing for good, or doing its work and failing all the same. A try may have been
// counted or not, so no single state is right afterwards; but nobody comes in who may not, nobody
// is kept out for longer than the rules say, and no password is lost.
#include "support/accounts.h"

#include <functional>
#include <set>

#include "faults/faulty_ado.h"
#include "faults/kept_database.h"
#include "support/reliability.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kNew[] = L"mới";
constexpr long kRefused = 0;

class AccountFaults : public Accounts {
protected:
    // The user's code, 0 for nobody and for an error.
    long TryLogon(const wchar_t* password) const {
        long code = 0;
        const HRESULT tried = LogonWith(settings_)->VerifyPassword(
            _bstr_t(Connect().c_str()), _bstr_t(kThuName), _bstr_t(password), &code);
        EXPECT_TRUE(SUCCEEDED(tried) || code == 0);
        return code;
    }

    bool TrySetPassword() const {
        return SUCCEEDED(
            LogonWith(settings_, 1)
                ->SetPassword(_bstr_t(Connect().c_str()), kThu, _bstr_t(kNew), VARIANT_FALSE));
    }

    // Prepares, lets one call fail, and looks at what has become of it, for each fault of each call
    // that is asked for.
    void ForEachFault(const char* name, const std::function<void()>& prepare,
                      const std::function<void()>& play, bool derives = false) {
        const auto once = [&](size_t call, Fault fault) {
            prepare();
            ado_.Begin(call, fault);
            play();
            EXPECT_EQ(0, ado_.Objects());
        };
        once(0, Fault::Once);
        const std::vector<std::string> calls = ado_.Calls();
        const Holdings before;
        int faults = 0;
        for (const Fault fault : {Fault::Once, Fault::FromThenOn, Fault::Unconfirmed})
            for (size_t call = 1; call <= calls.size(); ++call)
                if (derives ? IsTriedSlowly(calls[call - 1], fault) : IsTried(calls, call)) {
                    SCOPED_TRACE("call " + std::to_string(call) + ", " + calls[call - 1] +
                                 ", fault " + std::to_string(static_cast<int>(fault)));
                    once(call, fault);
                    ++faults;
                }
        once(0, Fault::Once);
        before.ExpectBack(name, calls.size(), faults);
    }

    static bool Writes(const std::string& call) {
        return call == "Command.Execute" || call == "Connection.CommitTrans";
    }

    // What writes and some of the others; all of them when asked.
    static bool IsTried(const std::vector<std::string>& calls, size_t call) {
        return FullRun() || Writes(calls[call - 1]) || call % 6 == 0;
    }

    // A derivation takes the better part of a second.
    static bool IsTriedSlowly(const std::string& call, Fault fault) {
        return Writes(call) && (FullRun() || fault == Fault::Once);
    }

    // The number is the password as long as it stands there.
    bool PasswordIsTheOldOne() const { return Number() == L"1401"; }
    bool PasswordIsTheNewOne() const {
        return Number() == L"-1" && Kept(L"passwordhash").starts_with(L"pbkdf2-sha256$");
    }

    FaultyAdo ado_;
};

TEST_P(AccountFaults, RightPasswordLogsOnOrIsAskedForAgain) {
    settings_ = {.Audit = true, .PasswordScheme = vnPasswordPbkdf2, .LockAfter = 3};
    const std::wstring record = CheapHash(kNew);
    GiveHash(kThu, record);
    std::set<long> answers;
    ForEachFault(
        "RightPassword", [&] { SetKept(kThu, L"failed=1,firstat=" + TimeLiteral(0)); },
        [&] {
            answers.insert(TryLogon(kNew));
            EXPECT_EQ(record, Kept(L"passwordhash"));
            EXPECT_EQ(L"-1", Number());
            EXPECT_GE(2, std::stol(Kept(L"failed")));
            EXPECT_EQ(L"", Kept(L"lockeduntil"));
        });
    EXPECT_EQ((std::set<long>{kRefused, kThu}), answers);
}

TEST_P(AccountFaults, WrongPasswordIsRefusedAndCountedOnceAtMost) {
    settings_ = {.Audit = true, .PasswordScheme = vnPasswordPbkdf2, .LockAfter = 3};
    GiveHash(kThu, CheapHash(kNew));
    std::set<std::wstring> counts;
    ForEachFault(
        "WrongPassword", [&] { SetKept(kThu, L"failed=1,firstat=" + TimeLiteral(0)); },
        [&] {
            EXPECT_EQ(kRefused, TryLogon(L"sai"));
            counts.insert(Kept(L"failed"));
            EXPECT_EQ(L"", Kept(L"lockeduntil"));
        });
    EXPECT_EQ((std::set<std::wstring>{L"1", L"2"}), counts);
}

TEST_P(AccountFaults, LastTryLocksTogetherWithItsCount) {
    settings_ = {.Audit = true, .LockAfter = 3};
    GiveHash(kThu, L"", kAbc);
    ForEachFault(
        "LastTry", [&] { SetKept(kThu, L"failed=2,lockeduntil=null,firstat=" + TimeLiteral(0)); },
        [&] {
            EXPECT_EQ(kRefused, TryLogon(L"sai"));
            EXPECT_EQ(Kept(L"failed") == L"3", Kept(L"lockeduntil") != L"");
        });
}

TEST_P(AccountFaults, NoFaultOpensALock) {
    settings_ = {.Audit = true, .LockAfter = 3};
    GiveHash(kThu, L"", kAbc);
    ForEachFault(
        "Locked",
        [&] {
            SetKept(kThu,
                    L"failed=3,firstat=" + TimeLiteral(0) + L",lockeduntil=" + TimeLiteral(600));
        },
        [&] {
            EXPECT_EQ(kRefused, TryLogon(L"abc"));
            EXPECT_EQ(L"3", Kept(L"failed"));
            EXPECT_LT(500, SecondsUntil(L"lockeduntil"));
        });
}

TEST_P(AccountFaults, UpgradeOfANumberLosesNoPassword) {
    settings_ = {.PasswordScheme = vnPasswordPbkdf2};
    ForEachFault(
        "Upgrade", [&] { GiveHash(kThu, L"", kAbc); },
        [&] {
            TryLogon(L"abc");
            EXPECT_TRUE(PasswordIsTheOldOne() || PasswordIsTheNewOne()) << ToUtf8(Number());
        },
        true);
}

TEST_P(AccountFaults, NewPasswordIsWrittenWholeOrNotAtAll) {
    settings_ = {.Audit = true, .PasswordScheme = vnPasswordPbkdf2};
    ForEachFault(
        "NewPassword", [&] { GiveHash(kThu, L"", kAbc); },
        [&] {
            const bool done = TrySetPassword();
            EXPECT_TRUE(PasswordIsTheNewOne() || (!done && PasswordIsTheOldOne()));
        },
        true);
}

INSTANTIATE_TEST_SUITE_P(Databases, AccountFaults, testing::Values("Embedded"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
} // namespace vndesk::test
