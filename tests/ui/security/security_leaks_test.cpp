// SPDX-License-Identifier: MIT
// The administration forms opened and closed again and again in one process.
#include "support/forms/administration.h"

#include "support/reliability.h"
#include "support/leaks.h"

namespace vndesk::test {
namespace {

constexpr int kWarmUp = 15;

int FormRounds() {
    return Rounds(100, 1000);
}

// What a user does in each round: from the first form to the second by a button, and out of both.
struct Walk {
    const wchar_t* first;
    const wchar_t* button = nullptr; // none: there is no second form
    const wchar_t* second = nullptr;
};

// Does so from inside the forms' own modal loops.
class Walking {
public:
    explicit Walking(const Walk& walk) : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Step)) {
        walk_ = walk;
        wasInSecond_ = false;
    }
    ~Walking() { KillTimer(nullptr, timer_); }

    static int secondForms; // how often the second form was there

private:
    static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) {
        const HWND first = Shown(walk_.first);
        if (!first)
            return;
        if (const HWND second = walk_.second ? Shown(walk_.second) : nullptr) {
            secondForms += !wasInSecond_;
            wasInSecond_ = true;
            PostMessageW(second, WM_CLOSE, 0, 0);
        } else if (walk_.button && !wasInSecond_) {
            SendMessageW(first, WM_COMMAND, GetDlgCtrlID(FindControl(first, walk_.button)), 0);
        } else if (IsWindowEnabled(first)) {
            wasInSecond_ = false;
            PostMessageW(first, WM_CLOSE, 0, 0);
        }
    }

    static HWND Shown(const wchar_t* name) {
        for (const HWND window : TopWindows())
            if (WindowName(window) == name)
                return window;
        return nullptr;
    }

    static Walk walk_;
    static bool wasInSecond_;
    UINT_PTR timer_;
};

int Walking::secondForms = 0;
Walk Walking::walk_;
bool Walking::wasInSecond_ = false;

class SecurityLeaks : public testing::Test {
protected:
    template <class Operation>
    void Expect(const char* what, const Walk& walk, Operation operation) {
        const Walking walking(walk);
        const SampleDatabase database = SampleDatabase::Embedded();
        const auto logon = CreateLogon();
        Walking::secondForms = 0;
        ExpectFlat(what, kWarmUp, FormRounds(), [&] {
            _bstr_t connect(database.ConnectionString().c_str());
            ASSERT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        });
        // One more round is recorded.
        EXPECT_EQ(Walking::secondForms, walk.second ? kWarmUp + FormRounds() + 1 : 0);
    }
};

TEST_F(SecurityLeaks, UserEditorsGiveEverythingBack) {
    Expect("user editors", {L"FrmInput"}, [](ILogon& logon, BSTR* connect) {
        _bstr_t name(L"Admin");
        return logon.ShowUser(connect, &name.GetBSTR());
    });
}

TEST_F(SecurityLeaks, UserListsWithTheirEditorGiveEverythingBack) {
    Expect("user lists", {L"FrmMenu", L"CmdEdit", L"FrmInput"},
           [](ILogon& logon, BSTR* connect) { return logon.UserManager(connect); });
}

TEST_F(SecurityLeaks, GroupManagersWithTheRightsGiveEverythingBack) {
    Expect("group managers", {L"FmGrp", L"CmdPms", L"FrPms"},
           [](ILogon& logon, BSTR* connect) { return logon.ShowGroup(connect); });
}

} // namespace
} // namespace vndesk::test
