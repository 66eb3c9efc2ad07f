// SPDX-License-Identifier: MIT
#include "comkit/server/registration.h"

#include <windows.h>
#include <oleauto.h>

#include <cwchar>
#include <string>
#include <utility>
#include <vector>

#include "comkit/base/handles.h"
#include "comkit/base/module.h"
#include "comkit/object/com_object.h"

// In the import libraries, but not declared by all SDK headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* helpDirectory);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID lcid,
                                        SYSKIND system);
}

namespace vndesk {

namespace {

#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
constexpr wchar_t kPlatform[] = L"win64";
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
constexpr wchar_t kPlatform[] = L"win32";
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring FileName(const std::wstring& path) {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

std::wstring ClassKey(const ClassEntry& entry) {
    return L"CLSID\\" + GuidText(*entry.clsid);
}

// Takes every step, also after one has failed, and keeps the first error.
class Attempts {
public:
    template <class Work> void Try(Work&& work) {
        ErrorState error = Trap(work);
        if (error && !first_)
            first_ = std::move(error);
    }
    const ErrorState& First() const { return first_; }

private:
    ErrorState first_;
};

class Registrar {
public:
    explicit Registrar(Hive hive)
        : hive_(hive), root_(hive == Hive::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    void Register() const {
        for (const ClassEntry& entry : moduleInfo.classes)
            RegisterClass(entry);
        RegisterTypeLibrary();
    }

    // What cannot be deleted stays; everything else goes. The first error is returned.
    ErrorState Unregister() const {
        Attempts attempts;
        for (const ClassEntry& entry : moduleInfo.classes)
            attempts.Try([&] { UnregisterClass(entry, attempts); });
        attempts.Try([&] { UnregisterTypeLibrary(); });
        if (moduleInfo.afterUnregister)
            attempts.Try([] { moduleInfo.afterUnregister(); });
        return attempts.First();
    }

private:
    static constexpr const wchar_t* kClasses = L"Software\\Classes\\";

    void Set(const std::wstring& key, const wchar_t* name, const std::wstring& value) const {
        const LSTATUS status =
            RegSetKeyValueW(root_, (kClasses + key).c_str(), name, REG_SZ, value.c_str(),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        CheckHr(HRESULT_FROM_WIN32(status));
    }

    std::wstring Read(const std::wstring& key, REGSAM view) const {
        wchar_t text[1024] = L"";
        DWORD size = sizeof text - sizeof(wchar_t);
        const UniqueKey opened = OpenKey(root_, kClasses + key, KEY_READ | view);
        if (!opened || RegQueryValueExW(opened.get(), nullptr, nullptr, nullptr,
                                        reinterpret_cast<BYTE*>(text), &size) != ERROR_SUCCESS)
            return {};
        return text;
    }

    std::vector<std::wstring> KeysBelow(const std::wstring& key) const {
        std::vector<std::wstring> keys;
        const UniqueKey opened = OpenKey(root_, kClasses + key, KEY_READ);
        wchar_t name[256];
        for (DWORD i = 0; opened && RegEnumKeyW(opened.get(), i, name, 256) == ERROR_SUCCESS; ++i)
            keys.push_back(key + L"\\" + name);
        return keys;
    }

    // Not RegDeleteTree, which ends at the first key that it cannot delete.
    void Delete(const std::wstring& key, Attempts& attempts) const {
        for (const std::wstring& below : KeysBelow(key))
            Delete(below, attempts);
        attempts.Try([&] {
            const LSTATUS status = RegDeleteKeyW(root_, (kClasses + key).c_str());
            if (status != ERROR_FILE_NOT_FOUND)
                CheckHr(HRESULT_FROM_WIN32(status));
        });
    }

    void RegisterClass(const ClassEntry& entry) const {
        const std::wstring key = ClassKey(entry);
        const std::wstring versioned = entry.progId + std::wstring(L".1");
        Set(key, nullptr, entry.friendlyName);
        Set(key + L"\\InprocServer32", nullptr, ModulePath());
        Set(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
        Set(key + L"\\ProgID", nullptr, versioned);
        Set(key + L"\\VersionIndependentProgID", nullptr, entry.progId);
        if (moduleInfo.typeLibrary)
            Set(key + L"\\TypeLib", nullptr, GuidText(*moduleInfo.typeLibrary));
        Set(key + L"\\Programmable", nullptr, L"");
        if (entry.control)
            RegisterControl(key, *entry.control);
        for (const std::wstring& name : {std::wstring(entry.progId), versioned}) {
            Set(name, nullptr, entry.friendlyName);
            Set(name + L"\\CLSID", nullptr, GuidText(*entry.clsid));
        }
        Set(entry.progId + std::wstring(L"\\CurVer"), nullptr, versioned);
    }

    // Everything below the class's key, which goes with it.
    void RegisterControl(const std::wstring& key, const ControlEntry& control) const {
        Set(key + L"\\Control", nullptr, L"");
        Set(key + L"\\MiscStatus", nullptr, L"0");
        Set(key + L"\\MiscStatus\\1", nullptr, std::to_wstring(control.miscStatus));
        Set(key + L"\\ToolboxBitmap32", nullptr,
            ModulePath() + L", " + std::to_wstring(control.toolboxBitmap));
        Set(key + L"\\Version", nullptr, control.version);
        for (const GUID* category : control.categories)
            Set(key + L"\\Implemented Categories\\" + GuidText(*category), nullptr, L"");
    }

    // Whether the class is registered with this copy of the DLL.
    bool Serves(const ClassEntry& entry) const {
        return lstrcmpiW(Read(ClassKey(entry) + L"\\InprocServer32", 0).c_str(),
                         ModulePath().c_str()) == 0;
    }

    void UnregisterClass(const ClassEntry& entry, Attempts& attempts) const {
        const std::wstring key = ClassKey(entry);
        const std::wstring server = Read(key + L"\\InprocServer32", 0);
        if (!server.empty() && lstrcmpiW(server.c_str(), ModulePath().c_str()) != 0)
            return;
        Delete(key, attempts);
        // Class identifiers are kept apart for 32 and 64 bits, names are not: our DLL of the other
        // kind may still need them.
        const std::wstring other = Read(key + L"\\InprocServer32", kOtherView);
        if (lstrcmpiW(FileName(other).c_str(), FileName(ModulePath()).c_str()) == 0)
            return;
        for (const wchar_t* suffix : {L"", L".1"})
            if (Read(entry.progId + std::wstring(suffix) + L"\\CLSID", 0) == GuidText(*entry.clsid))
                Delete(entry.progId + std::wstring(suffix), attempts);
    }

    void RegisterTypeLibrary() const {
        if (!moduleInfo.typeLibrary)
            return;
        // What an older version of this file has left; a host that asks for it gets the newest one.
        UnregisterTypeLibrary();
        ComPtr<ITypeLib> library;
        CheckHr(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library));
        std::wstring path = ModulePath();
        CheckHr(hive_ == Hive::Machine
                    ? RegisterTypeLib(library.Get(), path.data(), nullptr)
                    : RegisterTypeLibForUser(library.Get(), path.data(), nullptr));
    }

    void UnregisterTypeLibrary() const {
        if (!moduleInfo.typeLibrary)
            return;
        const GUID& guid = *moduleInfo.typeLibrary;
        for (const auto [major, minor] : OurTypeLibraries())
            CheckHr(hive_ == Hive::Machine
                        ? UnRegisterTypeLib(guid, major, minor, LOCALE_NEUTRAL, kSystem)
                        : UnRegisterTypeLibForUser(guid, major, minor, LOCALE_NEUTRAL, kSystem));
    }

    struct Version {
        WORD major, minor;
    };

    // The versions that are registered with this copy of the DLL.
    std::vector<Version> OurTypeLibraries() const {
        std::vector<Version> ours = OurTypeLibrariesHere();
        // Wine's RegisterTypeLibForUser registers for all users. An entry there is this user's
        // unless the DLL's classes are registered there too.
        if (ours.empty() && hive_ == Hive::User) {
            const Registrar machine(Hive::Machine);
            if (!machine.Serves(moduleInfo.classes.front()))
                ours = machine.OurTypeLibrariesHere();
        }
        return ours;
    }

    std::vector<Version> OurTypeLibrariesHere() const {
        std::vector<Version> ours;
        for (const std::wstring& key :
             KeysBelow(L"TypeLib\\" + GuidText(*moduleInfo.typeLibrary))) {
            const std::wstring file = Read(key + L"\\0\\" + kPlatform, 0);
            unsigned major = 0, minor = 0;
            if (lstrcmpiW(file.c_str(), ModulePath().c_str()) == 0 &&
                std::swscanf(FileName(key).c_str(), L"%x.%x", &major, &minor) == 2)
                ours.push_back({static_cast<WORD>(major), static_cast<WORD>(minor)});
        }
        return ours;
    }

    Hive hive_;
    HKEY root_;
};

} // namespace

HRESULT RegisterModule(Hive hive) noexcept {
    const ErrorState error = Trap([&] {
        std::wstring reason;
        if (moduleInfo.mayRegister && !moduleInfo.mayRegister(reason))
            throw ComError(E_ACCESSDENIED, reason);
        Registrar(hive).Register();
    });
    if (!error)
        return S_OK;
    UnregisterModule(hive);
    return error.code;
}

HRESULT UnregisterModule(Hive hive) noexcept {
    ErrorState first;
    const ErrorState error = Trap([&] { first = Registrar(hive).Unregister(); });
    return error ? error.code : first.code;
}

} // namespace vndesk
