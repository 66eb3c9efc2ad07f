// SPDX-License-Identifier: MIT
#include "com/registered_dll.h"

#include <memory>

#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";

void Check(HRESULT hr, const wchar_t* what) {
    if (FAILED(hr))
        Fail(std::wstring(what) + L": " + FromUtf8(HrText(hr)));
}

std::wstring Take(BSTR text) {
    std::wstring copy(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

struct OpenKey {
    HKEY key = nullptr;
    OpenKey(HKEY root, const std::wstring& name, REGSAM view) {
        RegOpenKeyExW(root, name.c_str(), 0, KEY_READ | view, &key);
    }
    ~OpenKey() {
        if (key)
            RegCloseKey(key);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
};

void ReadInto(RegistryTree& tree, HKEY key, const std::wstring& path) {
    tree[path] = L"";
    wchar_t name[512];
    for (DWORD i = 0;; ++i) {
        DWORD length = 512, type = 0;
        BYTE data[4096];
        DWORD size = sizeof data;
        if (RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS)
            break;
        tree[path + L"|" + name] =
            std::to_wstring(type) + L":" +
            std::wstring(reinterpret_cast<wchar_t*>(data), size / sizeof(wchar_t));
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        const OpenKey child(key, name, 0);
        if (child.key)
            ReadInto(tree, child.key, path + L"\\" + name);
    }
}

template <class Attribute, class Release>
std::unique_ptr<Attribute, Release> Owned(Attribute* attribute, Release release) {
    return {attribute, release};
}

auto AttributesOf(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    Check(type->GetTypeAttr(&attributes), L"GetTypeAttr");
    return Owned(attributes, [type](TYPEATTR* a) { type->ReleaseTypeAttr(a); });
}

// Enumerations and other names of numbers.
bool IsNumber(ITypeInfo* type, HREFTYPE reference) {
    ComPtr<ITypeInfo> referred;
    Check(type->GetRefTypeInfo(reference, &referred), L"GetRefTypeInfo");
    const auto attributes = AttributesOf(referred.Get());
    return attributes->typekind == TKIND_ENUM ||
           (attributes->typekind == TKIND_ALIAS && attributes->tdescAlias.vt != VT_USERDEFINED);
}

Method ReadMethod(ITypeInfo* type, const FUNCDESC& function) {
    Method method;
    BSTR texts[32] = {};
    UINT count = 0;
    Check(type->GetNames(function.memid, texts, 32, &count), L"GetNames");
    std::vector<std::wstring> names;
    for (UINT i = 0; i < count; ++i)
        names.push_back(Take(texts[i]));
    names.resize(static_cast<size_t>(function.cParams) + 1);
    BSTR help = nullptr;
    type->GetDocumentation(function.memid, nullptr, &help, nullptr, nullptr);
    method.help = Take(help);
    method.name = names[0];
    method.id = function.memid;
    method.kind = static_cast<WORD>(function.invkind);
    method.vtableOffset = function.oVft;
    for (short i = 0; i < function.cParams; ++i) {
        const ELEMDESC& element = function.lprgelemdescParam[i];
        const bool pointer = element.tdesc.vt == VT_PTR;
        VARTYPE declared = pointer ? element.tdesc.lptdesc->vt : element.tdesc.vt;
        if (declared == VT_USERDEFINED) // objects are pointers, the rest is numbers
            declared = pointer ? VT_DISPATCH : VT_I4;
        if (pointer && element.tdesc.lptdesc->vt == VT_USERDEFINED &&
            IsNumber(type, element.tdesc.lptdesc->hreftype))
            declared = VT_I4;
        const USHORT flags = element.paramdesc.wParamFlags;
        method.parameters.push_back({names[static_cast<size_t>(i) + 1], declared, pointer,
                                     (flags & PARAMFLAG_FOPT) != 0,
                                     (flags & PARAMFLAG_FRETVAL) != 0});
    }
    return method;
}

// The vtable side of a dual interface.
ComPtr<ITypeInfo> VtableSide(ITypeInfo* type) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> vtable;
    if (AttributesOf(type)->typekind == TKIND_DISPATCH &&
        SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        Check(type->GetRefTypeInfo(reference, &vtable), L"GetRefTypeInfo");
    else
        vtable = type;
    return vtable;
}

// Those of the interfaces that it inherits first, down to IDispatch.
void ReadMethods(ITypeInfo* vtable, std::vector<Method>& methods) {
    const auto attributes = AttributesOf(vtable);
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> inherited;
    if (attributes->guid != IID_IDispatch && attributes->guid != IID_IUnknown &&
        SUCCEEDED(vtable->GetRefTypeOfImplType(0, &reference)) &&
        SUCCEEDED(vtable->GetRefTypeInfo(reference, &inherited)) &&
        AttributesOf(inherited.Get())->guid != IID_IDispatch)
        ReadMethods(VtableSide(inherited.Get()).Get(), methods);
    for (UINT f = 0; f < attributes->cFuncs; ++f) {
        FUNCDESC* function = nullptr;
        Check(vtable->GetFuncDesc(f, &function), L"GetFuncDesc");
        methods.push_back(ReadMethod(vtable, *function));
        vtable->ReleaseFuncDesc(function);
    }
}

RegisteredClass ReadClass(ITypeInfo* type) {
    RegisteredClass entry = {};
    const auto attributes = AttributesOf(type);
    BSTR name = nullptr;
    Check(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr),
          L"GetDocumentation");
    entry.name = Take(name);
    entry.clsid = attributes->guid;
    entry.progId =
        RegistryText(HKEY_LOCAL_MACHINE, kClasses + (L"CLSID\\" + GuidText(entry.clsid)) +
                                             L"\\VersionIndependentProgID");
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        int flags = 0;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> implemented;
        Check(type->GetImplTypeFlags(i, &flags), L"GetImplTypeFlags");
        Check(type->GetRefTypeOfImplType(i, &reference), L"GetRefTypeOfImplType");
        Check(type->GetRefTypeInfo(reference, &implemented), L"GetRefTypeInfo");
        if (flags & IMPLTYPEFLAG_FSOURCE) {
            entry.hasEvents = true;
            entry.events = AttributesOf(implemented.Get())->guid;
            continue;
        }
        if (!(flags & IMPLTYPEFLAG_FDEFAULT)) {
            entry.olderInterfaces.push_back(AttributesOf(implemented.Get())->guid);
            continue;
        }
        const ComPtr<ITypeInfo> vtable = VtableSide(implemented.Get());
        const auto interfaceAttributes = AttributesOf(vtable.Get());
        entry.defaultInterface = interfaceAttributes->guid;
        ReadMethods(vtable.Get(), entry.methods);
    }
    return entry;
}

} // namespace

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring RegistryText(HKEY root, const std::wstring& key, const wchar_t* name, REGSAM view) {
    const OpenKey opened(root, key, view);
    wchar_t text[1024] = L"";
    DWORD size = sizeof text - sizeof *text;
    if (!opened.key || RegQueryValueExW(opened.key, name, nullptr, nullptr,
                                        reinterpret_cast<BYTE*>(text), &size) != ERROR_SUCCESS)
        return {};
    return text;
}

bool KeyExists(HKEY root, const std::wstring& key, REGSAM view) {
    return OpenKey(root, key, view).key != nullptr;
}

RegistryTree ReadTree(HKEY root, const std::wstring& key, REGSAM view) {
    RegistryTree tree;
    const OpenKey opened(root, key, view);
    if (opened.key)
        ReadInto(tree, opened.key, key);
    return tree;
}

size_t Method::Arguments() const {
    size_t count = 0;
    for (const Parameter& parameter : parameters)
        count += !parameter.result;
    return count;
}

size_t Method::Required() const {
    size_t count = 0;
    for (const Parameter& parameter : parameters)
        count += !parameter.result && !parameter.optional;
    return count;
}

HRESULT RegisteredClass::Create(REFIID iid, void** object) const {
    return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, object);
}

ComPtr<IDispatch> RegisteredClass::Create() const {
    ComPtr<IDispatch> object;
    Check(Create(IID_PPV_ARGS(&object)), name.c_str());
    return object;
}

std::wstring RegisteredDllPath() {
    const std::wstring clsid =
        RegistryText(HKEY_LOCAL_MACHINE, std::wstring(kClasses) + L"VnDesk.Varnok\\CLSID");
    return RegistryText(HKEY_LOCAL_MACHINE, kClasses + (L"CLSID\\" + clsid) + L"\\InprocServer32");
}

ComPtr<ITypeLib> RegisteredTypeLibrary() {
    const std::wstring clsid =
        RegistryText(HKEY_LOCAL_MACHINE, std::wstring(kClasses) + L"VnDesk.Varnok\\CLSID");
    const std::wstring id =
        RegistryText(HKEY_LOCAL_MACHINE, kClasses + (L"CLSID\\" + clsid) + L"\\TypeLib");
    GUID guid;
    ComPtr<ITypeLib> library;
    Check(CLSIDFromString(id.c_str(), &guid), L"the library is not registered");
    Check(LoadRegTypeLib(guid, 1, 0, LOCALE_NEUTRAL, &library), L"LoadRegTypeLib");
    return library;
}

const std::vector<RegisteredClass>& RegisteredClasses() {
    static const std::vector<RegisteredClass> classes = [] {
        std::vector<RegisteredClass> found;
        const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
        for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
            TYPEKIND kind;
            ComPtr<ITypeInfo> type;
            Check(library->GetTypeInfoType(i, &kind), L"GetTypeInfoType");
            if (kind != TKIND_COCLASS)
                continue;
            Check(library->GetTypeInfo(i, &type), L"GetTypeInfo");
            found.push_back(ReadClass(type.Get()));
        }
        return found;
    }();
    return classes;
}

FARPROC DllExport(const char* name) {
    // Held for ever: the pointers must stay good.
    static const HMODULE dll = LoadLibraryW(RegisteredDllPath().c_str());
    const FARPROC function = dll ? GetProcAddress(dll, name) : nullptr;
    if (!function)
        Fail(L"the DLL has no " + FromUtf8(name));
    return function;
}

} // namespace vndesk::test
