// SPDX-License-Identifier: MIT
// An operation that the host starts while another one's form is open, from a timer or an event:
// each works on its own database.
#include <comutil.h>

#include "support/sample_database.h"
#include "support/forms/thread_script.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kFirstGroup[] = L"select name from groups order by code";

HWND OwnForm(const wchar_t* name) {
    for (const HWND window : TopWindows())
        if (WindowName(window) == name)
            return window;
    return nullptr;
}

// As accessibility tools and other programs do: the form behind a modal one is not asked whether it
// is enabled.
void ChooseShownGroupAgain(HWND manager) {
    const HWND list = Control(manager, L"Lv1");
    SendMessageW(manager, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

TEST(NestedOperations, FormReadsItsOwnDatabaseWhileAnotherOperationRuns) {
    const SampleDatabase outer = SampleDatabase::Embedded();
    const SampleDatabase inner = SampleDatabase::Embedded();
    inner.Execute(L"update groups set name='another'");
    const std::wstring group = outer.ScalarText(kFirstGroup);
    ASSERT_NE(group, L"another");
    _bstr_t outerConnect(outer.ConnectionString().c_str());
    _bstr_t innerConnect(inner.ConnectionString().c_str());
    std::wstring shown;
    const ThreadScript user({{L"FmGrp",
                              [&](HWND) {
                                  long code = -1;
                                  EXPECT_SUCCEEDED(
                                      CreateLogon()->ShowLogon(&innerConnect.GetBSTR(), &code));
                              }},
                             {L"FrmLogon",
                              [&](HWND logon) {
                                  const HWND manager = OwnForm(L"FmGrp");
                                  SetBox(manager, L"txtName", L"");
                                  ChooseShownGroupAgain(manager);
                                  shown = TextOf(manager, L"txtName");
                                  Press(logon, L"CMDCAN");
                              }},
                             {L"FmGrp", [](HWND manager) { Press(manager, L"CmdExit"); }}});
    EXPECT_SUCCEEDED(CreateLogon()->ShowGroup(&outerConnect.GetBSTR()));
    EXPECT_EQ(group, shown);
}

} // namespace
} // namespace vndesk::test
