// SPDX-License-Identifier: MIT
// The logon dialog and the user list where users are locked out after wrong passwords.
#include "support/accounts.h"
#include "support/forms/administration.h"

#include <gmock/gmock.h>

#include "accounts/local_time.h"
#include "accounts/text/lock_out.h"
#include "data/connect/engine.h"
#include "text/tcvn3.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kFailed[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";

std::wstring TriesLeft(int tries) {
    return std::wstring(kFailed) + L"\r\nCòn " + std::to_wstring(tries) + L" lần thử.";
}

std::wstring LocalTime(long minutes) {
    return ToUncText(LocalTimeText(MinutesAfter(MachineTime(), minutes)), kToUnicode);
}

class AccountLogon : public Accounts {
protected:
    void SetUp() override {
        Accounts::SetUp();
        settings_.LockAfter = 3;
        settings_.LockMinutes = 10;
    }

    long Play(std::function<void(HWND)> script) {
        _bstr_t connect(Connect().c_str());
        long code = -1;
        DialogDriver user([&] {
            const HWND dialog = WaitForForm(L"FrmLogon");
            WaitReady(dialog, L"TxtUser");
            script(dialog);
        });
        EXPECT_SUCCEEDED(LogonWith(settings_)->ShowLogon(&connect.GetBSTR(), &code));
        user.Finish();
        return code;
    }
    static void Try(HWND dialog, const wchar_t* name, const wchar_t* password) {
        SetBox(dialog, L"TxtUser", name);
        SetBox(dialog, L"TxtPass", password);
        ClickWindow(Control(dialog, L"CmdOk"));
    }
    // The words of the refusal.
    static std::wstring Refusal(HWND dialog, const wchar_t* name, const wchar_t* password) {
        Try(dialog, name, password);
        const HWND box = WaitForForm(L"MessageBox");
        const std::wstring text = TextOf(box, L"Message");
        WaitReady(box, L"Cmd1");
        PressKey(VK_SPACE);
        WaitForClose(box);
        WaitReady(dialog, L"TxtUser");
        EXPECT_TRUE(IsWhollySelected(dialog, L"TxtUser"));
        return text;
    }
    void LockThu(long seconds) {
        GiveHash(kThu, L"", kAbc);
        SetKept(kThu,
                L"failed=3,firstat=" + TimeLiteral(-60) + L",lockeduntil=" + TimeLiteral(seconds));
    }
    // The minute may change while a test looks.
    static void ExpectLockedFor(long minutes, const std::wstring& text) {
        const auto told = [](const std::wstring& time) {
            return L"Tài khoản bị khoá đến " + time + L" do nhập sai mật khẩu nhiều lần.";
        };
        EXPECT_THAT(text, testing::AnyOf(told(LocalTime(minutes)), told(LocalTime(minutes - 1))));
    }
};

INSTANTIATE_ACCOUNTS_IN_DIALECTS(AccountLogon);

TEST_P(AccountLogon, RefusalsTellTheTriesThatAreLeftAndThenTheLock) {
    EXPECT_EQ(0, Play([](HWND dialog) {
                  EXPECT_EQ(TriesLeft(2), Refusal(dialog, L"thu", L"sai"));
                  EXPECT_EQ(TriesLeft(1), Refusal(dialog, L"THU", L"sai"));
                  ExpectLockedFor(10, Refusal(dialog, L"thu", L"sai"));
                  ExpectLockedFor(10, Refusal(dialog, L"thu", L"abc"));
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(L"3", Kept(L"failed"));
}

TEST_P(AccountLogon, UnknownNamesAreAnsweredAsKnownOnes) {
    EXPECT_EQ(0, Play([](HWND dialog) {
                  EXPECT_EQ(TriesLeft(2), Refusal(dialog, L"Không có", L"sai"));
                  EXPECT_EQ(TriesLeft(2), Refusal(dialog, L"Ai đó", L"sai"));
                  EXPECT_EQ(TriesLeft(1), Refusal(dialog, L"KHÔNG CÓ", L"sai"));
                  ExpectLockedFor(10, Refusal(dialog, L"không có", L"sai"));
                  ExpectLockedFor(10, Refusal(dialog, L"không có", L"abc"));
                  PressKey(VK_ESCAPE);
              }));
}

TEST_P(AccountLogon, LockIsTakenAwayByTimeAndByUnlocking) {
    LockThu(-1);
    EXPECT_EQ(kThu, Play([](HWND dialog) { Try(dialog, L"thu", L"abc"); }));
    LockThu(600);
    EXPECT_SUCCEEDED(LogonWith({})->UnlockUser(_bstr_t(Connect().c_str()), kThu));
    EXPECT_EQ(kThu, Play([](HWND dialog) { Try(dialog, L"thu", L"abc"); }));
}

TEST_P(AccountLogon, CraftedNamesAreData) {
    settings_.LockAfter = 50;
    EXPECT_EQ(0, Play([](HWND dialog) {
                  EXPECT_EQ(TriesLeft(49), Refusal(dialog, L"x') OR (Code=3) OR ('1'='2", L"abc"));
                  EXPECT_EQ(TriesLeft(49), Refusal(dialog, L"x' OR 1=1) --", L"abc"));
                  PressKey(VK_ESCAPE);
              }));
}

TEST_P(AccountLogon, MainAdministratorWaitsAndThenIsLetIn) {
    Verify(L"Admin", L"sai");
    const std::wstring until = Kept(L"lockeduntil", 3);
    SetKept(3, L"lockeduntil=" + TimeLiteral(3));
    EXPECT_EQ(3, Play([](HWND dialog) {
                  Try(dialog, L"Admin", L"abc");
                  EXPECT_TRUE(WaitUntil([=] { return !IsEnabled(dialog, L"TxtPass"); }));
                  EXPECT_EQ(0u, TextOf(dialog, L"CmdOk").find(L"Đồng ý ("));
                  WaitForFocus(dialog, L"CMDCAN");
              }));
    EXPECT_EQ(L"", Kept(L"lockeduntil", 3));
}

TEST_P(AccountLogon, WaitingEndsWithTheDialog) {
    GiveHash(3, L"", kAbc);
    SetKept(3, L"failed=5,firstat=" + TimeLiteral(-60) + L",lockeduntil=" + TimeLiteral(30));
    EXPECT_EQ(0, Play([](HWND dialog) {
                  Try(dialog, L"Admin", L"abc");
                  WaitForFocus(dialog, L"CMDCAN");
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(L"5", Kept(L"failed", 3));
}

// --- The user list ---

TEST_P(AccountLogon, UserListTellsWhoIsLockedAndUnlocks) {
    LockThu(600);
    GiveHash(3, L"", kAbc);
    SetKept(3, L"failed=5,firstat=" + TimeLiteral(-60) + L",lockeduntil=" + TimeLiteral(30));
    _bstr_t connect(Connect().c_str());
    DialogDriver user([&] {
        const HWND form = WaitForForm(L"FrmMenu");
        WaitReady(form, L"Lv");
        const HWND list = Control(form, L"Lv");
        wchar_t caption[40] = L"";
        LVCOLUMNW column = {};
        column.mask = LVCF_TEXT;
        column.pszText = caption;
        column.cchTextMax = 40;
        SendMessageW(list, LVM_GETCOLUMNW, 3, reinterpret_cast<LPARAM>(&column));
        EXPECT_STREQ(L"Tình trạng", caption);
        const int row = RowWith(form, L"Lv", 0, L"thu");
        EXPECT_THAT(CellText(list, row, 3), testing::AnyOf(L"Bị khoá đến " + LocalTime(10),
                                                           L"Bị khoá đến " + LocalTime(9)));
        EXPECT_EQ(L"", CellText(list, RowWith(form, L"Lv", 0, L"Admin"), 3));
        const std::wstring letters = Sorted(Mnemonics(form));
        EXPECT_EQ(L"HKOSX", letters);
        SelectRow(form, L"Lv", row);
        PressKey('K', kAlt);
        EXPECT_TRUE(WaitUntil([&] { return CellText(list, row, 3).empty(); }));
        WaitForFocus(form, L"Lv");
        ExpectKeyWalks(form, VK_TAB, {L"CmdAdd", L"CmdEdit", L"CmdDel", L"CmdUnlock", L"CmdExit"});
        PressKey(VK_ESCAPE);
    });
    EXPECT_SUCCEEDED(LogonWith(settings_)->UserManager(&connect.GetBSTR()));
    user.Finish();
    EXPECT_EQ(L"0", Kept(L"failed"));
    EXPECT_EQ(kThu, Verify(L"thu", L"abc"));
}

} // namespace
} // namespace vndesk::test
