// SPDX-License-Identifier: MIT
// Frees what GCC's run-time allocates for this DLL and leaves behind at unloading. Other compilers
// need no help.
#ifdef __MINGW32__

#include <windows.h>

// Frees libstdc++'s emergency exception pool, 70 KB.
namespace __gnu_cxx {
void __freeres();
}

namespace {

// winpthreads allocates a TLS index, of which a process has about a thousand, and never frees it.
// The build gives it TakeSlot in place of TlsAlloc (cmake/com_dll.cmake), so that the index is
// known.
DWORD slot = TLS_OUT_OF_INDEXES;

DWORD WINAPI TakeSlot() {
    using Take = DWORD(WINAPI*)();
    const auto take = reinterpret_cast<Take>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "TlsAlloc")));
    return slot = take();
}

} // namespace

extern "C" {

extern DWORD(WINAPI* const vndesk_take_slot)();
DWORD(WINAPI* const vndesk_take_slot)() = TakeSlot;

// What winpthreads runs when a thread ends.
extern const PIMAGE_TLS_CALLBACK __xl_f;

BOOL WINAPI DllMainCRTStartup(HINSTANCE instance, DWORD reason, void* processEnds);

// The DLL's entry point, around the run-time's own (DllMainCRTStartup), which still uses what is
// freed here.
BOOL WINAPI vndesk_entry(HINSTANCE instance, DWORD reason, void* processEnds) {
    const BOOL entered = DllMainCRTStartup(instance, reason, processEnds);
    if (reason == DLL_PROCESS_DETACH && !processEnds) {
        __gnu_cxx::__freeres();
        if (slot != TLS_OUT_OF_INDEXES) {
            __xl_f(instance, DLL_THREAD_DETACH, nullptr); // this thread's two handles
            TlsFree(slot);
        }
    }
    return entered;
}
}

#endif
