// SPDX-License-Identifier: MIT
// A host that runs for weeks: dialogs opened and closed, and classes created, again and again in
// one process give back what they took.
#include "support/forms/host.h"
#include "support/leak_probe.h"
#include "support/leaks.h"

#include "support/reliability.h"
#include "support/sample_database.h"
#include "support/security_settings.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kWarmUp = 20;

int DialogRounds() {
    return Rounds(200, 1000);
}

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
    ExpectFlat("message boxes", kWarmUp, DialogRounds(), [&] {
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
    ExpectFlat("logon dialogs", kWarmUp, DialogRounds(), [&] {
        _bstr_t connect(database.ConnectionString().c_str());
        long code = -1;
        ASSERT_SUCCEEDED(logon->ShowLogon(&connect.GetBSTR(), &code));
    });
}

void CALLBACK WarnAndClose(HWND, UINT, UINT_PTR, DWORD) {
    for (const HWND window : TopWindows())
        if (WindowName(window) == L"FrmLogon") {
            SendMessageW(FindControl(window, L"TxtPass"), WM_CHAR, L'ệ', 1);
            EXPECT_TRUE(IsShown(window, L"InputWarning"));
            PostMessageW(window, WM_CLOSE, 0, 0);
        }
}

// Their password boxes warn before they go.
TEST(Leaks, LogonDialogsWithWarningsGiveEverythingBack) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const auto logon = LogonWith({.InputWarnings = true});
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, WarnAndClose);
    const auto round = [&] {
        _bstr_t connect(database.ConnectionString().c_str());
        long code = -1;
        ASSERT_SUCCEEDED(logon->ShowLogon(&connect.GetBSTR(), &code));
    };
    if (FullRun()) {
        ExpectFlat("logon dialogs with warnings", kWarmUp, 1000, round);
    } else {
        round();
        const long before = GdiObjectsBesideContexts();
        for (int i = 0; i < 5; ++i)
            round();
        EXPECT_EQ(before, GdiObjectsBesideContexts());
    }
    KillTimer(nullptr, timer);
}

class ClassLeaks : public testing::TestWithParam<const wchar_t*> {};
INSTANTIATE_TEST_SUITE_P(Classes, ClassLeaks,
                         testing::Values(L"clsLogon", L"Varnok", L"clsRegistry", L"DataCombo1",
                                         L"cSelItem", L"clsSearch", L"clsCoolMenu",
                                         L"HelpCallBack"),
                         [](const auto& info) { return ToUtf8(info.param); });

TEST_P(ClassLeaks, ObjectsGiveEverythingBack) {
    CLSID clsid;
    ASSERT_SUCCEEDED(CLSIDFromProgID((std::wstring(L"VnDesk.") + GetParam()).c_str(), &clsid));
    ExpectNothingKept(ToUtf8(GetParam()).c_str(), kWarmUp, Rounds(200, 1000), [&] {
        Microsoft::WRL::ComPtr<IDispatch> object;
        ASSERT_SUCCEEDED(
            CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
        auto* name = const_cast<LPOLESTR>(L"NoSuchMember");
        DISPID id;
        EXPECT_HR(DISP_E_UNKNOWNNAME,
                  object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id));
        EXPECT_EQ(0u, object.Reset());
    });
}

} // namespace
} // namespace vndesk::test
