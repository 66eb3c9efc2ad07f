// SPDX-License-Identifier: MIT
// What late-bound calls leave in the caller's variables: those that a member did not change are
// the caller's own still, whatever their type; those that it changed hold what it left there.
#include <gtest/gtest.h>

#include <string>

#include "com/registered_dll.h"
#include "com/registry_edit.h"
#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/temp_dir.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace {

using namespace vndesk::test;

constexpr long kCurrentUser = static_cast<long>(0x80000001);
constexpr wchar_t kNotice[] = L"Th\u00ABng b\u00B8o"; // TCVN3, as the caller's variable gets it

class ByReferenceTest : public testing::Test {
protected:
    void TearDown() override { DeleteTree(HKEY_CURRENT_USER, key); }

    std::wstring Stored(const wchar_t* name = L"n") const {
        return RegistryText(HKEY_CURRENT_USER, key, name);
    }
    // Stores a variable's value as text.
    void Write(const _variant_t& reference) {
        registry.Call(L"WriteRegEdit", {kCurrentUser, key.c_str(), L"n", reference});
    }
    // Reads the stored text into a variable.
    LateResult Read(const _variant_t& reference) {
        return registry.TryCall(L"GetKeyValue", {kCurrentUser, key.c_str(), L"n", reference});
    }

    std::wstring Script(const std::wstring& source) {
        ScriptRunner script;
        script.RunOk(L"Set r = WScript.CreateObject(\"VnDesk.clsRegistry\")\n"
                     L"root = " +
                     std::to_wstring(kCurrentUser) + L" : key = \"" + key + L"\"\n" + source);
        std::wstring all;
        for (const std::wstring& line : script.Lines())
            all += (all.empty() ? L"" : L"|") + line;
        return all;
    }

    const std::wstring key =
        L"Software\\VnDesk references " + std::to_wstring(GetCurrentProcessId());
    const LateBound registry = LateBound::Create(L"VnDesk.clsRegistry");
};

// --- scripts ---

TEST_F(ByReferenceTest, NumbersOfAScriptStayNumbers) {
    EXPECT_EQ(
        L"Integer 250|Double True|Boolean False|Date True|Empty",
        Script(L"n = 125 : r.WriteRegEdit root, key, \"n\", n\nEcho TypeName(n), n + n\n"
               L"d = 1 / 3 : r.WriteRegEdit root, key, \"d\", d\nEcho TypeName(d), d = 1 / 3\n"
               L"b = False : r.WriteRegEdit root, key, \"b\", b\nEcho TypeName(b), b\n"
               L"t = CDate(38000.123456789) : r.WriteRegEdit root, key, \"t\", t\n"
               L"Echo TypeName(t), CDbl(t) = 38000.123456789\n"
               L"r.WriteRegEdit root, key, \"e\", e\nEcho TypeName(e)"));
    EXPECT_EQ(L"125", Stored());
}

TEST_F(ByReferenceTest, ObjectsWithADefaultPropertyStayObjects) {
    EXPECT_EQ(L"True True mot",
              Script(L"Class Named\nPublic Default Property Get Text\nText = \"mot\"\n"
                     L"End Property\nEnd Class\n"
                     L"Set o = New Named\nSet p = o\nr.WriteRegEdit root, key, \"n\", o\n"
                     L"Echo IsObject(o), o Is p, o.Text"));
    EXPECT_EQ(L"mot", Stored());
}

TEST_F(ByReferenceTest, ArgumentsOfAScriptsSubStayNumbers) {
    EXPECT_EQ(L"Integer 250|Integer 14",
              Script(L"Sub Inner(ByRef a)\nr.WriteRegEdit root, key, \"n\", a\nEnd Sub\n"
                     L"Sub Outer(ByRef a)\nInner a\nEnd Sub\n"
                     L"n = 125 : Outer n\nEcho TypeName(n), n + n\n"
                     L"a = Array(7) : r.WriteRegEdit root, key, \"n\", a(0)\n"
                     L"Echo TypeName(a(0)), a(0) + a(0)"));
    EXPECT_EQ(L"7", Stored());
}

TEST_F(ByReferenceTest, WhatAMemberChangedIsItsText) {
    SetText(HKEY_CURRENT_USER, key, L"n", L"sau");
    EXPECT_EQ(L"String sau|String sau|Integer",
              Script(L"n = 125 : name = \"n\" : r.GetKeyValue root, key, name, n\n"
                     L"Echo TypeName(n), n\n"
                     L"r.GetKeyValue root, key, name, e\nEcho TypeName(e), e\n"
                     L"other = 5 : r.GetKeyValue root, key, other, e\nEcho TypeName(other)"));
}

// A value that is not there is the empty text, which the member sets too.
TEST_F(ByReferenceTest, VariableThatReceivesTheEmptyTextIsAText) {
    SetText(HKEY_CURRENT_USER, key, L"n", L"");
    EXPECT_EQ(L"String []", Script(L"r.GetKeyValue root, key, \"missing\", e\n"
                                   L"Echo TypeName(e), \"[\" & e & \"]\""));
}

TEST_F(ByReferenceTest, OneVariableGivenTwiceHoldsWhatTheMemberSet) {
    _variant_t both(L"");
    const LateBound logon = LateBound::Create(L"VnDesk.clsLogon");
    DialogDriver user([] {
        const HWND box = WaitForForm(L"MessageBox");
        WaitForFocus(box, L"Cmd1");
        PressKey(VK_RETURN);
        WaitForClose(box);
    });
    logon.Call(L"MgBox", {ByRef(both), 0L, ByRef(both), 64L});
    user.Finish();
    EXPECT_EQ(_bstr_t(kNotice), _bstr_t(both));
}

// --- C++ and Basic hosts: references to variables with a type ---

// A variable of any type, by reference, and again behind one and two variants.
template <class Test> void ByEachWay(VARIANT typed, void* variable, Test test) {
    VARIANT reference = {};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | typed.vt);
    reference.byref = variable;
    VARIANT once = reference, twice = {};
    twice.vt = VT_BYREF | VT_VARIANT;
    twice.pvarVal = &once;
    test(_variant_t(reference), "by reference");
    test(ByRef(once), "behind a variant");
    test(ByRef(twice), "behind two");
    EXPECT_EQ(reference.vt, once.vt);
    EXPECT_EQ(variable, once.byref);
}

template <class Value> struct Typed {
    VARTYPE type;
    Value value;
    const wchar_t* text;
};

template <class Value> VARIANT Of(VARTYPE type, const Value& value) {
    VARIANT variant = {};
    variant.vt = type;
    memcpy(&variant.llVal, &value, sizeof value);
    return variant;
}

// Members that take null texts for something else than empty ones see them behind references too.
TEST_F(ByReferenceTest, NullTextsArriveAsNullTexts) {
    const LateBound varnok = LateBound::Create(L"VnDesk.Varnok");
    const TempDir folder;
    const std::wstring file = folder.File(L"new.ini");
    const auto write = [&](const wchar_t* value) {
        varnok.Call(L"WriteRegA", {L"S", L"K", value, file.c_str()});
    };
    const auto kept = [&] {
        return std::wstring(_bstr_t(varnok.Call(L"ReadRegVlA", {L"S", L"K", file.c_str()})));
    };
    BSTR null = nullptr;
    ByEachWay(Of(VT_BSTR, null), &null, [&](const _variant_t& reference, const char* way) {
        write(L"v");
        EXPECT_EQ(L"v", kept());
        varnok.Call(L"WriteRegA", {L"S", reference, L"ignored", file.c_str()});
        EXPECT_EQ(L"", kept()) << way;
        EXPECT_EQ(nullptr, null) << way;
    });
}

TEST_F(ByReferenceTest, TypedVariablesKeepEveryBit) {
    const auto expectKept = [&](auto typed) {
        auto variable = typed.value;
        ByEachWay(Of(typed.type, typed.value), &variable,
                  [&](const _variant_t& reference, const char* way) {
                      Write(reference);
                      EXPECT_EQ(0, memcmp(&typed.value, &variable, sizeof variable))
                          << "type " << typed.type << ' ' << way;
                      EXPECT_EQ(typed.text, Stored()) << "type " << typed.type << ' ' << way;
                  });
        // The same in a variable that is a variant.
        _variant_t held(Of(typed.type, typed.value));
        Write(ByRef(held));
        EXPECT_EQ(typed.type, held.vt);
        EXPECT_EQ(0, memcmp(&typed.value, &held.llVal, sizeof typed.value)) << typed.type;
        EXPECT_EQ(typed.text, Stored()) << typed.type;
    };
    expectKept(Typed<BYTE>{VT_UI1, 200, L"200"});
    expectKept(Typed<signed char>{VT_I1, -100, L"-100"});
    expectKept(Typed<short>{VT_I2, -30000, L"-30000"});
    expectKept(Typed<unsigned short>{VT_UI2, 60000, L"60000"});
    expectKept(Typed<long>{VT_I4, -2000000000, L"-2000000000"});
    expectKept(Typed<unsigned long>{VT_UI4, 4000000000, L"4000000000"});
    expectKept(Typed<int>{VT_INT, 5, L"5"});
    expectKept(Typed<unsigned>{VT_UINT, 6, L"6"});
    expectKept(Typed<long long>{VT_I8, 9000000000000000001, L"9000000000000000001"});
    expectKept(Typed<unsigned long long>{VT_UI8, 18000000000000000001u, L"18000000000000000001"});
    expectKept(Typed<float>{VT_R4, 16777217.0f / 3, L"5592406"});
    expectKept(Typed<double>{VT_R8, 1.0 / 3, L"0.333333333333333"});
    expectKept(Typed<long long>{VT_CY, 12345, L"1.2345"});
    expectKept(Typed<VARIANT_BOOL>{VT_BOOL, VARIANT_TRUE, L"-1"});
}

TEST_F(ByReferenceTest, DatesKeepTheFractionsOfTheirSeconds) {
    const double moment = 38000.123456789;
    double date = moment;
    ByEachWay(Of(VT_DATE, moment), &date, [&](const _variant_t& reference, const char* way) {
        Write(reference);
        EXPECT_EQ(moment, date) << way;
    });
}

TEST_F(ByReferenceTest, DecimalsKeepTheirPlaces) {
    DECIMAL number = {};
    number.scale = 3;
    number.Lo64 = 1500;
    const DECIMAL before = number;
    VARIANT type = {};
    type.vt = VT_DECIMAL;
    ByEachWay(type, &number, [&](const _variant_t& reference, const char* way) {
        Write(reference);
        EXPECT_EQ(before.Lo64, number.Lo64) << way;
        EXPECT_EQ(before.scale, number.scale) << way;
    });
}

TEST_F(ByReferenceTest, TextsKeepTheirPlaceInMemory) {
    const BSTR text = SysAllocString(L"abc");
    BSTR variable = text;
    ByEachWay(Of(VT_BSTR, text), &variable, [&](const _variant_t& reference, const char* way) {
        Write(reference);
        EXPECT_EQ(text, variable) << way;
    });
    SysFreeString(text);
}

// --- what a member has set, in the type that the host's variable has ---

TEST_F(ByReferenceTest, WhatAMemberSetTakesTheVariablesOwnType) {
    SetText(HKEY_CURRENT_USER, key, L"n", L"25");
    const auto expectSet = [&](VARTYPE type, auto value) {
        auto variable = value;
        ByEachWay(Of(type, value), &variable, [&](const _variant_t& reference, const char* way) {
            variable = {};
            EXPECT_HR(S_OK, Read(reference).hr) << "type " << type << ' ' << way;
            EXPECT_EQ(value, variable) << "type " << type << ' ' << way;
        });
    };
    expectSet(VT_UI1, BYTE{25});
    expectSet(VT_I1, static_cast<signed char>(25));
    expectSet(VT_I2, short{25});
    expectSet(VT_UI2, static_cast<unsigned short>(25));
    expectSet(VT_I4, 25l);
    expectSet(VT_UI4, 25ul);
    expectSet(VT_INT, 25);
    expectSet(VT_UINT, 25u);
    expectSet(VT_I8, 25ll);
    expectSet(VT_UI8, 25ull);
    expectSet(VT_R4, 25.0f);
    expectSet(VT_R8, 25.0);
    expectSet(VT_CY, 250000ll);
    expectSet(VT_BOOL, VARIANT_TRUE);

    DECIMAL number = {};
    VARIANT type = {};
    type.vt = VT_DECIMAL;
    ByEachWay(type, &number, [&](const _variant_t& reference, const char* way) {
        number = {};
        EXPECT_HR(S_OK, Read(reference).hr) << way;
        EXPECT_EQ(25u, number.Lo64) << way;
    });
    _variant_t variant(7L);
    EXPECT_HR(S_OK, Read(ByRef(variant)).hr);
    EXPECT_EQ(VT_BSTR, variant.vt) << "a variant takes the member's own type";
    EXPECT_EQ(_bstr_t(L"25"), _bstr_t(variant));
}

TEST_F(ByReferenceTest, WhatDoesNotFitTheVariableIsATypeMismatch) {
    SetText(HKEY_CURRENT_USER, key, L"n", L"chữ");
    short number = 5;
    VARIANT reference = {};
    reference.vt = VT_BYREF | VT_I2;
    reference.piVal = &number;
    EXPECT_HR(DISP_E_TYPEMISMATCH, Read(_variant_t(reference)).hr);
    EXPECT_EQ(5, number);
}

} // namespace
