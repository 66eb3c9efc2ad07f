// SPDX-License-Identifier: MIT
// The library loaded and thrown out again and again.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <olectl.h>
#include <string>
#include <thread>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/leak_probe.h"
#include "support/process_use.h"
#include "support/reliability.h"
#include "support/temp_dir.h"

namespace {

using namespace vndesk::test;

using GetClassObject = HRESULT WINAPI(REFCLSID, REFIID, void**);

template <class Function> Function* Export(HMODULE dll, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(dll, name)));
}

// Another file than the one that the process keeps loaded: each round maps it anew.
class CopiedDll {
public:
    CopiedDll() : path(folder_.File(L"copy.dll")) {
        EXPECT_TRUE(CopyFileW(RegisteredDllPath().c_str(), path.c_str(), TRUE));
    }
    const TempDir folder_;
    const std::wstring path;
};

// A class that tells events: it refuses a sink by an exception of its own.
const RegisteredClass& EntryClass() {
    const auto& all = RegisteredClasses();
    return *std::find_if(all.begin(), all.end(), [](const auto& each) { return each.hasEvents; });
}

void RaiseInside(IClassFactory* factory, IConnectionPointContainer* object) {
    ComPtr<IConnectionPoint> events;
    DWORD cookie = 0;
    ASSERT_SUCCEEDED(object->FindConnectionPoint(EntryClass().events, &events));
    EXPECT_HR(CONNECT_E_CANNOTCONNECT, events->Advise(factory, &cookie));
}

void UseObject(HMODULE dll, bool raise) {
    ComPtr<IClassFactory> factory;
    ComPtr<IConnectionPointContainer> object;
    ASSERT_SUCCEEDED(Export<GetClassObject>(dll, "DllGetClassObject")(EntryClass().clsid,
                                                                      IID_PPV_ARGS(&factory)));
    ASSERT_SUCCEEDED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)));
    if (raise)
        RaiseInside(factory.Get(), object.Get());
    EXPECT_HR(S_FALSE, Export<DllMoment>(dll, "DllCanUnloadNow")());
}

void LoadUseAndUnload(const std::wstring& path, bool raise) {
    const HMODULE dll = LoadLibraryW(path.c_str());
    ASSERT_NE(nullptr, dll);
    UseObject(dll, raise);
    EXPECT_HR(S_OK, Export<DllMoment>(dll, "DllCanUnloadNow")());
    FreeLibrary(dll);
    ASSERT_EQ(nullptr, GetModuleHandleW(L"copy.dll"));
}

// What a round may keep.
struct Kept {
    long bytes, handles;
};

void ExpectKept(Kept kept, int rounds, const std::function<void()>& round) {
    for (int i = 0; i < 10; ++i)
        round();
    const size_t heap = HeapInUse().bytes;
    const long handles = UseOf(GetCurrentProcessId()).handles;
    for (int i = 0; i < rounds && !testing::Test::HasFatalFailure(); ++i)
        round();
    const auto grown = static_cast<long>(HeapInUse().bytes) - static_cast<long>(heap);
    const long opened = UseOf(GetCurrentProcessId()).handles - handles;
    TellFigures(rounds, " rounds, heap ", grown / rounds, " bytes a round, handles ", opened);
    EXPECT_GE(rounds * kept.bytes, grown);
    // Others in the process open some too.
    EXPECT_GE(rounds * kept.handles + 256, opened);
}

// `kept` is a little more than GCC's threads library keeps of each loading: it has no call to be
// ended with. A library without a run-time of its own keeps nothing.
void LoadAgainAndAgain(bool raise, Kept kept) {
    const CopiedDll copy;
    // A process has 1,088 slots for thread-local values.
    ExpectKept(kept, Rounds(1200, 5000), [&] { LoadUseAndUnload(copy.path, raise); });
}

TEST(Loading, LibraryIsLoadedUsedAndUnloadedAgainAndAgain) {
    LoadAgainAndAgain(false, {sizeof(void*) == 4 ? 300 : 8, 0});
}

TEST(Loading, LibraryThatMetAnErrorIsLoadedAndUnloadedAgainAndAgain) {
    LoadAgainAndAgain(true, {sizeof(void*) == 4 ? 650 : 1000, 4});
}

TEST(Loading, ThreadsThatMetAnErrorTakeAllWithThemWhenTheyEnd) {
    const CopiedDll copy;
    const HMODULE dll = LoadLibraryW(copy.path.c_str());
    ASSERT_NE(nullptr, dll);
    ExpectKept({64, 0}, Rounds(500, 5000),
               [&] { std::thread([&] { UseObject(dll, true); }).join(); });
    FreeLibrary(dll);
}

} // namespace
