// SPDX-License-Identifier: MIT
// Hosts with more than one thread: apartments of their own, calls marshalled by COM, and calls that
// break COM's rules and come straight from another thread.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <optional>
#include <thread>

#include "com/registered_dll.h"
#include "comkit/base/module.h"
#include "comkit/object/dispatch.h"
#include "support/check_hr.h"
#include "support/child_process.h"
#include "support/in_threads.h"
#include "support/late_bound.h"
#include "support/reliability.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk;
using namespace vndesk::test;

constexpr int kThreads = 4;

DWORD Patience() {
    return FullRun() ? 1500000 : 100000;
}

// A user who closes whatever opens.
class WindowsClosed {
public:
    WindowsClosed()
        : user_([this] {
              while (!over_) {
                  for (const HWND window : TopWindows())
                      PostMessageW(window, WM_CLOSE, 0, 0);
                  Sleep(5);
              }
          }) {}
    ~WindowsClosed() {
        over_ = true;
        user_.join();
    }
    WindowsClosed(const WindowsClosed&) = delete;
    WindowsClosed& operator=(const WindowsClosed&) = delete;

private:
    std::atomic<bool> over_{false};
    std::thread user_;
};

TEST(Threads, EachApartmentMakesObjectsOfItsOwn) {
    const int rounds = Rounds(50, 1000);
    ASSERT_HR(S_OK, CanUnloadNow());
    InThreads(kThreads, COINIT_APARTMENTTHREADED, Patience(), [&](int) {
        for (int i = 0; i < rounds; ++i)
            for (const RegisteredClass& entry : RegisteredClasses()) {
                const LateBound object(entry.Create().Get());
                EXPECT_HR(DISP_E_UNKNOWNNAME, object.TryCall(L"NoSuchMember").hr);
            }
    });
    EXPECT_HR(S_OK, CanUnloadNow());
}

// COM asks at any moment, from any thread, whether the DLL may go. Here with the code that is
// linked into this program.
TEST(Threads, TypesStayWhileAnObjectLives) {
    const HMODULE library = LoadLibraryW(RegisteredDllPath().c_str());
    ASSERT_NE(nullptr, library);
    const HINSTANCE before = ModuleInstance();
    SetModuleInstance(library); // whose type library it is
    {
        const ModuleLock object;
        const TypeDescription& type = TypeOf(__uuidof(IVarnok));
        EXPECT_FALSE(ReleaseTypes());
        EXPECT_EQ(&type, &TypeOf(__uuidof(IVarnok)));
    }
    EXPECT_TRUE(ReleaseTypes());
    SetModuleInstance(before);
    FreeLibrary(library);
}

// The interface of an object of this thread, marshalled to another one.
class Marshalled {
public:
    explicit Marshalled(IUnknown* object) {
        EXPECT_SUCCEEDED(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object, &stream_));
    }
    LateBound Get() {
        ComPtr<IDispatch> object;
        EXPECT_SUCCEEDED(CoGetInterfaceAndReleaseStream(stream_, IID_PPV_ARGS(&object)));
        return LateBound(object.Get());
    }

private:
    IStream* stream_ = nullptr;
};

TEST(Threads, MarshalledCallsRunInTheObjectsOwnThread) {
    for (const COINIT kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        const LateBound varnok = LateBound::Create(L"VnDesk.Varnok");
        Marshalled marshalled(varnok.Dispatch());
        InThreads(1, kind, Patience(), [&](int) {
            const LateBound proxy = marshalled.Get();
            for (int i = 0; i < 50; ++i) {
                EXPECT_EQ(_bstr_t(L"b"), _bstr_t(proxy.Call(L"Mid1", {L"abc", 2L})));
                EXPECT_HR(DISP_E_TYPEMISMATCH, proxy.TryCall(L"Mid1", {L"abc", L"x"}).hr);
            }
        });
    }
    EXPECT_TRUE(PumpUntil([] { return CanUnloadNow() == S_OK; }));
}

// By tests/tools/vnproxy, which says why it is a program by itself.
TEST(Threads, MultithreadedApartmentWorksThroughProxiesAndLetsItsObjectsGo) {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring folder(path, std::wstring_view(path).rfind(L'\\') + 1);
    ChildProcess host({folder + L"vnproxy.exe"});
    EXPECT_EQ(0u, host.ExitCode(100000));
}

// COM forbids it; references and plain functions survive it all the same.
TEST(Threads, UnmarshalledCallsOfOtherThreadsDoNoHarm) {
    const int rounds = Rounds(500, 10000);
    const ComPtr<IDispatch> object = LateBound::Create(L"VnDesk.Varnok").Dispatch();
    InThreads(kThreads, COINIT_APARTMENTTHREADED, Patience(), [&](int) {
        const LateBound varnok(object.Get());
        for (int i = 0; i < rounds; ++i) {
            EXPECT_EQ(_bstr_t(L"+"), _bstr_t(varnok.Call(L"Sign", {L"+5"})));
            EXPECT_FAILED(varnok.TryCall(L"Mid1", {L"abc", L"x"}).hr);
        }
    });
    EXPECT_TRUE(static_cast<bool>(object));
}

TEST(Threads, EachThreadShowsFormsOfItsOwn) {
    const int rounds = Rounds(10, 250);
    std::atomic<int> answered{0};
    std::optional<WindowsClosed> closing;
    closing.emplace();
    InThreads(kThreads, COINIT_APARTMENTTHREADED, Patience(), [&](int) {
        const LateBound logon = LateBound::Create(L"VnDesk.clsLogon");
        const LateBound combo = LateBound::Create(L"VnDesk.DataCombo1");
        for (int i = 0; i < rounds; ++i) {
            EXPECT_EQ(_bstr_t(L""), _bstr_t(logon.Call(L"MgBox", {L"abc", 0L, L"t", 64L})));
            EXPECT_EQ(0, long{_variant_t(logon.Call(L"ShowLogon", {L"Driver={none}"}))});
            combo.Call(L"AddItem", {L"abc"});
            ++answered;
        }
    });
    closing.reset();
    EXPECT_EQ(kThreads * rounds, answered);
    EXPECT_HR(S_OK, CanUnloadNow());
}

} // namespace
