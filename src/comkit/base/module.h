// SPDX-License-Identifier: MIT
// What one COM server DLL is made of: its class table, its type library and the count of living
// objects. The exports, the factory, registration and the contract tests all walk the same table.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace vndesk {

// What makes a class a control for containers and designers.
struct ControlEntry {
    DWORD miscStatus;  // OLEMISC_ flags
    int toolboxBitmap; // number of the resource
    const wchar_t* version;
    std::span<const GUID* const> categories;
};

// One creatable class. `progId` is the version-independent name; ".1" is added for the other one.
struct ClassEntry {
    const CLSID* clsid;
    const wchar_t* progId;
    const wchar_t* friendlyName;
    HRESULT (*create)(REFIID iid, void** object);
    const ControlEntry* control = nullptr;
};

struct ModuleInfo {
    std::span<const ClassEntry> classes;
    const GUID* typeLibrary; // to be registered; null where the system has one of its own
    // Whether this machine may register the module; `reason` says why not.
    bool (*mayRegister)(std::wstring& reason);
    // Runs after unregistration: restores what registration had replaced.
    void (*afterUnregister)() = nullptr;
};

// Each DLL (and each test program that links the classes directly) defines its own.
extern const ModuleInfo moduleInfo;

// The module's own handle: resources and the registered path come from it.
HINSTANCE ModuleInstance() noexcept;
void SetModuleInstance(HINSTANCE instance) noexcept;
std::wstring ModulePath();

// Objects that keep the DLL in memory.
class ModuleLock {
public:
    ModuleLock() noexcept;
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

// LockServer calls of hosts, which keep the DLL in memory too. One unlock too many is ignored: it
// must not let the DLL go while others hold it.
void LockModule() noexcept;
void UnlockModule() noexcept;

// Whether an object or a lock is left.
bool IsModuleInUse() noexcept;

} // namespace vndesk
