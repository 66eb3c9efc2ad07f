// SPDX-License-Identifier: MIT
// A host that runs for weeks: each dialog opened and closed 200 times in one process gives back
// what it took.
#include "host.h"
#include "leaks.h"

#include "support/sample_database.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kWarmUp = 20;
constexpr int kRounds = 200;

// Closes whatever form of the library shows up, from inside its own modal loop.
class CloseEachForm {
public:
    CloseEachForm() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, CloseForm)) {}
    ~CloseEachForm() { KillTimer(nullptr, timer_); }

private:
    static void CALLBACK CloseForm(HWND, UINT, UINT_PTR, DWORD) {
        for (const HWND window : TopWindows())
            if (WindowName(window) == L"FrmLogon" || WindowName(window) == L"MessageBox")
                PostMessageW(window, WM_CLOSE, 0, 0);
    }

    UINT_PTR timer_;
};

TEST(Leaks, MessageBoxesGiveEverythingBack) {
    const CloseEachForm closing;
    const auto logon = CreateLogon();
    long icon = 0;
    ExpectFlat("message boxes", kWarmUp, kRounds, [&] {
        icon = (icon + 16) % 80;
        _bstr_t text(L"Kh«ng thÓ ghi d÷ liÖu vµo b¶ng");
        _bstr_t title(L"");
        _bstr_t pressed;
        ASSERT_SUCCEEDED(logon->MgBox(&text.GetBSTR(), vbYesNoCancel, &title.GetBSTR(),
                                      static_cast<IconValue>(icon), VARIANT_FALSE,
                                      pressed.GetAddress()));
    });
}

TEST(Leaks, LogonDialogsGiveEverythingBack) {
    const CloseEachForm closing;
    const SampleDatabase database = SampleDatabase::Embedded();
    const auto logon = CreateLogon();
    ExpectFlat("logon dialogs", kWarmUp, kRounds, [&] {
        _bstr_t connect(database.ConnectionString().c_str());
        long code = -1;
        ASSERT_SUCCEEDED(logon->ShowLogon(&connect.GetBSTR(), &code));
    });
}

} // namespace
} // namespace vndesk::test
