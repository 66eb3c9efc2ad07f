// SPDX-License-Identifier: MIT
// vncreate DLL: creates every class that the DLL's type library names, as a host does, and checks
// that it is this DLL that COM finds. Prints what fails; the exit code counts it.
#include <windows.h>

#include <oleauto.h>
#include <wrl/client.h>

#include <cstdio>
#include <string>

#include "support/text.h"

namespace {

using Microsoft::WRL::ComPtr;
using vndesk::test::HrText;
using vndesk::test::ToUtf8;

int failures = 0;

bool Check(HRESULT hr, const std::wstring& what) {
    if (SUCCEEDED(hr))
        return true;
    printf("%s: %s\n", ToUtf8(what).c_str(), HrText(hr).c_str());
    ++failures;
    return false;
}

void CheckPath(const std::wstring& expected, const std::wstring& found, const wchar_t* what) {
    if (lstrcmpiW(expected.c_str(), found.c_str()) == 0)
        return;
    printf("%s is %s, not %s\n", ToUtf8(what).c_str(), ToUtf8(found).c_str(),
           ToUtf8(expected).c_str());
    ++failures;
}

std::wstring Take(BSTR text) {
    std::wstring copy = text ? text : L"";
    SysFreeString(text);
    return copy;
}

void CreateClass(ITypeInfo* type) {
    BSTR name = nullptr;
    TYPEATTR* attributes = nullptr;
    if (!Check(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr), L"name") ||
        !Check(type->GetTypeAttr(&attributes), L"attributes"))
        return;
    const CLSID clsid = attributes->guid;
    type->ReleaseTypeAttr(attributes);
    const std::wstring progId = L"VnDesk." + Take(name);
    CLSID named = {};
    if (Check(CLSIDFromProgID(progId.c_str(), &named), progId) && named != clsid)
        Check(E_UNEXPECTED, progId + L" names another class");
    ComPtr<IDispatch> object;
    if (Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)),
              progId))
        wprintf(L"%ls\n", progId.c_str());
}

void CreateAll(const std::wstring& dll) {
    ComPtr<ITypeLib> library, registered;
    if (!Check(LoadTypeLibEx(dll.c_str(), REGKIND_NONE, &library), dll))
        return;
    TLIBATTR* attributes = nullptr;
    if (!Check(library->GetLibAttr(&attributes), L"library"))
        return;
    const GUID guid = attributes->guid;
    library->ReleaseTLibAttr(attributes);
    Check(LoadRegTypeLib(guid, 1, 0, LOCALE_NEUTRAL, &registered), L"type library");
    BSTR path = nullptr;
    if (Check(QueryPathOfRegTypeLib(guid, 1, 0, LOCALE_NEUTRAL, &path), L"type library's path"))
        CheckPath(dll, Take(path), L"the registered type library");
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        ComPtr<ITypeInfo> type;
        if (SUCCEEDED(library->GetTypeInfoType(i, &kind)) && kind == TKIND_COCLASS &&
            Check(library->GetTypeInfo(i, &type), L"type"))
            CreateClass(type.Get());
    }
    wchar_t loaded[MAX_PATH] = L"";
    GetModuleFileNameW(GetModuleHandleW(L"vndesk.dll"), loaded, MAX_PATH);
    CheckPath(dll, loaded, L"the DLL that COM has loaded");
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 2) {
        puts("usage: vncreate DLL");
        return 100;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CreateAll(argv[1]);
    CoUninitialize();
    return failures;
}
