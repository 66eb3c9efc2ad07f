// SPDX-License-Identifier: MIT
#include "com/hostile_values.h"

#include <oleauto.h>
#include <windows.h>

#include <cmath>
#include <limits>

namespace vndesk::test {
namespace {

constexpr VARTYPE kReference = VT_BYREF;

class Table {
public:
    std::vector<HostileValue> Fill() {
        AddEmpty();
        AddReferences();
        AddNumbers();
        AddTexts();
        AddWindows();
        return std::move(values_);
    }

private:
    VARIANT& Add(std::string name, int type, bool unusable = false, bool nowhere = false) {
        VARIANT value = {};
        value.vt = static_cast<VARTYPE>(type);
        values_.push_back({std::move(name), value, unusable, nowhere});
        return values_.back().value;
    }

    void AddEmpty() {
        Add("empty", VT_EMPTY);
        Add("null", VT_NULL, true);
        Add("left out", VT_ERROR).scode = DISP_E_PARAMNOTFOUND;
        Add("another error", VT_ERROR).scode = E_FAIL;
        Add("no object", VT_DISPATCH, true);
        Add("no unknown object", VT_UNKNOWN, true);
        Add("no array of variants", VT_ARRAY | VT_VARIANT, true);
        Add("no array of bytes", VT_ARRAY | VT_UI1, true);
        Add("array of numbers", VT_ARRAY | VT_I4, true).parray = SafeArrayCreateVector(VT_I4, 0, 3);
        Add("array without elements", VT_ARRAY | VT_BSTR, true).parray =
            SafeArrayCreateVector(VT_BSTR, 0, 0);
        // Types that no variant may have.
        for (const int type : {int{VT_VOID}, int{VT_HRESULT}, int{VT_PTR}, int{VT_SAFEARRAY},
                               int{VT_CARRAY}, int{VT_USERDEFINED}, int{VT_LPSTR}, int{VT_LPWSTR},
                               int{VT_CLSID}, 0x0FFF, VT_VECTOR | VT_I4, int{VT_VARIANT}})
            Add("type " + std::to_string(type), type, true);
        Add("no record", VT_RECORD, true);
    }

    void AddReferences() {
        for (const int type : {int{VT_I1},
                               int{VT_I2},
                               int{VT_I4},
                               int{VT_I8},
                               int{VT_UI1},
                               int{VT_UI4},
                               int{VT_INT},
                               int{VT_R4},
                               int{VT_R8},
                               int{VT_CY},
                               int{VT_DATE},
                               int{VT_BOOL},
                               int{VT_ERROR},
                               int{VT_BSTR},
                               int{VT_DECIMAL},
                               int{VT_VARIANT},
                               int{VT_DISPATCH},
                               int{VT_UNKNOWN},
                               VT_ARRAY | VT_VARIANT,
                               VT_ARRAY | VT_UI1,
                               int{VT_RECORD}})
            Add("reference of type " + std::to_string(type) + " to nothing", kReference | type,
                true, true);

        static VARIANT toNothing = {}, toItself = {}, circle[2] = {}, deep[100] = {};
        toNothing.vt = kReference | VT_BSTR;
        toItself.vt = kReference | VT_VARIANT;
        toItself.pvarVal = &toItself;
        for (int i = 0; i < 2; ++i) {
            circle[i].vt = kReference | VT_VARIANT;
            circle[i].pvarVal = &circle[1 - i];
        }
        for (int i = 0; i < 99; ++i) {
            deep[i].vt = kReference | VT_VARIANT;
            deep[i].pvarVal = &deep[i + 1];
        }
        deep[99].vt = kReference | VT_VARIANT;
        Add("reference to a reference to nothing", kReference | VT_VARIANT, true, true).pvarVal =
            &toNothing;
        Add("reference to itself", kReference | VT_VARIANT, true, true).pvarVal = &toItself;
        Add("references in a circle", kReference | VT_VARIANT, true, true).pvarVal = &circle[0];
        Add("a hundred references to nothing", kReference | VT_VARIANT, true, true).pvarVal =
            &deep[0];
        static BSTR noText = nullptr;
        Add("reference to the null text", kReference | VT_BSTR).pbstrVal = &noText;
        static IDispatch* noObject = nullptr;
        Add("reference to no object", kReference | VT_DISPATCH, true).ppdispVal = &noObject;
    }

    void AddNumbers() {
        using Double = std::numeric_limits<double>;
        Add("smallest byte", VT_I1).cVal = -128;
        Add("largest short", VT_I2).iVal = 32767;
        Add("smallest short", VT_I2).iVal = -32768;
        Add("largest long", VT_I4).lVal = 2147483647;
        Add("smallest long", VT_I4).lVal = -2147483647 - 1;
        Add("smallest 64-bit number", VT_I8).llVal = std::numeric_limits<LONGLONG>::min();
        Add("largest 64-bit number", VT_UI8).ullVal = std::numeric_limits<ULONGLONG>::max();
        Add("largest unsigned long", VT_UI4).ulVal = 0xFFFFFFFF;
        Add("not a number", VT_R8).dblVal = Double::quiet_NaN();
        Add("short not a number", VT_R4).fltVal = std::numeric_limits<float>::quiet_NaN();
        Add("infinity", VT_R8).dblVal = Double::infinity();
        Add("minus infinity", VT_R8).dblVal = -Double::infinity();
        Add("largest double", VT_R8).dblVal = Double::max();
        Add("smallest double", VT_R8).dblVal = Double::denorm_min();
        Add("smallest currency", VT_CY).cyVal.int64 = std::numeric_limits<LONGLONG>::min();
        Add("date that is no number", VT_DATE).date = Double::quiet_NaN();
        Add("date far away", VT_DATE).date = -1e18;
        Add("neither true nor false", VT_BOOL).boolVal = 7;
        DECIMAL number = {};
        number.Hi32 = 0xFFFFFFFF;
        number.Lo64 = std::numeric_limits<ULONGLONG>::max();
        number.sign = DECIMAL_NEG;
        AddDecimal("smallest decimal", number);
        number.scale = 28;
        AddDecimal("decimal with 28 places", number);
        number.scale = 255;
        number.sign = 0x55;
        AddDecimal("impossible decimal", number);
    }

    void AddDecimal(const char* name, const DECIMAL& number) {
        VARIANT& value = Add(name, VT_EMPTY);
        value.decVal = number; // lies over the type
        value.vt = VT_DECIMAL;
    }

    void AddText(const char* name, const std::wstring& text) {
        Add(name, VT_BSTR).bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }

    void AddTexts() {
        using namespace std::string_literals;
        Add("null text", VT_BSTR);
        AddText("text with zero characters", L"a\0b\0\0"s);
        AddText("zero character alone", L"\0"s);
        AddText("very long text", std::wstring(70000, L'ệ'));
        AddText("halves of characters", L"\xDC00\xD83D x \xD83D"s);
        AddText("control characters", L"\x01\x1B\r\n\t\x7F\xFFFF\xFEFF\x202E"s);
        AddText("format", L"%s%n%1!s!%ls%99999d");
        AddText("quotes", L"';--\"]}{\\"s);
        AddText("number beyond every range", L"1e999");
        AddText("digits", std::wstring(400, L'9'));
        Add("text of an odd number of bytes", VT_BSTR).bstrVal = SysAllocStringByteLen("abc", 3);
    }

    void AddHandle(const char* name, const void* handle) {
        Add(name, VT_I4).lVal = static_cast<LONG>(reinterpret_cast<LONG_PTR>(handle));
    }

    void AddWindows() {
        const HWND dead = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                          nullptr, nullptr, nullptr);
        DestroyWindow(dead);
        AddHandle("destroyed window", dead);
        AddHandle("window of another process", GetDesktopWindow());
        AddHandle("all windows", HWND_BROADCAST);
        AddHandle("parent of message windows", HWND_MESSAGE);
        AddHandle("menu", CreateMenu());
        AddHandle("brush", GetStockObject(WHITE_BRUSH));
        AddHandle("this process", GetCurrentProcess());
    }

    std::vector<HostileValue> values_;
};

} // namespace

const std::vector<HostileValue>& HostileValues() {
    static const std::vector<HostileValue> values = Table().Fill();
    return values;
}

} // namespace vndesk::test
