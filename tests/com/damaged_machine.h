// SPDX-License-Identifier: MIT
// A machine on which the library is not as it should be. What a test changes is given back at its
// end: first what it noted itself, then the library's own registration.
#pragma once
#include <functional>
#include <vector>

#include "com/registered_dll.h"
#include "com/registry_edit.h"
#include "support/check_hr.h"
#include "support/temp_dir.h"

namespace vndesk::test {

class DamagedMachineTest : public testing::Test {
protected:
    void SetUp() override {
        // Read while the library is registered; the DLL stays loaded from now on.
        dll_ = RegisteredDllPath();
        classes_ = RegisteredClasses();
        typeLibrary_ = L"TypeLib\\" +
                       RegistryText(HKEY_LOCAL_MACHINE, ClassKey(classes_.at(0)) + L"\\TypeLib");
        ASSERT_HR(S_OK, CanUnloadNow());
    }

    void TearDown() override {
        for (auto undo = undo_.rbegin(); undo != undo_.rend(); ++undo)
            (*undo)();
        EXPECT_SUCCEEDED(DllExport<DllMoment>("DllUnregisterServer")());
        for (const RegisteredClass& entry : classes_)
            DeleteTree(HKEY_LOCAL_MACHINE, ClassKey(entry));
        EXPECT_SUCCEEDED(DllExport<DllMoment>("DllRegisterServer")());
    }

    void Unregister() { EXPECT_SUCCEEDED(DllExport<DllMoment>("DllUnregisterServer")()); }
    void AtEnd(std::function<void()> undo) { undo_.push_back(std::move(undo)); }

    static std::wstring Under(const std::wstring& key) { return L"Software\\Classes\\" + key; }
    static std::wstring ClassKey(const RegisteredClass& entry) {
        return Under(L"CLSID\\" + GuidText(entry.clsid));
    }
    static std::wstring ServerKey(const RegisteredClass& entry) {
        return ClassKey(entry) + L"\\InprocServer32";
    }
    std::wstring TypeLibraryKey() const {
        return Under(typeLibrary_ + L"\\1.1\\0\\win" + std::to_wstring(8 * sizeof(void*)));
    }

    // A text that is not the library's own: the old one comes back, or the key goes.
    void Replace(HKEY root, const std::wstring& key, const std::wstring& text) {
        const bool there = KeyExists(root, key);
        const std::wstring before = RegistryText(root, key);
        SetText(root, key, nullptr, text);
        AtEnd([=] { there ? SetText(root, key, nullptr, before) : DeleteTree(root, key); });
    }

    void ServeAllClassesFrom(const std::wstring& path) {
        for (const RegisteredClass& entry : classes_)
            SetText(HKEY_LOCAL_MACHINE, ServerKey(entry), nullptr, path);
    }

    // The library in another place; goes with the test.
    std::wstring CopyOfDll(const wchar_t* name = L"vndesk.dll") {
        const std::wstring copy = folder_.File(name);
        EXPECT_TRUE(CopyFileW(dll_.c_str(), copy.c_str(), FALSE));
        return copy;
    }

    const TempDir folder_;
    std::wstring dll_, typeLibrary_;
    std::vector<RegisteredClass> classes_;

private:
    std::vector<std::function<void()>> undo_;
};

} // namespace vndesk::test
