// SPDX-License-Identifier: MIT
// Forms whose user is a program: a screen reader or a test tool sends its presses instead of
// posting them, and no message follows.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

void SendPress(HWND form, const wchar_t* button) {
    const HWND window = Control(form, button);
    SendNotifyMessageW(form, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                       reinterpret_cast<LPARAM>(window));
}

// Nothing may be on its way to the form that would wake it.
void WaitUntilStill(HWND form) {
    WaitReady(form);
    Sleep(500);
}

TEST(SentMessages, ButtonClosesItsForm) {
    const AdministrationTest test(false);
    test.PlayUsers([](HWND list) {
        WaitUntilStill(list);
        SendPress(list, L"CmdExit");
        WaitForClose(list);
    });
}

TEST(SentMessages, CloseEndsTheForm) {
    const AdministrationTest test(false);
    test.PlayGroups([](HWND groups) {
        WaitUntilStill(groups);
        SendNotifyMessageW(groups, WM_CLOSE, 0, 0);
        WaitForClose(groups);
    });
}

TEST(SentMessages, ButtonOfTheMessageBoxAnswersIt) {
    EXPECT_EQ(L"1", PlayMessage({}, [] {
                  const HWND box = WaitForForm(L"MessageBox");
                  WaitUntilStill(box);
                  SendPress(box, L"Cmd1");
                  WaitForClose(box);
              }));
}

} // namespace
} // namespace vndesk::test
