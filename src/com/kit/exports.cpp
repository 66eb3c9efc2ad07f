// SPDX-License-Identifier: MIT
// The entry points of a COM server DLL. DllMain does next to nothing: it runs under the loader
// lock.
#include <windows.h>

#include <olectl.h>

#include <cstddef>

#include "class_factory.h"
#include "dispatch.h"
#include "module.h"
#include "registration.h"

using namespace vndesk;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        SetModuleInstance(instance);
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** factory) {
    return GetClassFactory(clsid, iid, factory);
}

STDAPI DllCanUnloadNow() {
    if (ModuleLock::Count() > 0)
        return S_FALSE;
    ReleaseTypes();
    return S_OK;
}

STDAPI DllRegisterServer() {
    return RegisterModule(Hive::Machine);
}

STDAPI DllUnregisterServer() {
    return UnregisterModule(Hive::Machine);
}

// regsvr32 /n /i:user registers for the user alone, /u with the same words takes it back.
STDAPI DllInstall(BOOL install, LPCWSTR arguments) {
    const Hive hive = arguments && lstrcmpiW(arguments, L"user") == 0 ? Hive::User : Hive::Machine;
    return install ? RegisterModule(hive) : UnregisterModule(hive);
}
