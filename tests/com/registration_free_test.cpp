// SPDX-License-Identifier: MIT
// The library used by a host's manifest, while it is not registered: a copy in a folder of its own,
// as a host would ship it. What the manifests say is compared in assembly_manifest_test.cpp.
#include <comutil.h>
#include <olectl.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "com/activation_context.h"
#include "com/damaged_machine.h"
#include "support/child_process.h"
#include "support/control_container.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;
using Lines = std::vector<std::wstring>;

constexpr wchar_t kClient[] = L"vndesk-client.manifest";

std::wstring BesideTests(const wchar_t* name) {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, std::wstring_view(path).rfind(L'\\')) + L"\\..\\" + name;
}

// The file that an object's code is in.
std::wstring FileOf(IUnknown* object) {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"";
    const void* code = **reinterpret_cast<void***>(object);
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           static_cast<const wchar_t*>(code), &module))
        GetModuleFileNameW(module, path, MAX_PATH);
    return path;
}

bool SameFile(const std::wstring& left, const std::wstring& right) {
    wchar_t a[MAX_PATH] = L"", b[MAX_PATH] = L"";
    GetLongPathNameW(left.c_str(), a, MAX_PATH);
    GetLongPathNameW(right.c_str(), b, MAX_PATH);
    return *a && lstrcmpiW(a, b) == 0;
}

class RegistrationFreeTest : public DamagedMachineTest {
protected:
    void SetUp() override {
        DamagedMachineTest::SetUp();
        miscStatus_ =
            RegistryText(HKEY_LOCAL_MACHINE,
                         Under(L"CLSID\\" + GuidText(__uuidof(DataCombo1))) + L"\\MiscStatus\\1");
        const std::wstring id = typeLibrary_.substr(typeLibrary_.find(L'{'));
        ASSERT_SUCCEEDED(CLSIDFromString(id.c_str(), &libraryId_));
        library_ = RegisteredTypeLibrary();
        copy_ = CopyOfDll();
        const std::wstring manifest = folder_.File(kClient);
        ASSERT_TRUE(CopyFileW(BesideTests(kClient).c_str(), manifest.c_str(), FALSE));
        Unregister();
        context_ = std::make_unique<ActivationContext>(manifest);
    }
    void TearDown() override {
        context_.reset();
        // The copy must go before its folder.
        CoFreeUnusedLibrariesEx(0, 0);
        DamagedMachineTest::TearDown();
    }

    // What scripts call an object's type.
    std::wstring InterfaceName(const RegisteredClass& entry) const {
        ComPtr<ITypeInfo> type;
        _bstr_t name;
        EXPECT_SUCCEEDED(library_->GetTypeInfoOfGuid(entry.defaultInterface, &type));
        EXPECT_SUCCEEDED(
            type->GetDocumentation(MEMBERID_NIL, name.GetAddress(), nullptr, nullptr, nullptr));
        return static_cast<const wchar_t*>(name);
    }

    std::wstring copy_, miscStatus_;
    GUID libraryId_ = {};
    ComPtr<ITypeLib> library_; // of the registered copy
    std::unique_ptr<ActivationContext> context_;
};

TEST_F(RegistrationFreeTest, NothingIsFoundWithoutTheManifest) {
    for (const RegisteredClass& entry : classes_) {
        CLSID clsid;
        ComPtr<IUnknown> object;
        EXPECT_FAILED(CLSIDFromProgID(entry.progId.c_str(), &clsid)) << ToUtf8(entry.progId);
        EXPECT_HR(REGDB_E_CLASSNOTREG, entry.Create(IID_PPV_ARGS(&object)));
    }
    ComPtr<ITypeLib> library;
    EXPECT_FAILED(LoadRegTypeLib(libraryId_, 1, 0, LOCALE_NEUTRAL, &library));
}

TEST_F(RegistrationFreeTest, EveryClassIsFoundByIdentifierAndByName) {
    const ActivationContext::Active active(*context_);
    for (const RegisteredClass& entry : classes_) {
        ComPtr<IDispatch> object;
        ASSERT_SUCCEEDED(entry.Create(entry.defaultInterface, &object)) << ToUtf8(entry.progId);
        EXPECT_PRED2(SameFile, copy_, FileOf(object.Get())) << ToUtf8(FileOf(object.Get()));
        // The platform gives an identifier of its own for a name in a manifest; it leads to the
        // class.
        for (const std::wstring& name : {entry.progId, entry.progId + L".1"}) {
            CLSID clsid = {};
            ComPtr<IDispatch> named;
            EXPECT_SUCCEEDED(CLSIDFromProgID(name.c_str(), &clsid)) << ToUtf8(name);
            ASSERT_SUCCEEDED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER,
                                              entry.defaultInterface, &named))
                << ToUtf8(name);
            EXPECT_PRED2(SameFile, copy_, FileOf(named.Get())) << ToUtf8(name);
        }
        LPOLESTR progId = nullptr;
        EXPECT_SUCCEEDED(ProgIDFromCLSID(entry.clsid, &progId));
        EXPECT_STREQ((entry.progId + L".1").c_str(), progId ? progId : L"");
        CoTaskMemFree(progId);
    }
}

TEST_F(RegistrationFreeTest, GoesBeforeTheLibraryThatIsRegistered) {
    ASSERT_SUCCEEDED(DllExport<DllMoment>("DllRegisterServer")());
    ComPtr<IDispatch> registered = classes_[0].Create();
    EXPECT_PRED2(SameFile, dll_, FileOf(registered.Get()));
    const ActivationContext::Active active(*context_);
    ComPtr<IDispatch> own = classes_[0].Create();
    EXPECT_PRED2(SameFile, copy_, FileOf(own.Get()));
}

TEST_F(RegistrationFreeTest, TypeLibraryIsLoadedByItsIdentifier) {
    const ActivationContext::Active active(*context_);
    ComPtr<ITypeLib> library;
    ASSERT_SUCCEEDED(LoadRegTypeLib(libraryId_, 1, 0, LOCALE_NEUTRAL, &library));
    for (const RegisteredClass& entry : classes_) {
        ComPtr<ITypeInfo> type;
        EXPECT_SUCCEEDED(library->GetTypeInfoOfGuid(entry.defaultInterface, &type));
        EXPECT_SUCCEEDED(library->GetTypeInfoOfGuid(entry.clsid, &type));
    }
    BSTR path = nullptr;
    EXPECT_SUCCEEDED(QueryPathOfRegTypeLib(libraryId_, 1, 0, LOCALE_NEUTRAL, &path));
    EXPECT_PRED2(SameFile, copy_, std::wstring(path ? path : L""));
    SysFreeString(path);
}

TEST_F(RegistrationFreeTest, MembersAreCalledEarlyAndLateBound) {
    const ActivationContext::Active active(*context_);
    ComPtr<IVarnok> varnok;
    ASSERT_SUCCEEDED(
        CoCreateInstance(__uuidof(Varnok), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&varnok)));
    _bstr_t sign;
    EXPECT_SUCCEEDED(varnok->Sign(_bstr_t(L"-5"), sign.GetAddress()));
    EXPECT_STREQ(L"-", sign);
    const LateBound late = LateBound::Create(L"VnDesk.Varnok");
    EXPECT_EQ(_variant_t(L"1.234,5"), late.Call(L"CvNStr", {1234.5}));
}

TEST_F(RegistrationFreeTest, EventsReachAScript) {
    const ActivationContext::Active active(*context_);
    ScriptRunner script;
    script.RunOk(L"Set c = WScript.CreateObject(\"VnDesk.DataCombo1\", \"c_\")\n"
                 L"Sub c_Click()\nEcho \"Click\", c.Text\nEnd Sub\n"
                 L"c.AddItem \"Họ tên\"\nc.AddItem \"Ngày sinh\"\nc.ListIndex = 1");
    EXPECT_EQ(Lines{L"Click Ngày sinh"}, script.Lines());
}

TEST_F(RegistrationFreeTest, ControlIsShownInAWindowOfItsContainer) {
    const ActivationContext::Active active(*context_);
    // The class's own status comes from the manifest here.
    DWORD status = 0;
    EXPECT_SUCCEEDED(OleRegGetMiscStatus(__uuidof(DataCombo1), DVASPECT_CONTENT, &status));
    EXPECT_EQ(miscStatus_, std::to_wstring(status));

    const HWND window = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      300, 200, nullptr, nullptr, nullptr, nullptr);
    {
        ControlContainer container(window);
        ComPtr<IDataCombo1> combo;
        ASSERT_SUCCEEDED(CoCreateInstance(__uuidof(DataCombo1), nullptr, CLSCTX_INPROC_SERVER,
                                          IID_PPV_ARGS(&combo)));
        EXPECT_PRED2(SameFile, copy_, FileOf(combo.Get()));
        container.Take(combo.Get());
        EXPECT_SUCCEEDED(container.DoVerb(OLEIVERB_INPLACEACTIVATE));
        const HWND list = FindControl(window, L"Cmb1");
        EXPECT_NE(nullptr, list);
        EXPECT_TRUE(IsWindowVisible(list));
    }
    DestroyWindow(window);
}

// What a proxy needs: the interface's marshaler and its description, both by the manifest.
TEST_F(RegistrationFreeTest, ObjectsAreCalledFromAnotherThread) {
    const ActivationContext::Active active(*context_);
    ComPtr<IVarnok> varnok;
    ASSERT_SUCCEEDED(
        CoCreateInstance(__uuidof(Varnok), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&varnok)));
    IStream* stream = nullptr;
    ASSERT_SUCCEEDED(
        CoMarshalInterThreadInterfaceInStream(__uuidof(IVarnok), varnok.Get(), &stream));
    HRESULT got = E_FAIL, called = E_FAIL;
    bool proxy = false;
    std::wstring sign;
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            const ActivationContext::Active activeHere(*context_);
            ComPtr<IVarnok> remote;
            got = CoGetInterfaceAndReleaseStream(stream, IID_PPV_ARGS(&remote));
            if (SUCCEEDED(got)) {
                proxy = remote.Get() != varnok.Get();
                _bstr_t text;
                called = remote->Sign(_bstr_t(L"+7"), text.GetAddress());
                sign = text.length() ? static_cast<const wchar_t*>(text) : L"";
            }
        }
        CoUninitialize();
        SetEvent(done);
    });
    // Calls are let in meanwhile.
    DWORD index = 0;
    EXPECT_SUCCEEDED(CoWaitForMultipleHandles(0, 30000, 1, &done, &index));
    other.join();
    CloseHandle(done);
    EXPECT_SUCCEEDED(got);
    EXPECT_SUCCEEDED(called);
    EXPECT_TRUE(proxy);
    EXPECT_EQ(L"+", sign);
}

// A program that knows nothing of all this: the manifest stands beside it under its name.
TEST_F(RegistrationFreeTest, ProgramWithTheManifestBesideItCreatesEveryClass) {
    const std::wstring program = folder_.File(L"vnscript.exe"), script = folder_.File(L"all.vbs"),
                       output = folder_.File(L"output.txt");
    ASSERT_TRUE(CopyFileW(BesideTests(L"vnscript.exe").c_str(), program.c_str(), FALSE));
    std::wstring source, wanted;
    for (const RegisteredClass& entry : classes_) {
        source += L"Set o = WScript.CreateObject(\"" + entry.progId + L"\")\nEcho TypeName(o)\n";
        wanted += InterfaceName(entry) + L"\r\n";
    }
    std::ofstream(std::filesystem::path(script)) << ToUtf8(source);
    const auto run = [&] {
        ChildProcess host({program, script}, output);
        return host.ExitCode(60000);
    };
    EXPECT_NE(0u, run()) << "without the manifest there is no class";
    ASSERT_TRUE(CopyFileW(BesideTests(kClient).c_str(), (program + L".manifest").c_str(), FALSE));
    EXPECT_EQ(0u, run());
    EXPECT_EQ(wanted, ReadUtf8File(output));
}

} // namespace
