// SPDX-License-Identifier: MIT
// A host that gives every argument of every member every kind of value, late-bound and through the
// vtable: calls end, nothing stays open or allocated, and the object goes on working.
#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

#include "com/hostile_values.h"
#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/reliability.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace {

using namespace vndesk::test;

// Answers each window that a call opens, from inside the window's own loop.
class ClosesWindows {
public:
    ClosesWindows() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Close)) {}
    ~ClosesWindows() { KillTimer(nullptr, timer_); }
    ClosesWindows(const ClosesWindows&) = delete;
    ClosesWindows& operator=(const ClosesWindows&) = delete;

private:
    static void CALLBACK Close(HWND, UINT, UINT_PTR, DWORD) {
        for (const HWND window : TopWindows()) {
            if (!IsWindowEnabled(window))
                continue;
            PostMessageW(window, WM_CLOSE, 0, 0);
            // Yes or No: there is no way out but an answer.
            if (WindowName(window) == L"NoticeBox")
                PostMessageW(FindControl(window, L"Cmd1"), BM_CLICK, 0, 0);
        }
    }

    UINT_PTR timer_;
};

template <size_t N> bool IsOneOf(const Method& method, const wchar_t* const (&names)[N]) {
    return std::find(std::begin(names), std::end(names), method.name) != std::end(names);
}

// They type keys, start the help engine or add data sources to the machine: these get only what
// must be refused.
bool TouchesTheMachine(const Method& method) {
    constexpr const wchar_t* kNames[] = {L"ESendKey", L"Gui_Phim", L"WinHelp", L"Create_DSN",
                                         L"Create_DSN_EXL"};
    return IsOneOf(method, kNames);
}

// Each call shows a window and often a message: a short run takes a part of the values.
bool OpensForms(const Method& method) {
    constexpr const wchar_t* kNames[] = {L"ShowLogon", L"ShowUser", L"UserManager", L"ShowGroup",
                                         L"MgBox",     L"FindShow", L"Show",        L"Ask"};
    return IsOneOf(method, kNames);
}

VARIANT Harmless(const Parameter& parameter) {
    static const BSTR empty = SysAllocString(L"");
    VARIANT value = {};
    if (parameter.type == VT_BSTR || parameter.type == VT_VARIANT) {
        value.vt = VT_BSTR;
        value.bstrVal = empty;
    } else {
        value.vt = parameter.type == VT_BOOL ? VARTYPE{VT_BOOL} : VARTYPE{VT_I4};
    }
    return value;
}

struct Outcome {
    HRESULT hr;
    HRESULT code; // of the exception
};

Outcome Invoke(IDispatch* object, const Method& method, const std::vector<VARIANT>& arguments) {
    // What the platform's call changes for its own use is none of the table's business.
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = method.kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    DISPPARAMS parameters = {reversed.data(), puts ? &put : nullptr,
                             static_cast<UINT>(reversed.size()), puts ? 1u : 0u};
    EXCEPINFO exception = {};
    _variant_t result;
    UINT wrong = 0;
    const HRESULT hr = object->Invoke(method.id, IID_NULL, LOCALE_USER_DEFAULT, method.kind,
                                      &parameters, &result, &exception, &wrong);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return {hr, exception.scode};
}

std::vector<RegisteredClass> ClassesToTest() {
    try {
        return RegisteredClasses();
    } catch (const std::exception&) {
        return {};
    }
}

class HostileArguments : public testing::TestWithParam<RegisteredClass> {
protected:
    // Calls a member with a value in one place.
    void Try(const ComPtr<IDispatch>& object, const Method& method, size_t place,
             const HostileValue& hostile, const VARIANT& given) {
        std::vector<VARIANT> arguments;
        for (const Parameter& parameter : method.parameters)
            if (!parameter.result)
                arguments.push_back(Harmless(parameter));
        arguments[place] = given;
        if (!EnvironmentText(L"VNDESK_TRACE_CALLS").empty())
            fprintf(stderr, "%s.%zu %s\n", ToUtf8(method.name).c_str(), place,
                    hostile.name.c_str());
        const Outcome outcome = Invoke(object.Get(), method, arguments);
        ++calls_;
        refused_ += FAILED(outcome.hr);
        const std::string where =
            ToUtf8(method.name + L"." + method.parameters[place].name) + " given " + hostile.name;
        EXPECT_NE(E_UNEXPECTED, outcome.hr) << where;
        EXPECT_NE(E_UNEXPECTED, outcome.code) << where;
        if (hostile.nowhere) {
            EXPECT_FAILED(outcome.hr) << where;
        }
    }

    size_t calls_ = 0, refused_ = 0;
};
INSTANTIATE_TEST_SUITE_P(Classes, HostileArguments, testing::ValuesIn(ClassesToTest()),
                         [](const testing::TestParamInfo<RegisteredClass>& info) {
                             return ToUtf8(info.param.name);
                         });

TEST_P(HostileArguments, EveryValueInEveryPlaceEndsInAnAnswer) {
    const ClosesWindows closer;
    ASSERT_HR(S_OK, CanUnloadNow());
    size_t turn = 0;
    {
        const ComPtr<IDispatch> object = GetParam().Create();
        for (const Method& method : GetParam().methods)
            for (size_t place = 0; place < method.Arguments(); ++place)
                for (const HostileValue& hostile : HostileValues()) {
                    if (!hostile.unusable && TouchesTheMachine(method))
                        continue;
                    if (!hostile.unusable && OpensForms(method) && !FullRun() && ++turn % 8)
                        continue;
                    Try(object, method, place, hostile, hostile.value);
                    // As scripts pass a variable.
                    VARIANT variable = {}, reference = {};
                    if (FAILED(VariantCopy(&variable, const_cast<VARIANT*>(&hostile.value))))
                        continue; // no variable can hold it
                    reference.vt = VT_BYREF | VT_VARIANT;
                    reference.pvarVal = &variable;
                    Try(object, method, place, hostile, reference);
                    EXPECT_HR(S_OK, VariantClear(&variable)) << "what the call left is a value";
                }
        EXPECT_TRUE(TopWindows().empty());
        EXPECT_HR(DISP_E_MEMBERNOTFOUND,
                  Invoke(object.Get(), Method{L"", L"", 30000, DISPATCH_METHOD, 0, {}}, {}).hr)
            << "the object answers as before";
    }
    EXPECT_HR(S_OK, CanUnloadNow());
    TellFigures(calls_, " calls, ", refused_, " refused");
}

TEST_P(HostileArguments, SenselessListsOfArgumentsAreRefused) {
    const ClosesWindows closer;
    const ComPtr<IDispatch> object = GetParam().Create();
    for (const Method& method : GetParam().methods) {
        if (method.Arguments() == 0)
            continue;
        std::vector<VARIANT> values(method.Arguments());
        for (size_t i = 0; i < values.size(); ++i)
            values[values.size() - 1 - i] = Harmless(method.parameters[i]);
        const auto count = static_cast<UINT>(values.size());
        DISPID away[] = {1000, -1000, 0x7FFFFFFF}, twice[8] = {};
        const auto invoke = [&](DISPPARAMS parameters) {
            _variant_t result;
            ++calls_;
            return object->Invoke(method.id, IID_NULL, LOCALE_USER_DEFAULT, method.kind,
                                  &parameters, &result, nullptr, nullptr);
        };
        EXPECT_FAILED(invoke({nullptr, nullptr, count, 0})) << ToUtf8(method.name);
        EXPECT_FAILED(invoke({values.data(), nullptr, count, 1})) << ToUtf8(method.name);
        EXPECT_FAILED(invoke({values.data(), away, count, count + 1})) << ToUtf8(method.name);
        if (method.IsProperty())
            continue;
        EXPECT_FAILED(invoke({values.data(), away, count, 1})) << ToUtf8(method.name);
        if (method.Required() > 1) {
            EXPECT_FAILED(invoke({values.data(), twice, count, count})) << ToUtf8(method.name);
        }
    }
    EXPECT_TRUE(TopWindows().empty());
}

TEST_P(HostileArguments, MemberNumbersThatDoNotExistAreUnknownInEveryManner) {
    const ComPtr<IDispatch> object = GetParam().Create();
    const auto isKnown = [](DISPID id, WORD kind) {
        return std::any_of(
            GetParam().methods.begin(), GetParam().methods.end(),
            [&](const Method& method) { return method.id == id && (method.kind & kind); });
    };
    constexpr WORD kKinds[] = {
        0,     DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF,
        0xFFF0};
    for (DISPID id = -1000; id < 1000; ++id)
        for (const WORD kind : kKinds) {
            if (isKnown(id, kind))
                continue;
            ++calls_;
            DISPPARAMS none = {};
            _variant_t result;
            EXPECT_HR(DISP_E_MEMBERNOTFOUND, object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, kind,
                                                            &none, &result, nullptr, nullptr))
                << id << " as " << kind;
        }
    TellFigures(calls_, " calls");
}

// --- the vtable ---

HRESULT CallThroughVtable(IUnknown* object, const Method& method, const VARIANT& variant) {
    std::vector<VARIANT> values(method.parameters.size());
    std::vector<VARIANTARG*> places;
    std::vector<VARTYPE> types;
    std::vector<LONGLONG> targets(values.size() * 4);
    BSTR text = SysAllocString(L"");
    for (size_t i = 0; i < values.size(); ++i) {
        const Parameter& parameter = method.parameters[i];
        values[i] = {};
        values[i].vt = parameter.type;
        if (parameter.byReference) {
            values[i].vt |= VT_BYREF;
            values[i].byref = &targets[i * 4];
            if (parameter.type == VT_BSTR && !parameter.result)
                values[i].byref = &text;
        } else if (parameter.type == VT_VARIANT) {
            values[i] = variant;
        }
        places.push_back(&values[i]);
        types.push_back(parameter.type == VT_VARIANT && !parameter.byReference ? VARTYPE{VT_VARIANT}
                                                                               : values[i].vt);
    }
    VARIANT result = {};
    const HRESULT called =
        DispCallFunc(object, static_cast<ULONG_PTR>(method.vtableOffset), CC_STDCALL, VT_ERROR,
                     static_cast<UINT>(values.size()), types.data(), places.data(), &result);
    for (size_t i = 0; i < values.size(); ++i)
        if (method.parameters[i].result && method.parameters[i].type == VT_BSTR)
            SysFreeString(reinterpret_cast<BSTR>(static_cast<LONG_PTR>(targets[i * 4])));
    SysFreeString(text);
    return FAILED(called) ? called : result.scode;
}

TEST_P(HostileArguments, EveryVariantThroughTheVtableEndsInAnAnswer) {
    const ClosesWindows closer;
    ComPtr<IUnknown> object;
    ASSERT_SUCCEEDED(GetParam().Create(GetParam().defaultInterface, &object));
    size_t turn = 0;
    for (const Method& method : GetParam().methods) {
        if (std::none_of(method.parameters.begin(), method.parameters.end(),
                         [](const Parameter& parameter) {
                             return parameter.type == VT_VARIANT && !parameter.byReference;
                         }))
            continue;
        for (const HostileValue& hostile : HostileValues()) {
            if (OpensForms(method) && !FullRun() && ++turn % 8)
                continue;
            ++calls_;
            const HRESULT hr = CallThroughVtable(object.Get(), method, hostile.value);
            EXPECT_NE(E_UNEXPECTED, hr) << ToUtf8(method.name) << " given " << hostile.name;
        }
    }
    EXPECT_TRUE(TopWindows().empty());
    TellFigures(calls_, " calls");
}

} // namespace
