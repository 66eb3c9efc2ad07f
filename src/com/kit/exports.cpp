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

#ifdef __GLIBCXX__
// The run-time keeps 70 KB for exceptions when memory is short, and leaves them behind when its DLL
// goes unless it is told.
namespace __gnu_cxx {
void __freeres();
}
#endif

using namespace vndesk;

namespace {

void FreeRunTime() {
#ifdef __GLIBCXX__
    __gnu_cxx::__freeres();
#endif
}

} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* processEnds) {
    if (reason == DLL_PROCESS_ATTACH) {
        SetModuleInstance(instance);
        DisableThreadLibraryCalls(instance);
    } else if (reason == DLL_PROCESS_DETACH && !processEnds) {
        FreeRunTime();
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
