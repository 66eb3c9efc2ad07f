// SPDX-License-Identifier: MIT
// vnlogon CONNECTION-STRING: the least that a C++ host needs. vndesk_idl.h is generated from the
// library's IDL; no import library and no #import are used.
// Exit code 0 when somebody has logged on, 1 when nobody has, 2 when the library cannot be used.
#include <cstdio>

#include <windows.h>

#include "vndesk_idl.h"

namespace {

int LogOn(const wchar_t* connectionString) {
    ILogon* logon = nullptr;
    HRESULT hr = CoCreateInstance(__uuidof(clsLogon), nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(ILogon), reinterpret_cast<void**>(&logon));
    long code = 0;
    if (SUCCEEDED(hr)) {
        BSTR connect = SysAllocString(connectionString);
        hr = logon->ShowLogon(&connect, &code);
        SysFreeString(connect);
        logon->Release();
    }
    if (FAILED(hr)) {
        fprintf(stderr, "VnDesk: 0x%08lX\n", static_cast<unsigned long>(hr));
        return 2;
    }
    printf("Code=%ld\n", code);
    return code ? 0 : 1;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: vnlogon CONNECTION-STRING\n");
        return 2;
    }
    // The dialogs need a single-threaded apartment.
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 2;
    const int code = LogOn(argv[1]);
    CoUninitialize();
    return code;
}
