// SPDX-License-Identifier: MIT
// Arrow keys on the buttons of a form: they never leave the user without a keyboard.
#include "support/forms/administration.h"

namespace vndesk::test {
namespace {

TEST(ArrowKeys, LeadFromButtonsWhereTabDoes) {
    const AdministrationTest test(false);
    test.PlayEditor(L"Nguyễn Văn Hưng", [](HWND editor) {
        WaitReady(editor, L"TxtPass");
        PressKey(VK_TAB);
        PressKey(VK_TAB);
        WaitForFocus(editor, L"CmdOk");
        ExpectKeyWalks(editor, VK_DOWN, {L"CMDCAN", L"TxtPass"});
        PressKey(VK_TAB, kShift);
        WaitForFocus(editor, L"CMDCAN");
        ExpectKeyWalks(editor, VK_RIGHT, {L"TxtPass"});
        PressKey(VK_TAB, kShift);
        ExpectKeyWalks(editor, VK_UP, {L"CmdOk", L"txtConfirm"});
        PressKey(VK_ESCAPE);
    });
}

} // namespace
} // namespace vndesk::test
