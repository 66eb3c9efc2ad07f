// SPDX-License-Identifier: MIT
// Calls as hosts make them: from scripts with literals and variables, by name with every kind of
// variant, and through the vtable.
#include <gtest/gtest.h>
#include <olectl.h>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr wchar_t kNotice[] = L"Th\u00ABng b\u00B8o"; // TCVN3, as the caller's variable gets it
constexpr wchar_t kShownNotice[] = L"Thông báo";

// What a message box shows, read before it is answered with Enter.
struct Shown {
    std::wstring message, title;
};

Shown AnswerBox() {
    const HWND box = WaitForForm(L"MessageBox");
    WaitForFocus(box, L"Cmd1");
    const Shown shown = {TextOf(box, L"Message"), TextOf(box, L"label4")};
    PressKey(VK_RETURN);
    WaitForClose(box);
    return shown;
}

template <class Call> Shown WhileAnswering(Call call) {
    Shown shown;
    DialogDriver user([&] { shown = AnswerBox(); });
    call();
    user.Finish();
    return shown;
}

template <class Interface> ComPtr<Interface> Create(const wchar_t* progId) {
    CLSID clsid;
    ComPtr<Interface> object;
    HRESULT hr = CLSIDFromProgID(progId, &clsid);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    EXPECT_SUCCEEDED(hr);
    return object;
}

LateBound Varnok() {
    return LateBound::Create(L"VnDesk.Varnok");
}
LateBound Logon() {
    return LateBound::Create(L"VnDesk.clsLogon");
}

_variant_t Null() {
    _variant_t value;
    value.vt = VT_NULL;
    return value;
}

_variant_t Missing() {
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

std::wstring Text(const _variant_t& value) {
    EXPECT_EQ(VT_BSTR, value.vt);
    return value.vt == VT_BSTR && value.bstrVal ? value.bstrVal : L"";
}

// --- scripts: by-value parameters ---

TEST(VBScriptTest, LiteralsAndVariablesGiveTheSame) {
    ScriptRunner script;
    script.RunOk(
        L"Set v = WScript.CreateObject(\"VnDesk.Varnok\")\n"
        L"n = 1234.5 : t = \"1234,5\" : k = 2\n"
        L"Echo v.CvNStr(1234.5), v.CvNStr(n), v.CvNStr((n)), v.CvNStr(\"1234,5\"), v.CvNStr(t)\n"
        L"Echo v.Mid1(\"Đồng\", 2), v.Mid1(\"Đồng\", k), v.Mid1(\"Đồng\", \"2\")\n"
        L"w = \"Đồng\" : s = \"2\"\n"
        L"Echo v.Mid1(w, s)\n"
        L"Echo v.Mid1(12345, k)\n"
        L"Echo \"[\" & v.CvNStr(Empty) & \"]\", v.CvTextToN(\"-1.234,5\") = -1234.5");
    const std::vector<std::wstring> wanted = {L"1.234,5 1.234,5 1.234,5 1.234,5 1.234,5", L"ồ ồ ồ",
                                              L"ồ", L"2", L"[] True"};
    EXPECT_EQ(wanted, script.Lines());
}

TEST(VBScriptTest, VariablesGivenByValueStayAsTheyAre) {
    ScriptRunner script;
    script.RunOk(L"Set v = WScript.CreateObject(\"VnDesk.Varnok\")\n"
                 L"k = \"2\" : x = v.Mid1(\"abc\", k)\nEcho TypeName(k), k, x");
    EXPECT_EQ(std::vector<std::wstring>{L"String 2 b"}, script.Lines());
}

TEST(VBScriptTest, VariablesOfACallersCallerWork) {
    ScriptRunner script;
    script.RunOk(L"Set v = WScript.CreateObject(\"VnDesk.Varnok\")\n"
                 L"Function Inner(ByRef a, ByRef b)\nInner = v.Mid1(a, b)\nEnd Function\n"
                 L"Function Outer(ByRef a, ByRef b)\nOuter = Inner(a, b)\nEnd Function\n"
                 L"s = \"abc\" : i = 3\nEcho Outer(s, i)");
    EXPECT_EQ(std::vector<std::wstring>{L"c"}, script.Lines());
}

TEST(JScriptTest, LiteralsAndVariablesGiveTheSame) {
    ScriptRunner script(L"JScript");
    script.RunOk(L"var v = WScript.CreateObject('VnDesk.Varnok');\n"
                 L"var n = -1234567.5, s = 'Đồng ý';\n"
                 L"Echo(v.CvNStr(n) + ' ' + v.CvNStr('12'));\n"
                 L"Echo(v.Mid1(s, 1) + v.Mid1('Đồng ý', '6') + v.Mid1(975, 3));\n"
                 L"Echo(v.CvTextToN('1.234') + 1);");
    const std::vector<std::wstring> wanted = {L"-1.234.567,5 12", L"Đý5", L"1235"};
    EXPECT_EQ(wanted, script.Lines());
}

// --- scripts: by-reference parameters ---

TEST(VBScriptTest, EmptyTitleIsReplacedInTheVariable) {
    ScriptRunner script;
    const Shown shown = WhileAnswering([&] {
        script.RunOk(L"Set o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                     L"m = \"abc\" : t = \"\"\n"
                     L"r = o.MgBox(m, 0, t, 64)\nEcho r, t, m");
    });
    EXPECT_EQ(std::vector<std::wstring>{std::wstring(L"1 ") + kNotice + L" abc"}, script.Lines());
    EXPECT_EQ(kShownNotice, shown.title);
    EXPECT_EQ(L"abc", shown.message);
}

TEST(VBScriptTest, VariableThatWasNeverSetIsAnEmptyTitle) {
    ScriptRunner script;
    WhileAnswering([&] {
        script.RunOk(L"Set o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                     L"r = o.MgBox(\"abc\", 0, t, 64)\nEcho TypeName(t), t");
    });
    EXPECT_EQ(std::vector<std::wstring>{std::wstring(L"String ") + kNotice}, script.Lines());
}

TEST(VBScriptTest, TitleIsReplacedThroughTheByRefArgumentOfASub) {
    ScriptRunner script;
    WhileAnswering([&] {
        script.RunOk(L"Set o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                     L"Sub Ask(ByRef m, ByRef t)\no.MgBox m, 0, t, 64\nEnd Sub\n"
                     L"title = \"\"\nAsk \"abc\", title\nEcho title");
    });
    EXPECT_EQ(std::vector<std::wstring>{kNotice}, script.Lines());
}

TEST(VBScriptTest, NumbersAreTakenWhereTextIsWantedByReference) {
    ScriptRunner script;
    const Shown literals = WhileAnswering([&] {
        script.RunOk(L"Set o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                     L"o.MgBox 12, \"0\", 3.5, \"64\"");
    });
    EXPECT_EQ(L"12", literals.message);
    EXPECT_EQ(L"3.5", literals.title);
    const Shown variables = WhileAnswering([&] {
        script.RunOk(L"m = 12 : b = \"0\" : t = 34 : i = \"64\" : r = False\n"
                     L"o.MgBox m, b, t, i, r\n"
                     L"Echo m, b, t, i, r");
    });
    EXPECT_EQ(L"12", variables.message);
    EXPECT_EQ(L"34", variables.title);
    EXPECT_EQ(std::vector<std::wstring>{L"12 0 34 64 False"}, script.Lines());
}

TEST(VBScriptTest, NullIsATypeMismatch) {
    ScriptRunner script;
    script.RunOk(L"On Error Resume Next\nSet o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                 L"o.MgBox Null, 0, \"t\", 64\nEcho Err.Number\nErr.Clear\n"
                 L"n = Null\no.MgBox n, 0, \"t\", 64\nEcho Err.Number, IsNull(n)\nErr.Clear\n"
                 L"o.SetDfFont o\nEcho Err.Number");
    const std::vector<std::wstring> wanted = {L"13", L"13 True", L"13"};
    EXPECT_EQ(wanted, script.Lines());
    EXPECT_TRUE(TopWindows().empty());
}

TEST(JScriptTest, MessageBoxTakesLiteralsNumbersAndVariables) {
    ScriptRunner script(L"JScript");
    const Shown shown = WhileAnswering([&] {
        script.RunOk(L"var o = WScript.CreateObject('VnDesk.clsLogon'), m = 12;\n"
                     L"Echo(o.MgBox(m, 0, '', 64));");
    });
    EXPECT_EQ(std::vector<std::wstring>{L"1"}, script.Lines());
    EXPECT_EQ(L"12", shown.message);
    EXPECT_EQ(kShownNotice, shown.title);
}

// --- by name, with the variants that Basic and C++ hosts pass ---

TEST(LateBoundCallTest, TypedVariableIsWrittenBack) {
    BSTR title = SysAllocString(L"");
    BSTR message = SysAllocString(L"abc");
    WhileAnswering([&] {
        EXPECT_EQ(L"1", Text(Logon().Call(L"MgBox", {ByRef(message), 0L, ByRef(title), 64L})));
    });
    EXPECT_STREQ(kNotice, title);
    EXPECT_STREQ(L"abc", message);
    SysFreeString(title);
    SysFreeString(message);
}

TEST(LateBoundCallTest, NullTextIsAnEmptyTitleAndIsWrittenBack) {
    BSTR title = nullptr;
    WhileAnswering([&] { Logon().Call(L"MgBox", {L"abc", 0L, ByRef(title), 64L}); });
    EXPECT_STREQ(kNotice, title);
    SysFreeString(title);
}

TEST(LateBoundCallTest, VariantVariableIsWrittenBackAsText) {
    for (const _variant_t& empty : {_variant_t(L""), _variant_t()}) {
        _variant_t title = empty;
        WhileAnswering([&] { Logon().Call(L"MgBox", {L"abc", 0L, ByRef(title), 64L}); });
        EXPECT_EQ(kNotice, Text(title));
    }
}

TEST(LateBoundCallTest, TypedVariableBehindAVariantIsWrittenBack) {
    BSTR text = SysAllocString(L"");
    VARIANT inner;
    inner.vt = VT_BYREF | VT_BSTR;
    inner.pbstrVal = &text;
    WhileAnswering([&] { Logon().Call(L"MgBox", {L"abc", 0L, ByRef(inner), 64L}); });
    EXPECT_STREQ(kNotice, text);
    EXPECT_EQ(VT_BYREF | VT_BSTR, inner.vt);
    SysFreeString(text);
}

TEST(LateBoundCallTest, LiteralIsLeftAlone) {
    LateBound::Arguments arguments = {L"abc", 0L, L"", 64L};
    WhileAnswering([&] { Logon().Call(L"MgBox", arguments); });
    EXPECT_EQ(L"", Text(arguments[2]));
}

TEST(LateBoundCallTest, NumberVariableGivenForTextKeepsItsType) {
    long number = 12;
    const auto call = [&] { Logon().Call(L"MgBox", {ByRef(number), 0L, L"t", 64L}); };
    const Shown shown = WhileAnswering(call);
    EXPECT_EQ(L"12", shown.message);
    EXPECT_EQ(12, number);
}

TEST(LateBoundCallTest, TextWithAZeroCharacterArrivesWhole) {
    const _variant_t text = _bstr_t(SysAllocStringLen(L"a\0b", 3), false);
    EXPECT_EQ(L"b", Text(Varnok().Call(L"Mid1", {text, 3L})));
}

TEST(LateBoundCallTest, NumbersOfEveryKindAreTaken) {
    const LateBound varnok = Varnok();
    VARIANT byte = {}, currency = {};
    byte.vt = VT_UI1;
    byte.bVal = 2;
    currency.vt = VT_CY;
    currency.cyVal.int64 = 20000;
    const _variant_t two[] = {_variant_t(2L),      _variant_t(short{2}), _variant_t(2.0),
                              _variant_t(2.0f),    _variant_t(L"2"),     _variant_t(byte),
                              _variant_t(currency)};
    for (const _variant_t& position : two) {
        EXPECT_EQ(L"b", Text(varnok.Call(L"Mid1", {L"abc", position}))) << position.vt;
        _variant_t variable = position;
        EXPECT_EQ(L"b", Text(varnok.Call(L"Mid1", {L"abc", ByRef(variable)}))) << position.vt;
    }
    long number = 2;
    EXPECT_EQ(L"b", Text(varnok.Call(L"Mid1", {L"abc", ByRef(number)})));
    EXPECT_EQ(L"", Text(varnok.Call(L"Mid1", {L"abc", _variant_t()}))) << "Empty is 0";
}

TEST(LateBoundCallTest, NumberTooLargeForItsParameterIsAnOverflow) {
    EXPECT_HR(DISP_E_OVERFLOW, Varnok().TryCall(L"Mid1", {L"abc", 1e10}).hr);
}

TEST(LateBoundCallTest, OnlyAllOnesIsRightToLeftWhateverTheKindOfBoolean) {
    for (const _variant_t& flag : {_variant_t(true), _variant_t(L"-1"), _variant_t(-1L)}) {
        bool rightToLeft = false;
        DialogDriver user([&] {
            const HWND box = WaitForForm(L"MessageBox");
            rightToLeft =
                (GetWindowLongW(Control(box, L"Message"), GWL_EXSTYLE) & WS_EX_RTLREADING) != 0;
            PressKey(VK_RETURN);
            WaitForClose(box);
        });
        Logon().Call(L"MgBox", {L"abc", 0L, L"t", 64L, flag});
        user.Finish();
        EXPECT_TRUE(rightToLeft);
    }
}

TEST(LateBoundCallTest, OptionalArgumentMayBeMissing) {
    WhileAnswering([] { EXPECT_EQ(L"1", Text(Logon().Call(L"MgBox", {L"a", 0L, L"t", 64L}))); });
    WhileAnswering([] {
        const _variant_t pressed = Logon().Call(L"MgBox", {L"a", 0L, L"t", 64L, Missing()});
        EXPECT_EQ(L"1", Text(pressed));
    });
}

TEST(LateBoundCallTest, RequiredArgumentMayNotBeMissing) {
    EXPECT_FAILED(Logon().TryCall(L"MgBox", {Missing(), 0L, L"t", 64L}).hr);
    EXPECT_FAILED(Logon().TryCall(L"MgBox", {L"a", 0L, Missing(), 64L}).hr);
    EXPECT_FAILED(Varnok().TryCall(L"Mid1", {L"abc", Missing()}).hr);
    EXPECT_TRUE(TopWindows().empty());
}

// Arguments by name, in the order given here.
struct Named {
    const wchar_t* name;
    _variant_t value;
};

LateResult CallNamed(const LateBound& object, const wchar_t* member, std::vector<Named> arguments) {
    std::vector<LPOLESTR> names = {const_cast<LPOLESTR>(member)};
    std::vector<_variant_t> values;
    for (Named& argument : arguments) {
        names.push_back(const_cast<LPOLESTR>(argument.name));
        values.push_back(argument.value);
    }
    std::vector<DISPID> ids(names.size());
    LateResult result;
    result.hr = object.Dispatch()->GetIDsOfNames(
        IID_NULL, names.data(), static_cast<UINT>(names.size()), LOCALE_NEUTRAL, ids.data());
    if (FAILED(result.hr))
        return result;
    DISPPARAMS parameters = {values.data(), ids.data() + 1, static_cast<UINT>(values.size()),
                             static_cast<UINT>(values.size())};
    result.hr = object.Dispatch()->Invoke(ids[0], IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD,
                                          &parameters, &result.value, nullptr, nullptr);
    return result;
}

TEST(LateBoundCallTest, NamedArgumentsInAnyOrder) {
    const LateResult character =
        CallNamed(Varnok(), L"Mid1", {{L"Position", 2L}, {L"Text", L"abc"}});
    EXPECT_SUCCEEDED(character.hr);
    EXPECT_EQ(L"b", Text(character.value));
    EXPECT_HR(DISP_E_UNKNOWNNAME, CallNamed(Varnok(), L"Mid1", {{L"NoSuch", 2L}}).hr);
}

TEST(LateBoundCallTest, NamedArgumentsAreBroughtToTheirTypeAndWrittenBack) {
    _variant_t title(L""), message(12L);
    LateResult result;
    const Shown shown = WhileAnswering([&] {
        result = CallNamed(Logon(), L"MgBox",
                           {{L"icon", 64L},
                            {L"Title", ByRef(title)},
                            {L"Button", L"0"},
                            {L"Message", ByRef(message)}});
        EXPECT_SUCCEEDED(result.hr);
    });
    EXPECT_EQ(L"12", shown.message);
    EXPECT_EQ(kNotice, Text(title));
    EXPECT_EQ(L"1", Text(result.value));
    EXPECT_HR(DISP_E_TYPEMISMATCH, CallNamed(Logon(), L"SetDfFont", {{L"F1", Null()}}).hr);
}

TEST(LateBoundCallTest, ResultMayBeThrownAway) {
    const LateBound varnok = Varnok();
    DISPID id = 0;
    auto* name = const_cast<LPOLESTR>(L"Sign");
    ASSERT_SUCCEEDED(varnok.Dispatch()->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id));
    _variant_t text(L"+5");
    DISPPARAMS parameters = {&text, nullptr, 1, 0};
    EXPECT_SUCCEEDED(varnok.Dispatch()->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD,
                                               &parameters, nullptr, nullptr, nullptr));
}

// --- errors ---

std::wstring Description(IErrorInfo* info) {
    BSTR text = nullptr;
    info->GetDescription(&text);
    const std::wstring description(text ? text : L"");
    SysFreeString(text);
    return description;
}

TEST(ErrorTest, ScriptsReadNumberSourceAndDescription) {
    ScriptRunner vbscript;
    vbscript.RunOk(L"On Error Resume Next\nSet o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                   L"m = String(32768, \"a\")\no.MgBox m, 0, \"t\", 64\n"
                   L"Echo Err.Number, Err.Source\nEcho Err.Description");
    EXPECT_EQ((std::vector<std::wstring>{L"6 VnDesk.clsLogon", L"Overflow"}), vbscript.Lines());

    ScriptRunner jscript(L"JScript");
    jscript.RunOk(
        L"var m = 'a'; while (m.length < 32768) m += m;\n"
        L"try { WScript.CreateObject('VnDesk.clsLogon').MgBox(m, 0, 't', 64); Echo('none'); }\n"
        L"catch (e) { Echo(e.number & 0xFFFF); Echo(e.description); }");
    EXPECT_EQ((std::vector<std::wstring>{L"6", L"Overflow"}), jscript.Lines());
}

TEST(ErrorTest, TooLongMessageIsAnOverflowAndLeavesNoWindow) {
    const ComPtr<ILogon> logon = Create<ILogon>(L"VnDesk.clsLogon");
    BSTR message = SysAllocString(std::wstring(32768, L'a').c_str());
    BSTR title = SysAllocString(L"");
    BSTR pressed = message; // anything but null
    SetErrorInfo(0, nullptr);
    EXPECT_HR(kOverflow,
              logon->MgBox(&message, vbOKOnly, &title, vbInformation, VARIANT_FALSE, &pressed));
    EXPECT_EQ(nullptr, pressed);
    EXPECT_TRUE(TopWindows().empty());
    ComPtr<IErrorInfo> info;
    ASSERT_HR(S_OK, GetErrorInfo(0, &info));
    EXPECT_NE(L"", Description(info.Get()));
    GUID raisedBy;
    EXPECT_SUCCEEDED(info->GetGUID(&raisedBy));
    EXPECT_EQ(GuidText(__uuidof(ILogon)), GuidText(raisedBy));

    const LateResult late = LateBound(logon.Get()).TryCall(L"MgBox", {message, 0L, L"", 64L});
    EXPECT_HR(DISP_E_EXCEPTION, late.hr);
    EXPECT_HR(kOverflow, late.exceptionCode);
    EXPECT_EQ(L"VnDesk.clsLogon", late.exceptionSource);
    EXPECT_NE(L"", late.exceptionText);
    EXPECT_TRUE(TopWindows().empty());
    SysFreeString(message);
    SysFreeString(title);

    ScriptRunner script;
    script.RunOk(L"On Error Resume Next\nSet o = WScript.CreateObject(\"VnDesk.clsLogon\")\n"
                 L"t = \"\"\nr = o.MgBox(String(32768, \"a\"), 0, t, 64)\n"
                 L"Echo Err.Number, Err.Source, \"[\" & t & \"]\"");
    EXPECT_EQ(std::vector<std::wstring>{L"6 VnDesk.clsLogon []"}, script.Lines());
    EXPECT_TRUE(TopWindows().empty());
}

TEST(ErrorTest, LongestMessageIsShown) {
    const std::wstring message(32767, L'a');
    const auto call = [&] { Logon().Call(L"MgBox", {message.c_str(), 0L, L"t", 64L}); };
    const Shown shown = WhileAnswering(call);
    EXPECT_EQ(32767u, shown.message.size());
}

TEST(ErrorTest, ErrorOfAnEarlierCallIsNotTheNextOnes) {
    const LateBound logon = Logon();
    const std::wstring tooLong(32768, L'a');
    EXPECT_HR(DISP_E_EXCEPTION, logon.TryCall(L"MgBox", {tooLong.c_str(), 0L, L"t", 64L}).hr);
    EXPECT_HR(S_OK, logon.TryCall(L"SetDfFont", {L"Arial"}).hr);
    // The vtable too: what is pending is somebody else's.
    ComPtr<ICreateErrorInfo> create;
    ComPtr<IErrorInfo> pending;
    ASSERT_SUCCEEDED(CreateErrorInfo(&create));
    create->SetDescription(const_cast<LPOLESTR>(L"cũ"));
    ASSERT_SUCCEEDED(create.As(&pending));
    SetErrorInfo(0, pending.Get());
    const LateResult mismatch = logon.TryCall(L"SetDfFont", {Null()});
    EXPECT_HR(DISP_E_TYPEMISMATCH, mismatch.hr);
    EXPECT_HR(S_OK, logon.TryCall(L"SetDfFont", {L"Arial"}).hr);
}

// --- what calls leave behind ---

// By WScript's CreateObject: the one of Wine's VBScript engine keeps a reference for ever.
TEST(ScriptLifetimeTest, ObjectsOfAScriptGoWithIt) {
    ASSERT_HR(S_OK, CanUnloadNow());
    {
        ScriptRunner script;
        script.RunOk(L"Set v = WScript.CreateObject(\"VnDesk.Varnok\")\nx = v.Sign(\"+1\")\n"
                     L"Set o = WScript.CreateObject(\"VnDesk.clsLogon\")\nOn Error Resume Next\n"
                     L"o.MgBox String(32768, \"a\"), 0, \"t\", 64");
        EXPECT_HR(S_FALSE, CanUnloadNow());
    }
    EXPECT_HR(S_OK, CanUnloadNow());
}

TEST(LateBoundCallTest, RefusedObjectIsNotKept) {
    ASSERT_HR(S_OK, CanUnloadNow());
    {
        const LateBound logon = Logon();
        _variant_t variable(logon.Dispatch());
        EXPECT_HR(DISP_E_TYPEMISMATCH, logon.TryCall(L"SetDfFont", {variable}).hr);
        EXPECT_HR(DISP_E_TYPEMISMATCH, logon.TryCall(L"SetDfFont", {ByRef(variable)}).hr);
    }
    EXPECT_HR(S_OK, CanUnloadNow());
}

} // namespace
