// SPDX-License-Identifier: MIT
// The script host that other tests run scripts with, events included.
#include <gtest/gtest.h>
#include <olectl.h>

#include "support/check_hr.h"
#include "support/script_host.h"

namespace {

using namespace vndesk::test;
using Microsoft::WRL::ComPtr;

TEST(ScriptHostTest, EchoKeepsVietnameseText) {
    ScriptRunner script;
    script.RunOk(L"Echo \"Người sử dụng\", 5\nWScript.Echo True");
    EXPECT_EQ((std::vector<std::wstring>{L"Người sử dụng 5", L"True"}), script.Lines());
}

TEST(ScriptHostTest, RunTimeErrorGivesLineCodeAndText) {
    ScriptRunner script;
    const vndesk::ScriptResult result =
        script.Run(L"Echo 1\nErr.Raise vbObjectError + 7, \"x\", \"hỏng\"\nEcho 2");
    EXPECT_FAILED(result.hr);
    EXPECT_EQ(2, result.line);
    EXPECT_HR(static_cast<HRESULT>(0x80040007), result.code);
    EXPECT_EQ(L"hỏng", result.text);
    EXPECT_EQ(1u, script.Lines().size());
}

TEST(ScriptHostTest, SyntaxErrorIsReported) {
    ScriptRunner script;
    const vndesk::ScriptResult result = script.Run(L"x = 1\nIf Then Then");
    EXPECT_FAILED(result.hr);
    EXPECT_EQ(2, result.line);
}

TEST(ScriptHostTest, ArgumentsAndQuit) {
    ScriptRunner script;
    script.SetArguments({L"a", L"hướng dẫn"});
    const vndesk::ScriptResult result = script.Run(
        L"Echo WScript.Arguments.Count, WScript.Arguments(1), WScript.Arguments.Item(0)\n"
        L"WScript.Quit 7\nEcho \"not here\"");
    EXPECT_SUCCEEDED(result.hr);
    EXPECT_TRUE(result.quit);
    EXPECT_EQ(7, result.exitCode);
    EXPECT_EQ(std::vector<std::wstring>{L"2 hướng dẫn a"}, script.Lines());
}

TEST(ScriptHostTest, CreateObjectOfTheEngineAndOfTheHost) {
    ScriptRunner script;
    script.RunOk(L"Set d = CreateObject(\"Scripting.Dictionary\")\nd.Add \"k\", 3\nEcho d(\"k\")\n"
                 L"Set e = WScript.CreateObject(\"Scripting.Dictionary\")\nEcho e.Count");
    EXPECT_EQ((std::vector<std::wstring>{L"3", L"0"}), script.Lines());
    EXPECT_FAILED(script.Run(L"Set x = WScript.CreateObject(\"VnDesk.NoSuchClass\")").hr);
}

TEST(ScriptHostTest, JScript) {
    ScriptRunner script(L"JScript");
    script.RunOk(L"var a = 'Đồng ' + 'ý'; Echo(a);");
    EXPECT_EQ(std::vector<std::wstring>{L"Đồng ý"}, script.Lines());
    EXPECT_EQ(2, script.Run(L"\nthrow new Error('sai');").line);
}

// --- events ---

const GUID kEvents = {0x2b9f3c1e, 0x6f0b, 0x4d7a, {0x9a, 0x52, 0x1c, 0x33, 0x7e, 0x90, 0x41, 0xd8}};

// Type library with one dispinterface: 1 = Told(Text), 2 = Ask(Cancel as by-ref Boolean).
ComPtr<ITypeInfo> EventTypes(ComPtr<ITypeLib>& library) {
    ComPtr<ICreateTypeLib2> create;
    ComPtr<ICreateTypeInfo> events;
    ComPtr<ITypeInfo> info;
    const auto system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    CreateTypeLib2(system, L"unsaved.tlb", &create);
    create->SetGuid(GUID{0x2b9f3c1e, 0x6f0b, 0x4d7a, {1}});
    create->CreateTypeInfo(const_cast<wchar_t*>(L"_Events"), TKIND_DISPATCH, &events);
    events->SetGuid(kEvents);
    const wchar_t* names[][2] = {{L"Told", L"Text"}, {L"Ask", L"Cancel"}};
    TYPEDESC boolean = {};
    boolean.vt = VT_BOOL;
    for (UINT i = 0; i < 2; ++i) {
        ELEMDESC parameter = {};
        parameter.tdesc.vt = i ? VT_PTR : VT_BSTR;
        parameter.tdesc.lptdesc = i ? &boolean : nullptr;
        FUNCDESC function = {};
        function.memid = static_cast<MEMBERID>(i + 1);
        function.funckind = FUNC_DISPATCH;
        function.invkind = INVOKE_FUNC;
        function.callconv = CC_STDCALL;
        function.cParams = 1;
        function.lprgelemdescParam = &parameter;
        function.elemdescFunc.tdesc.vt = VT_VOID;
        events->AddFuncDesc(i, &function);
        events->SetFuncAndParamNames(i, const_cast<LPOLESTR*>(names[i]), 2);
    }
    events->LayOut();
    EXPECT_SUCCEEDED(create.As(&library));
    EXPECT_SUCCEEDED(library->GetTypeInfoOfGuid(kEvents, &info));
    return info;
}

// An object that fires those events; it lives on the test's stack, so it is not counted.
class Source : public IDispatch, public IConnectionPointContainer, public IConnectionPoint {
public:
    explicit Source(ITypeInfo* types) : types_(types) {}

    void Fire(DISPID id, VARIANT& argument) {
        DISPPARAMS parameters = {&argument, nullptr, 1, 0};
        EXPECT_SUCCEEDED(sink_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                                       nullptr, nullptr));
    }
    bool Connected() const { return sink_ != nullptr; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid == IID_IUnknown || iid == IID_IDispatch)
            *object = static_cast<IDispatch*>(this);
        else if (iid == IID_IConnectionPointContainer)
            *object = static_cast<IConnectionPointContainer*>(this);
        else
            return *object = nullptr, E_NOINTERFACE;
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override { return types_.CopyTo(info); }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        *point = iid == kEvents ? this : nullptr;
        return *point ? S_OK : CONNECT_E_NOCONNECTION;
    }
    STDMETHODIMP GetConnectionInterface(IID* iid) override {
        *iid = kEvents;
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        *cookie = 1;
        return sink->QueryInterface(IID_PPV_ARGS(&sink_));
    }
    STDMETHODIMP Unadvise(DWORD) override {
        sink_.Reset();
        return S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

private:
    ComPtr<ITypeInfo> types_;
    ComPtr<IDispatch> sink_;
};

// The same with IProvideClassInfo2, which names the event interface.
class DescribedSource : public Source, public IProvideClassInfo2 {
public:
    using Source::Source;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (iid != IID_IProvideClassInfo2)
            return Source::QueryInterface(iid, object);
        *object = static_cast<IProvideClassInfo2*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetGUID(DWORD, GUID* iid) override {
        *iid = kEvents;
        return S_OK;
    }
};

TEST(ScriptHostTest, EventsReachTheScriptAndByRefArgumentsComeBack) {
    ComPtr<ITypeLib> library;
    DescribedSource source(EventTypes(library).Get());
    {
        ScriptRunner script;
        script.AddObject(L"source", static_cast<Source*>(&source));
        script.RunOk(L"Sub p_Told(Text)\nEcho \"told\", Text\nEnd Sub\n"
                     L"Sub p_Ask(Cancel)\nEcho \"ask\", Cancel\nCancel = True\nEnd Sub\n"
                     L"Connect source, \"p_\"");
        VARIANT text = {};
        text.vt = VT_BSTR;
        text.bstrVal = SysAllocString(L"đã chọn");
        source.Fire(1, text);
        VariantClear(&text);

        VARIANT_BOOL cancel = VARIANT_FALSE;
        VARIANT reference = {};
        reference.vt = VT_BYREF | VT_BOOL;
        reference.pboolVal = &cancel;
        source.Fire(2, reference);
        EXPECT_EQ(VARIANT_TRUE, cancel);

        VARIANT unknown = {};
        source.Fire(99, unknown); // an event that nobody knows is no error
        EXPECT_EQ((std::vector<std::wstring>{L"told đã chọn", L"ask False"}), script.Lines());
        EXPECT_TRUE(source.Connected());
    }
    EXPECT_FALSE(source.Connected());
}

// Scripts for Windows' own host, which has no bare words, use them for variables.
TEST(ScriptHostTest, ABareWordMayBeAVariableOfTheScript) {
    for (const wchar_t* language : {L"VBScript", L"JScript"}) {
        ScriptRunner script(language);
        script.RunOk(L"connect = \"Provider=x\"\narguments = 3\nsleep = arguments + 1\n"
                     L"WScript.Echo(connect)\nEcho(sleep)\nconnect = \"y\"\nEcho(connect)\n"
                     L"WScript.Echo(WScript.Arguments.Count)");
        EXPECT_EQ((std::vector<std::wstring>{L"Provider=x", L"4", L"y", L"0"}), script.Lines());
    }
    ScriptRunner script;
    script.RunOk(L"Set connect = WScript\nconnect.Echo \"an object\"\n");
    EXPECT_EQ((std::vector<std::wstring>{L"an object"}), script.Lines());
}

TEST(ScriptHostTest, ConnectWithoutEventsFails) {
    ComPtr<ITypeLib> library;
    Source source(EventTypes(library).Get()); // names no event interface
    ScriptRunner script;
    script.AddObject(L"source", &source);
    EXPECT_FAILED(script.Run(L"Connect source, \"p_\"").hr);
}

} // namespace
