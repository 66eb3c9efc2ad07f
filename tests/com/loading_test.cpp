// SPDX-License-Identifier: MIT
// The library loaded and thrown out again and again.
#include <gtest/gtest.h>

#include <string>

#include "registered_dll.h"
#include "support/check_hr.h"
#include "support/leak_probe.h"
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

TEST(Loading, LibraryIsLoadedUsedAndUnloadedAgainAndAgain) {
    const CopiedDll copy;
    const int rounds = Rounds(100, 1000);
    const RegisteredClass& entry = RegisteredClasses().front();
    const auto round = [&] {
        const HMODULE dll = LoadLibraryW(copy.path.c_str());
        ASSERT_NE(nullptr, dll);
        {
            ComPtr<IClassFactory> factory;
            ComPtr<IDispatch> object;
            ASSERT_SUCCEEDED(Export<GetClassObject>(dll, "DllGetClassObject")(
                entry.clsid, IID_PPV_ARGS(&factory)));
            ASSERT_SUCCEEDED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)));
            EXPECT_HR(S_FALSE, Export<DllMoment>(dll, "DllCanUnloadNow")());
        }
        EXPECT_HR(S_OK, Export<DllMoment>(dll, "DllCanUnloadNow")());
        FreeLibrary(dll);
        ASSERT_EQ(nullptr, GetModuleHandleW(L"copy.dll"));
    };
    for (int i = 0; i < 10; ++i)
        round();
    const size_t heap = HeapInUse().bytes;
    for (int i = 0; i < rounds && !HasFatalFailure(); ++i)
        round();
    const auto grown = static_cast<long>(HeapInUse().bytes) - static_cast<long>(heap);
    TellFigures(rounds, " rounds, heap ", grown / rounds, " bytes a round");
    EXPECT_GE(rounds * 256L, grown);
}

} // namespace
