// SPDX-License-Identifier: MIT
// The entry points of a COM server DLL. DllMain does next to nothing: it runs under the loader
// lock.
#include <windows.h>

#include <olectl.h>

#include <cstddef>

#include "comkit/base/module.h"
#include "comkit/object/dispatch.h"
#include "comkit/server/class_factory.h"
#include "comkit/server/registration.h"

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
    return ReleaseTypes() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return RegisterModule(Hive::Machine);
}

STDAPI DllUnregisterServer() {
    return UnregisterModule(Hive::Machine);
}

// regsvr32 /n /i:user registers for the user alone, /n /i for the machine; /u with the same words
// takes it back. Other words are refused: a mistyped one must not register for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR arguments) {
    Hive hive = Hive::Machine;
    if (arguments && *arguments) {
        if (lstrcmpiW(arguments, L"user") != 0)
            return E_INVALIDARG;
        hive = Hive::User;
    }
    return install ? RegisterModule(hive) : UnregisterModule(hive);
}
