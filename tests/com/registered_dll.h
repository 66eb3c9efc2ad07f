// SPDX-License-Identifier: MIT
// The library as hosts meet it: found through the registry, loaded by COM, described by its type
// library. Nothing here comes from the sources of the product.
#pragma once
#include <functional>
#include <map>
#include <string>
#include <vector>
#include <windows.h>
#include <oaidl.h>
#include <wrl/client.h>

namespace vndesk::test {

using Microsoft::WRL::ComPtr;

std::wstring GuidText(REFGUID guid);

// A value of the machine's registry; empty when it is not there. `name` nullptr: the default value.
std::wstring RegistryText(HKEY root, const std::wstring& key, const wchar_t* name = nullptr,
                          REGSAM view = 0);
bool KeyExists(HKEY root, const std::wstring& key, REGSAM view = 0);

// Every key and value below a key, "key|value name" -> type and data. Empty when there is no key.
using RegistryTree = std::map<std::wstring, std::wstring>;
RegistryTree ReadTree(HKEY root, const std::wstring& key, REGSAM view = 0);

struct Parameter {
    std::wstring name;
    VARTYPE type;     // of what is passed; the type behind the pointer for by-reference ones
    bool byReference; // declared as a pointer
    bool optional;
    bool result; // [retval]
};

struct Method {
    std::wstring name;
    std::wstring help;
    MEMBERID id;
    WORD kind; // DISPATCH_METHOD, or which side of a property
    short vtableOffset;
    std::vector<Parameter> parameters; // with the result
    size_t Arguments() const;          // without the result
    size_t Required() const;
    bool IsProperty() const { return kind != DISPATCH_METHOD; }
};

struct RegisteredClass {
    std::wstring name;
    std::wstring progId;
    CLSID clsid;
    IID defaultInterface;
    std::vector<IID> olderInterfaces; // which the default one inherits
    bool hasEvents;
    IID events;
    std::vector<Method> methods;

    HRESULT Create(REFIID iid, void** object) const;
    ComPtr<IDispatch> Create() const; // throws
};

// The creatable classes of the registered library, from its type library.
const std::vector<RegisteredClass>& RegisteredClasses();

std::wstring RegisteredDllPath();
ComPtr<ITypeLib> RegisteredTypeLibrary();

// An export of the DLL in this process.
FARPROC DllExport(const char* name);
template <class Function> Function* DllExport(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(DllExport(name)));
}

using DllMoment = HRESULT WINAPI();
inline HRESULT CanUnloadNow() {
    return DllExport<DllMoment>("DllCanUnloadNow")();
}

} // namespace vndesk::test
