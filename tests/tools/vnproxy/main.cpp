// SPDX-License-Identifier: MIT
// vnproxy: a host whose threads are all in the multithreaded apartment. COM makes the objects in a
// thread of its own and gives out proxies. A program by itself, because Wine's COM keeps the class
// objects of such threads for good (those of any DLL), and with them the library.
#include <atomic>
#include <thread>

#include "controls/combo/window/data_combo.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/ui_windows.h"

namespace {

using namespace vndesk::test;

constexpr int kThreads = 4;
constexpr int kRounds = 2;

void Use() {
    EXPECT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    try {
        for (int i = 0; i < kRounds; ++i) {
            const LateBound varnok = LateBound::Create(L"VnDesk.Varnok");
            EXPECT_EQ(_bstr_t(L"b"), _bstr_t(varnok.Call(L"Mid1", {L"abc", 2L})));
            EXPECT_HR(DISP_E_TYPEMISMATCH, varnok.TryCall(L"Mid1", {L"abc", L"x"}).hr);
            const LateBound combo = LateBound::Create(L"VnDesk.DataCombo1");
            combo.Call(L"AddItem", {L"abc"});
            EXPECT_EQ(1, long{_variant_t(combo.Get(L"ListCount"))});
            const LateBound logon = LateBound::Create(L"VnDesk.clsLogon");
            EXPECT_EQ(_bstr_t(L""), _bstr_t(logon.Call(L"MgBox", {L"abc", 0L, L"t", 64L})));
        }
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    CoUninitialize();
}

bool HasCombos() {
    return FindWindowExW(HWND_MESSAGE, nullptr, vndesk::kDataComboClass, nullptr) != nullptr;
}

} // namespace

int wmain() {
    testing::InitGoogleTest();
    EXPECT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
    {
        const LateBound combo = LateBound::Create(L"VnDesk.DataCombo1");
        combo.Call(L"AddItem", {L"abc"});
        EXPECT_TRUE(HasCombos()) << "the window of a living control is found";
    }
    std::atomic<int> running{kThreads};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            Use();
            --running;
        });
    // The user closes whatever opens.
    EXPECT_TRUE(WaitUntil(
        [&] {
            for (const HWND window : TopWindows())
                PostMessageW(window, WM_CLOSE, 0, 0);
            return running == 0;
        },
        60000));
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(WaitUntil([] { return !HasCombos(); })) << "objects let go are gone";
    CoUninitialize();
    return testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}
