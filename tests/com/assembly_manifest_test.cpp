// SPDX-License-Identifier: MIT
// The manifests for use without registration say what registration says, class by class.
#include <map>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/text.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk::test;

// One element: its name, its attributes, the text behind its start tag.
struct Element {
    std::wstring name;
    std::map<std::wstring, std::wstring> attributes;
    std::wstring text;
    std::wstring parent;

    std::wstring operator[](const wchar_t* attribute) const {
        const auto at = attributes.find(attribute);
        return at == attributes.end() ? L"" : at->second;
    }
};

// The manifest's elements in order. Reads what our manifests are made of, and throws at anything
// else: no entities, no CDATA, tags that do not match.
std::vector<Element> ReadXml(const std::wstring& xml) {
    std::vector<Element> elements;
    std::vector<std::wstring> open;
    for (size_t at = xml.find(L'<'); at != xml.npos;) {
        const bool comment = xml.compare(at, 4, L"<!--") == 0;
        const size_t end = comment ? xml.find(L"-->", at) + 2 : xml.find(L'>', at);
        if (end >= xml.size())
            Fail(L"a tag without end");
        const size_t next = xml.find(L'<', end);
        const std::wstring tag = xml.substr(at + 1, end - at - 1);
        at = next;
        if (comment || tag[0] == L'?')
            continue;
        if (tag[0] == L'/') {
            if (open.empty() || open.back() != tag.substr(1))
                Fail(L"does not match: " + tag);
            open.pop_back();
            continue;
        }
        Element element;
        constexpr wchar_t kBlanks[] = L" \t\r\n/";
        size_t part = tag.find_first_of(kBlanks);
        element.name = tag.substr(0, part);
        element.parent = open.empty() ? L"" : open.back();
        while (part != tag.npos && (part = tag.find_first_not_of(kBlanks, part)) != tag.npos) {
            const size_t equals = tag.find(L"=\"", part), quote = tag.find(L'"', equals + 2);
            if (equals == tag.npos || quote == tag.npos)
                Fail(L"no attribute: " + tag);
            element.attributes[tag.substr(part, equals - part)] =
                tag.substr(equals + 2, quote - equals - 2);
            part = quote + 1;
        }
        if (next != xml.npos)
            element.text = xml.substr(end + 1, next - end - 1);
        if (tag.back() != L'/')
            open.push_back(element.name);
        elements.push_back(element);
    }
    if (!open.empty() || xml.find(L'&') != xml.npos)
        Fail(L"not closed, or an entity");
    return elements;
}

std::vector<Element> Named(const std::vector<Element>& elements, const wchar_t* name) {
    std::vector<Element> found;
    for (const Element& element : elements)
        if (element.name == name)
            found.push_back(element);
    return found;
}

// The manifest inside the registered DLL.
std::vector<Element> Assembly() {
    const HMODULE dll =
        LoadLibraryExW(RegisteredDllPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HRSRC place = FindResourceW(dll, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
    if (!place)
        Fail(L"the DLL has no manifest 1");
    const std::string bytes(static_cast<const char*>(LockResource(LoadResource(dll, place))),
                            SizeofResource(dll, place));
    FreeLibrary(dll);
    return ReadXml(FromUtf8(bytes));
}

std::wstring Registered(const std::wstring& key, const wchar_t* name = nullptr) {
    return RegistryText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + key, name);
}

std::wstring RegisteredLibraryId() {
    return Registered(L"CLSID\\" + Registered(L"VnDesk.Varnok\\CLSID") + L"\\TypeLib");
}

// The number of a status in the words of manifests.
std::wstring StatusWords(DWORD status) {
    constexpr struct {
        DWORD flag;
        const wchar_t* word;
    } kWords[] = {{1, L"recomposeonresize"},
                  {0x10, L"cantlinkinside"},
                  {0x80, L"insideout"},
                  {0x100, L"activatewhenvisible"},
                  {0x20000, L"setclientsitefirst"}};
    std::wstring words;
    for (const auto& known : kWords)
        if (status & known.flag) {
            words += (words.empty() ? L"" : L",") + std::wstring(known.word);
            status &= ~known.flag;
        }
    EXPECT_EQ(0u, status) << "a flag that this test does not know";
    return words;
}

TEST(AssemblyManifestTest, NamesTheFileTheVersionAndTheProcessor) {
    const std::vector<Element> assembly = Assembly();
    const std::vector<Element> identities = Named(assembly, L"assemblyIdentity");
    ASSERT_EQ(1u, identities.size()) << "it needs nothing else";
    EXPECT_EQ(L"vndesk", identities[0][L"name"]) << "the loader looks for <name>.dll";
    EXPECT_EQ(FromUtf8(VNDESK_INTERFACE_VERSION) + L".0.0", identities[0][L"version"]);
    EXPECT_EQ(sizeof(void*) == 8 ? L"amd64" : L"x86", identities[0][L"processorArchitecture"]);
    const std::vector<Element> files = Named(assembly, L"file");
    ASSERT_EQ(1u, files.size());
    EXPECT_EQ(L"vndesk.dll", files[0][L"name"]);

    const std::wstring path = RegisteredDllPath();
    const std::vector<Element> client =
        ReadXml(ReadUtf8File(path.substr(0, path.rfind(L'\\')) + L"\\vndesk-client.manifest"));
    const std::vector<Element> wanted = Named(client, L"assemblyIdentity");
    ASSERT_EQ(1u, wanted.size());
    EXPECT_EQ(L"dependentAssembly", wanted[0].parent);
    EXPECT_EQ(identities[0].attributes, wanted[0].attributes);
}

TEST(AssemblyManifestTest, HasEveryRegisteredClassAsItIsRegistered) {
    const std::vector<Element> assembly = Assembly();
    const std::vector<Element> classes = Named(assembly, L"comClass"),
                               names = Named(assembly, L"progid");
    const std::wstring library = RegisteredLibraryId();
    ASSERT_EQ(RegisteredClasses().size(), classes.size());
    ASSERT_EQ(classes.size(), names.size());
    for (size_t i = 0; i < classes.size(); ++i) {
        const RegisteredClass& entry = RegisteredClasses()[i];
        const std::wstring key = L"CLSID\\" + GuidText(entry.clsid);
        EXPECT_EQ(L"file", classes[i].parent);
        EXPECT_EQ(GuidText(entry.clsid), classes[i][L"clsid"]);
        EXPECT_EQ(Registered(key + L"\\InprocServer32", L"ThreadingModel"),
                  classes[i][L"threadingModel"]);
        EXPECT_EQ(Registered(key + L"\\ProgID"), classes[i][L"progid"]);
        EXPECT_EQ(L"comClass", names[i].parent);
        EXPECT_EQ(Registered(key + L"\\VersionIndependentProgID"), names[i].text);
        EXPECT_EQ(library, classes[i][L"tlbid"]);
        EXPECT_EQ(StatusWords(wcstoul(Registered(key + L"\\MiscStatus\\1").c_str(), nullptr, 10)),
                  classes[i][L"miscStatusContent"]);
    }
}

TEST(AssemblyManifestTest, HasTheTypeLibraryAndEveryInterface) {
    const std::vector<Element> assembly = Assembly();
    const std::vector<Element> libraries = Named(assembly, L"typelib");
    ASSERT_EQ(1u, libraries.size());
    EXPECT_EQ(RegisteredLibraryId(), libraries[0][L"tlbid"]);
    EXPECT_EQ(FromUtf8(VNDESK_INTERFACE_VERSION), libraries[0][L"version"]);
    EXPECT_EQ(1u, libraries[0].attributes.count(L"helpdir")) << "the platform asks for it";

    std::map<std::wstring, Element> stubs;
    for (const Element& stub : Named(assembly, L"comInterfaceExternalProxyStub"))
        EXPECT_TRUE(stubs.emplace(stub[L"iid"], stub).second);
    const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        ASSERT_SUCCEEDED(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE)
            continue;
        ComPtr<ITypeInfo> type;
        TYPEATTR* attributes = nullptr;
        BSTR name = nullptr;
        ASSERT_SUCCEEDED(library->GetTypeInfo(i, &type));
        ASSERT_SUCCEEDED(type->GetTypeAttr(&attributes));
        const std::wstring iid = GuidText(attributes->guid);
        type->ReleaseTypeAttr(attributes);
        ASSERT_SUCCEEDED(
            library->GetDocumentation(static_cast<INT>(i), &name, nullptr, nullptr, nullptr));
        const std::wstring text = name;
        SysFreeString(name);
        const auto stub = stubs.find(iid);
        ASSERT_NE(stubs.end(), stub) << ToUtf8(text);
        EXPECT_EQ(text, stub->second[L"name"]);
        EXPECT_EQ(L"assembly", stub->second.parent);
        EXPECT_EQ(RegisteredLibraryId(), stub->second[L"tlbid"]);
        EXPECT_EQ(Registered(L"Interface\\" + iid + L"\\ProxyStubClsid32"),
                  stub->second[L"proxyStubClsid32"])
            << ToUtf8(text);
        stubs.erase(stub);
    }
    EXPECT_TRUE(stubs.empty()) << "interfaces that the type library does not have";
}

} // namespace
