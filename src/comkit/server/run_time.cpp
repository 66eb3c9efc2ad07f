// SPDX-License-Identifier: MIT
// What GCC's run-time holds for this DLL and leaves behind when the DLL goes. Other compilers' need
// no help.
#ifdef __MINGW32__

#include <windows.h>

// 70 KB for exceptions when memory is short.
namespace __gnu_cxx {
void __freeres();
}

namespace {

// The threads library takes a slot for thread-local values, of which a process has about a
// thousand, and keeps the number to itself. The build gives it TakeSlot in place of the platform's
// call (cmake/idl.cmake).
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

// What the threads library does when a thread ends.
extern const PIMAGE_TLS_CALLBACK __xl_f;

BOOL WINAPI DllMainCRTStartup(HINSTANCE instance, DWORD reason, void* processEnds);

// Where the loader enters the DLL, around the run-time's own entry point: that one still uses what
// is given back here.
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
