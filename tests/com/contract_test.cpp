// SPDX-License-Identifier: MIT
// What COM expects of every class, asked of each class that the registered type library names.
#include <algorithm>
#include <cwctype>
#include <gtest/gtest.h>
#include <olectl.h>
#include <set>
#include <wrl/client.h>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/late_bound.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

constexpr GUID kForeign = {
    0x5d1a1e66, 0x0b5e, 0x4c1c, {0x9d, 0x0a, 0x33, 0x5b, 0x8e, 0x62, 0x01, 0x77}};
constexpr wchar_t kClasses[] = L"Software\\Classes\\";

// An unregistered library is reported by a test, not by the program's death before the first one.
std::vector<RegisteredClass> ClassesToTest() {
    try {
        return RegisteredClasses();
    } catch (const std::exception&) {
        return {};
    }
}

const auto kNameOfClass = [](const testing::TestParamInfo<RegisteredClass>& info) {
    return ToUtf8(info.param.name);
};

TEST(RegisteredLibraryTest, NamesEveryPublicClass) {
    std::set<std::wstring> progIds;
    for (const RegisteredClass& entry : RegisteredClasses())
        progIds.insert(entry.progId);
    for (const wchar_t* wanted :
         {L"VnDesk.clsLogon", L"VnDesk.Varnok", L"VnDesk.clsRegistry", L"VnDesk.DataCombo1",
          L"VnDesk.clsSearch", L"VnDesk.clsSettings", L"VnDesk.clsMessageBox", L"VnDesk.clsText",
          L"VnDesk.clsCoolMenu", L"VnDesk.HelpCallBack"})
        EXPECT_EQ(1u, progIds.count(wanted)) << ToUtf8(wanted);
    EXPECT_EQ(RegisteredClasses().size(), progIds.size()) << "every class has a name of its own";
}

TEST(RegisteredLibraryTest, IsRegisteredFromTheFileThatIsTheServer) {
    ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    TLIBATTR* attributes = nullptr;
    ASSERT_SUCCEEDED(library->GetLibAttr(&attributes));
    EXPECT_EQ(1, attributes->wMajorVerNum);
    EXPECT_EQ(1, attributes->wMinorVerNum);
    BSTR path = nullptr;
    EXPECT_SUCCEEDED(QueryPathOfRegTypeLib(attributes->guid, 1, 0, LOCALE_NEUTRAL, &path));
    library->ReleaseTLibAttr(attributes);
    EXPECT_EQ(0, lstrcmpiW(RegisteredDllPath().c_str(), path ? path : L"")) << ToUtf8(path);
    SysFreeString(path);
}

TEST(RegisteredLibraryTest, EveryTypeHasAHelpString) {
    ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    for (int i = -1; i < static_cast<int>(library->GetTypeInfoCount()); ++i) {
        BSTR name = nullptr, help = nullptr;
        ASSERT_SUCCEEDED(library->GetDocumentation(i, &name, &help, nullptr, nullptr));
        EXPECT_LT(10u, SysStringLen(help)) << ToUtf8(name);
        SysFreeString(name);
        SysFreeString(help);
    }
}

// --- the DLL's entry points ---

TEST(EntryPointTest, ForeignClassIsNotAvailable) {
    const auto getClassObject =
        DllExport<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
    void* factory = &factory;
    EXPECT_HR(CLASS_E_CLASSNOTAVAILABLE, getClassObject(kForeign, IID_IClassFactory, &factory));
    EXPECT_EQ(nullptr, factory);
    EXPECT_HR(S_OK, CanUnloadNow());
}

class FactoryTest : public testing::TestWithParam<RegisteredClass> {
protected:
    HRESULT Get(REFIID iid, void** object) const {
        return DllExport<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject")(
            GetParam().clsid, iid, object);
    }
};
INSTANTIATE_TEST_SUITE_P(Classes, FactoryTest, testing::ValuesIn(ClassesToTest()), kNameOfClass);

TEST_P(FactoryTest, AnswersToFactoryInterfacesOnly) {
    ComPtr<IUnknown> unknown;
    ComPtr<IClassFactory> factory;
    EXPECT_SUCCEEDED(Get(IID_PPV_ARGS(&unknown)));
    EXPECT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    void* none = &none;
    EXPECT_HR(E_NOINTERFACE, Get(IID_IDispatch, &none));
    EXPECT_EQ(nullptr, none);
    EXPECT_HR(E_POINTER, Get(IID_IClassFactory, nullptr));
    EXPECT_HR(E_POINTER, factory->CreateInstance(nullptr, IID_IUnknown, nullptr));
}

TEST_P(FactoryTest, ObjectsAndLocksKeepTheLibraryLoaded) {
    ASSERT_HR(S_OK, CanUnloadNow());
    ComPtr<IClassFactory> factory;
    ASSERT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    EXPECT_HR(S_FALSE, CanUnloadNow());

    ComPtr<IUnknown> object;
    ASSERT_SUCCEEDED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)));
    EXPECT_EQ(0u, factory.Reset());
    EXPECT_HR(S_FALSE, CanUnloadNow());
    EXPECT_EQ(0u, object.Reset());
    EXPECT_HR(S_OK, CanUnloadNow());

    ASSERT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    EXPECT_SUCCEEDED(factory->LockServer(TRUE));
    EXPECT_SUCCEEDED(factory->LockServer(TRUE));
    EXPECT_SUCCEEDED(factory->LockServer(FALSE));
    EXPECT_EQ(0u, factory.Reset());
    EXPECT_HR(S_FALSE, CanUnloadNow()) << "one lock is left";
    ASSERT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    EXPECT_SUCCEEDED(factory->LockServer(FALSE));
    factory.Reset();
    EXPECT_HR(S_OK, CanUnloadNow());
}

TEST_P(FactoryTest, UnlockingTooOftenLetsNobodyElsesObjectGo) {
    ASSERT_HR(S_OK, CanUnloadNow());
    ComPtr<IClassFactory> factory;
    ASSERT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    for (int i = 0; i < 3; ++i)
        EXPECT_SUCCEEDED(factory->LockServer(FALSE));
    EXPECT_HR(S_FALSE, CanUnloadNow());
    EXPECT_SUCCEEDED(factory->LockServer(TRUE));
    factory.Reset();
    EXPECT_HR(S_FALSE, CanUnloadNow()) << "the lock counts";
    ASSERT_SUCCEEDED(Get(IID_PPV_ARGS(&factory)));
    EXPECT_SUCCEEDED(factory->LockServer(FALSE));
    factory.Reset();
    EXPECT_HR(S_OK, CanUnloadNow());
}

TEST_P(FactoryTest, TypeDescriptionOutlivesTheObjectAndTheUnloadQuestion) {
    ComPtr<IDispatch> object = GetParam().Create();
    ComPtr<ITypeInfo> type;
    ASSERT_SUCCEEDED(object->GetTypeInfo(0, LOCALE_NEUTRAL, &type));
    object.Reset();
    EXPECT_HR(S_OK, CanUnloadNow());
    TYPEATTR* attributes = nullptr;
    ASSERT_SUCCEEDED(type->GetTypeAttr(&attributes));
    type->ReleaseTypeAttr(attributes);
    // The descriptions come back after having been dropped.
    object = GetParam().Create();
    EXPECT_HR(DISP_E_UNKNOWNNAME, LateBound(object.Get()).TryCall(L"NoSuchMember").hr);
}

// --- registration as found ---

class ClassTest : public testing::TestWithParam<RegisteredClass> {
protected:
    const RegisteredClass& Class() const { return GetParam(); }
    std::wstring ClassKey() const { return kClasses + (L"CLSID\\" + GuidText(Class().clsid)); }
};
INSTANTIATE_TEST_SUITE_P(Classes, ClassTest, testing::ValuesIn(ClassesToTest()), kNameOfClass);

TEST_P(ClassTest, IsRegisteredByBothNames) {
    EXPECT_EQ(L"VnDesk." + Class().name, Class().progId);
    for (const std::wstring& name : {Class().progId, Class().progId + L".1"}) {
        CLSID clsid = {};
        EXPECT_SUCCEEDED(CLSIDFromProgID(name.c_str(), &clsid)) << ToUtf8(name);
        EXPECT_EQ(GuidText(Class().clsid), GuidText(clsid));
        EXPECT_NE(L"", RegistryText(HKEY_LOCAL_MACHINE, kClasses + name)) << "a name to read";
    }
    EXPECT_EQ(Class().progId + L".1",
              RegistryText(HKEY_LOCAL_MACHINE, kClasses + Class().progId + L"\\CurVer"));
    EXPECT_EQ(Class().progId + L".1", RegistryText(HKEY_LOCAL_MACHINE, ClassKey() + L"\\ProgID"));
    EXPECT_EQ(RegisteredDllPath(),
              RegistryText(HKEY_LOCAL_MACHINE, ClassKey() + L"\\InprocServer32"));
    EXPECT_EQ(L"Apartment", RegistryText(HKEY_LOCAL_MACHINE, ClassKey() + L"\\InprocServer32",
                                         L"ThreadingModel"));
    LPOLESTR progId = nullptr;
    ASSERT_SUCCEEDED(ProgIDFromCLSID(Class().clsid, &progId));
    EXPECT_EQ(Class().progId + L".1", progId);
    CoTaskMemFree(progId);
}

TEST_P(ClassTest, IsCreatedByNameAndByIdentifier) {
    EXPECT_TRUE(static_cast<bool>(LateBound::Create(Class().progId.c_str())));
    EXPECT_TRUE(static_cast<bool>(LateBound::Create((Class().progId + L".1").c_str())));
    ComPtr<IUnknown> object;
    EXPECT_SUCCEEDED(Class().Create(Class().defaultInterface, &object));
}

TEST_P(ClassTest, RefusesToBeAggregated) {
    const ComPtr<IDispatch> outer = Class().Create();
    void* inner = &inner;
    EXPECT_HR(CLASS_E_NOAGGREGATION, CoCreateInstance(Class().clsid, outer.Get(),
                                                      CLSCTX_INPROC_SERVER, IID_IUnknown, &inner));
    EXPECT_EQ(nullptr, inner);
}

// --- IUnknown ---

TEST_P(ClassTest, HasOneIdentity) {
    const ComPtr<IDispatch> object = Class().Create();
    ComPtr<IUnknown> identity;
    ASSERT_SUCCEEDED(object.As(&identity));
    std::vector<IID> interfaces = {IID_IUnknown, IID_IDispatch, IID_ISupportErrorInfo,
                                   IID_IProvideClassInfo, Class().defaultInterface};
    if (Class().hasEvents)
        interfaces.insert(interfaces.end(),
                          {IID_IConnectionPointContainer, IID_IProvideClassInfo2});
    for (const IID& iid : interfaces) {
        ComPtr<IUnknown> asked, back;
        EXPECT_SUCCEEDED(identity->QueryInterface(iid, &asked)) << ToUtf8(GuidText(iid));
        if (!asked)
            continue;
        EXPECT_SUCCEEDED(asked.As(&back));
        EXPECT_EQ(identity.Get(), back.Get()) << ToUtf8(GuidText(iid));
        // From any interface, every other one.
        for (const IID& other : interfaces) {
            ComPtr<IUnknown> found;
            EXPECT_SUCCEEDED(asked->QueryInterface(other, &found))
                << ToUtf8(GuidText(iid) + L" -> " + GuidText(other));
        }
    }
}

TEST_P(ClassTest, RefusesInterfacesThatItDoesNotHave) {
    const ComPtr<IDispatch> object = Class().Create();
    std::vector<IID> foreign = {kForeign, IID_NULL, IID_IClassFactory, IID_ITypeInfo, IID_IStream};
    if (!Class().hasEvents)
        foreign.insert(foreign.end(), {IID_IConnectionPointContainer, IID_IProvideClassInfo2});
    for (const RegisteredClass& other : RegisteredClasses())
        if (other.clsid != Class().clsid)
            foreign.push_back(other.defaultInterface);
    for (const IID& iid : foreign) {
        void* none = &none;
        EXPECT_HR(E_NOINTERFACE, object->QueryInterface(iid, &none)) << ToUtf8(GuidText(iid));
        EXPECT_EQ(nullptr, none) << ToUtf8(GuidText(iid));
    }
    EXPECT_HR(E_POINTER, object->QueryInterface(IID_IUnknown, nullptr));
    void* wrongAtCreation = &wrongAtCreation;
    EXPECT_HR(E_NOINTERFACE, Class().Create(kForeign, &wrongAtCreation));
    EXPECT_EQ(nullptr, wrongAtCreation);
}

TEST_P(ClassTest, LastReleaseGivesZeroAndLetsTheLibraryGo) {
    ASSERT_HR(S_OK, CanUnloadNow());
    ComPtr<IDispatch> object = Class().Create();
    EXPECT_HR(S_FALSE, CanUnloadNow());
    object->AddRef();
    EXPECT_EQ(1u, object->Release());
    EXPECT_EQ(0u, object.Reset());
    EXPECT_HR(S_OK, CanUnloadNow());
}

// What TypeName in Basic says.
TEST_P(ClassTest, TellsTheNameOfItsClass) {
    ComPtr<IProvideClassInfo> described;
    ASSERT_SUCCEEDED(Class().Create().As(&described));
    ComPtr<ITypeInfo> type;
    ASSERT_SUCCEEDED(described->GetClassInfo(&type));
    _bstr_t name;
    ASSERT_SUCCEEDED(
        type->GetDocumentation(MEMBERID_NIL, name.GetAddress(), nullptr, nullptr, nullptr));
    EXPECT_EQ(_bstr_t(Class().name.c_str()), name);
    TYPEATTR* attributes = nullptr;
    ASSERT_SUCCEEDED(type->GetTypeAttr(&attributes));
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_EQ(GuidText(Class().clsid), GuidText(attributes->guid));
    type->ReleaseTypeAttr(attributes);
    EXPECT_HR(E_POINTER, described->GetClassInfo(nullptr));
}

TEST_P(ClassTest, SupportsErrorInformationOfItsInterfaceOnly) {
    const ComPtr<IDispatch> object = Class().Create();
    ComPtr<ISupportErrorInfo> support;
    ASSERT_SUCCEEDED(object.As(&support));
    EXPECT_HR(S_OK, support->InterfaceSupportsErrorInfo(Class().defaultInterface));
    EXPECT_HR(S_FALSE, support->InterfaceSupportsErrorInfo(kForeign));
    EXPECT_HR(S_FALSE, support->InterfaceSupportsErrorInfo(IID_ISupportErrorInfo));
}

TEST(EventClassTest, EveryClassWithEventsNamesItsEventInterface) {
    size_t checked = 0;
    for (const RegisteredClass& entry : RegisteredClasses()) {
        if (!entry.hasEvents)
            continue;
        ++checked;
        ComPtr<IProvideClassInfo2> info;
        ASSERT_SUCCEEDED(entry.Create().As(&info)) << ToUtf8(entry.name);
        GUID guid = {};
        EXPECT_SUCCEEDED(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid));
        EXPECT_EQ(GuidText(entry.events), GuidText(guid));
        ComPtr<ITypeInfo> type;
        ASSERT_SUCCEEDED(info->GetClassInfo(&type));
        TYPEATTR* attributes = nullptr;
        ASSERT_SUCCEEDED(type->GetTypeAttr(&attributes));
        EXPECT_EQ(GuidText(entry.clsid), GuidText(attributes->guid));
        type->ReleaseTypeAttr(attributes);
        ComPtr<IConnectionPointContainer> container;
        ComPtr<IConnectionPoint> point;
        ASSERT_SUCCEEDED(info.As(&container));
        EXPECT_SUCCEEDED(container->FindConnectionPoint(guid, &point));
    }
    EXPECT_LT(0u, checked);
}

// --- IDispatch ---

TEST_P(ClassTest, DescribesItsInterfaceByTheTypeLibrary) {
    const ComPtr<IDispatch> object = Class().Create();
    UINT count = 0;
    EXPECT_SUCCEEDED(object->GetTypeInfoCount(&count));
    EXPECT_EQ(1u, count);
    EXPECT_HR(E_POINTER, object->GetTypeInfoCount(nullptr));
    ComPtr<ITypeInfo> type;
    ASSERT_SUCCEEDED(object->GetTypeInfo(0, LOCALE_NEUTRAL, &type));
    TYPEATTR* attributes = nullptr;
    ASSERT_SUCCEEDED(type->GetTypeAttr(&attributes));
    EXPECT_EQ(GuidText(Class().defaultInterface), GuidText(attributes->guid));
    type->ReleaseTypeAttr(attributes);
    EXPECT_HR(DISP_E_BADINDEX, object->GetTypeInfo(1, LOCALE_NEUTRAL, &type));
    EXPECT_EQ(nullptr, type.Get());
    EXPECT_HR(E_POINTER, object->GetTypeInfo(0, LOCALE_NEUTRAL, nullptr));
}

TEST_P(ClassTest, FindsMembersAndParametersByNameInAnyCase) {
    const ComPtr<IDispatch> object = Class().Create();
    for (const Method& method : Class().methods) {
        std::wstring upper = method.name;
        CharUpperBuffW(upper.data(), static_cast<DWORD>(upper.size()));
        for (const std::wstring& spelling : {method.name, upper}) {
            std::vector<LPOLESTR> names = {const_cast<LPOLESTR>(spelling.c_str())};
            // What a property is set to has no name.
            for (const Parameter& parameter : method.parameters)
                if (!parameter.result && !parameter.name.empty() && !method.IsProperty())
                    names.push_back(const_cast<LPOLESTR>(parameter.name.c_str()));
            std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
            EXPECT_SUCCEEDED(object->GetIDsOfNames(IID_NULL, names.data(),
                                                   static_cast<UINT>(names.size()), LOCALE_NEUTRAL,
                                                   ids.data()))
                << ToUtf8(spelling);
            EXPECT_EQ(method.id, ids[0]) << ToUtf8(spelling);
            for (size_t i = 1; i < ids.size(); ++i)
                EXPECT_EQ(static_cast<DISPID>(i - 1), ids[i]) << ToUtf8(spelling + L"." + names[i]);
        }
    }
}

TEST_P(ClassTest, UnknownNamesAndNumbersAreRefused) {
    const ComPtr<IDispatch> object = Class().Create();
    auto* name = const_cast<LPOLESTR>(L"NoSuchMember");
    DISPID id = 5;
    EXPECT_HR(DISP_E_UNKNOWNNAME, object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id));
    EXPECT_EQ(DISPID_UNKNOWN, id);
    EXPECT_HR(DISP_E_UNKNOWNINTERFACE,
              object->GetIDsOfNames(IID_IUnknown, &name, 1, LOCALE_NEUTRAL, &id));
    EXPECT_FAILED(object->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_NEUTRAL, &id));
    EXPECT_FAILED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, nullptr));

    DISPPARAMS none = {};
    const auto invoke = [&](DISPID member, REFIID iid, DISPPARAMS* parameters) {
        return object->Invoke(member, iid, LOCALE_NEUTRAL, DISPATCH_METHOD, parameters, nullptr,
                              nullptr, nullptr);
    };
    EXPECT_HR(DISP_E_MEMBERNOTFOUND, invoke(30000, IID_NULL, &none));
    EXPECT_HR(DISP_E_UNKNOWNINTERFACE, invoke(1, IID_IUnknown, &none));
    EXPECT_FAILED(invoke(1, IID_NULL, nullptr));
}

// A call that should be refused may open a window instead: that is closed and the test fails.
class NoWindows {
    DialogDriver user_{[] {}};
};

// Arguments that every method accepts: the call is refused for another one.
_variant_t Harmless(const Parameter& parameter) {
    switch (parameter.type) {
    case VT_BSTR:
    case VT_VARIANT:
        return L"";
    case VT_BOOL:
        return false;
    default:
        return 0L;
    }
}

LateBound::Arguments HarmlessArguments(const Method& method) {
    LateBound::Arguments arguments;
    for (const Parameter& parameter : method.parameters)
        if (!parameter.result)
            arguments.push_back(Harmless(parameter));
    return arguments;
}

TEST_P(ClassTest, WrongTypesOfArgumentsAreRefused) {
    const NoWindows closer;
    const LateBound object(Class().Create().Get());
    _variant_t null;
    null.vt = VT_NULL;
    const _variant_t unknown(static_cast<IUnknown*>(object.Dispatch()));
    for (const Method& method : Class().methods)
        for (size_t i = 0; i < method.Arguments(); ++i) {
            const Parameter& parameter = method.parameters[i];
            // Which objects are right, the method itself says.
            if (parameter.type == VT_VARIANT || parameter.type == VT_DISPATCH)
                continue;
            std::vector<_variant_t> wrong = {null, unknown};
            if (parameter.type != VT_BSTR)
                wrong.push_back(L"không phải số");
            for (const _variant_t& value : wrong) {
                LateBound::Arguments arguments = HarmlessArguments(method);
                arguments[i] = value;
                EXPECT_HR(DISP_E_TYPEMISMATCH,
                          object.Try(method.name.c_str(), method.kind, arguments).hr)
                    << ToUtf8(method.name + L"." + parameter.name) << " given type " << value.vt;
                _variant_t variable = value; // as scripts pass a variable
                arguments[i] = ByRef(variable);
                EXPECT_HR(DISP_E_TYPEMISMATCH,
                          object.Try(method.name.c_str(), method.kind, arguments).hr)
                    << ToUtf8(method.name + L"." + parameter.name) << " given a variable of type "
                    << value.vt;
                EXPECT_EQ(value.vt, variable.vt) << "the variable is left alone";
            }
        }
}

TEST_P(ClassTest, WrongNumbersOfArgumentsAreRefused) {
    const NoWindows closer;
    const LateBound object(Class().Create().Get());
    for (const Method& method : Class().methods) {
        // What is too much for a property goes to its value.
        if (method.IsProperty())
            continue;
        LateBound::Arguments arguments = HarmlessArguments(method);
        arguments.push_back(L"");
        EXPECT_HR(DISP_E_BADPARAMCOUNT, object.TryCall(method.name.c_str(), arguments).hr)
            << ToUtf8(method.name);
        if (method.Required() == 0)
            continue;
        arguments.resize(method.Required() - 1);
        const HRESULT few = object.TryCall(method.name.c_str(), arguments).hr;
        EXPECT_TRUE(few == DISP_E_BADPARAMCOUNT || few == DISP_E_PARAMNOTOPTIONAL)
            << ToUtf8(method.name) << ": " << HrText(few);
    }
}

TEST_P(ClassTest, WhatIsNoPropertyCannotBeSet) {
    const LateBound object(Class().Create().Get());
    std::set<std::wstring> settable;
    for (const Method& method : Class().methods)
        if (method.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
            settable.insert(method.name);
    for (const Method& method : Class().methods)
        if (!settable.count(method.name)) {
            EXPECT_HR(DISP_E_MEMBERNOTFOUND,
                      object.Try(method.name.c_str(), DISPATCH_PROPERTYPUT, {L"x"}).hr)
                << ToUtf8(method.name);
        }
}

// --- the vtable ---

// Calls a method through the vtable with one null pointer and every other argument good.
HRESULT CallWithNull(IUnknown* object, const Method& method, size_t nullAt) {
    std::vector<VARIANT> values(method.parameters.size());
    std::vector<VARIANTARG*> places;
    std::vector<VARTYPE> types;
    std::vector<long long> targets(values.size() *
                                   4); // room for what by-reference arguments point to
    BSTR text = SysAllocString(L"");
    for (size_t i = 0; i < values.size(); ++i) {
        const Parameter& parameter = method.parameters[i];
        VARIANT& value = values[i];
        VariantInit(&value);
        if (parameter.byReference) {
            void* target = &targets[i * 4];
            if (parameter.type == VT_BSTR && !parameter.result)
                target = &text;
            value.vt = static_cast<VARTYPE>(VT_BYREF | parameter.type);
            value.byref = i == nullAt ? nullptr : target;
        } else {
            value.vt =
                parameter.type == VT_VARIANT ? static_cast<VARTYPE>(VT_EMPTY) : parameter.type;
        }
        places.push_back(&value);
        const bool whole = parameter.type == VT_VARIANT && !parameter.byReference;
        types.push_back(whole ? static_cast<VARTYPE>(VT_VARIANT) : value.vt);
    }
    VARIANT result;
    VariantInit(&result);
    const HRESULT called =
        DispCallFunc(object, static_cast<ULONG_PTR>(method.vtableOffset), CC_STDCALL, VT_ERROR,
                     static_cast<UINT>(values.size()), types.data(), places.data(), &result);
    SysFreeString(text);
    return FAILED(called) ? called : result.scode;
}

TEST_P(ClassTest, NullPointersAreRefusedByEveryMethod) {
    const NoWindows closer;
    ComPtr<IUnknown> object;
    ASSERT_SUCCEEDED(Class().Create(Class().defaultInterface, &object));
    for (const Method& method : Class().methods)
        for (size_t i = 0; i < method.parameters.size(); ++i)
            // Nothing for Settings is version 1.0, and for Picture the padlock.
            if (method.parameters[i].byReference &&
                ((method.name != L"Settings" && method.name != L"Picture") ||
                 method.kind == DISPATCH_PROPERTYGET)) {
                EXPECT_HR(E_POINTER, CallWithNull(object.Get(), method, i))
                    << ToUtf8(method.name + L"." + method.parameters[i].name);
            }
}

// --- documentation ---

// "Name: ..." as a word of its own.
bool Explains(const std::wstring& help, const std::wstring& name) {
    const size_t at = help.find(name + L":");
    return at != std::wstring::npos && (at == 0 || !std::iswalnum(help[at - 1]));
}

TEST_P(ClassTest, HelpStringsExplainEveryMethodAndParameter) {
    EXPECT_FALSE(Class().methods.empty());
    for (const Method& method : Class().methods) {
        EXPECT_LT(10u, method.help.size()) << ToUtf8(method.name);
        for (const Parameter& parameter : method.parameters)
            if (!parameter.result && !parameter.name.empty()) {
                EXPECT_TRUE(Explains(method.help, parameter.name)) << ToUtf8(
                    method.name + L" does not explain " + parameter.name + L": " + method.help);
            }
    }
}

} // namespace
