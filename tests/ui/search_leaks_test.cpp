// SPDX-License-Identifier: MIT
// The find dialog and its picker opened and closed 100 times in one process.
#include "search.h"

#include "leaks.h"

namespace vndesk::test {
namespace {

constexpr int kWarmUp = 15;
constexpr int kRounds = 100;

// Plays the user from inside the forms' own modal loops: looks something up, gives it back, and
// closes the dialog.
class Searching {
public:
    Searching() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Step)) { lookedUp_ = false; }
    ~Searching() { KillTimer(nullptr, timer_); }

    static int pickers; // how often the picker was there

private:
    static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) {
        const HWND form = Shown(L"FrmFind");
        if (!form)
            return;
        if (const HWND picker = Shown(L"FmSelHang")) {
            pickers += !lookedUp_;
            lookedUp_ = true;
            PostMessageW(picker, WM_CLOSE, 0, 0);
        } else if (!lookedUp_) {
            // The provinces have a list to choose from.
            const HWND fields = ListOf(form, L"CmbFld(0)");
            SendMessageW(fields, CB_SETCURSEL, 2, 0);
            SendMessageW(GetParent(fields), WM_COMMAND,
                         MAKEWPARAM(GetDlgCtrlID(fields), CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(fields));
            PostMessageW(Control(form, L"MskValue(0)"), WM_KEYDOWN, VK_F2, 0);
        } else if (IsWindowEnabled(form)) {
            lookedUp_ = false;
            PostMessageW(form, WM_CLOSE, 0, 0);
        }
    }

    static HWND Shown(const wchar_t* name) {
        for (const HWND window : TopWindows())
            if (WindowName(window) == name)
                return window;
        return nullptr;
    }

    static bool lookedUp_;
    UINT_PTR timer_;
};

int Searching::pickers = 0;
bool Searching::lookedUp_ = false;

TEST(SearchLeaks, FindDialogsWithTheirPickerGiveEverythingBack) {
    const Searching searching;
    const SampleDatabase database = SampleDatabase::Embedded();
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    Searching::pickers = 0;
    ExpectFlat("find dialogs", kWarmUp, kRounds, [&] {
        long modal = 1;
        ASSERT_SUCCEEDED(search->Show(&modal, Missing()));
    });
    // One more round is recorded.
    EXPECT_EQ(Searching::pickers, kWarmUp + kRounds + 1);
}

} // namespace
} // namespace vndesk::test
