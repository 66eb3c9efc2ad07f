// SPDX-License-Identifier: MIT
// Every method of VnDesk.Varnok but the search, through the registered DLL.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/env.h"
#include "support/late_bound.h"
#include "support/temp_dir.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kAll[] = L"aăâ Người sử dụng: Đồng ý 12";

class VarnokTest : public testing::Test {
protected:
    void SetUp() override {
        CLSID clsid;
        ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.Varnok", &clsid));
        ASSERT_SUCCEEDED(
            CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&varnok)));
    }

    using TextMethod = HRESULT (STDMETHODCALLTYPE IVarnok::*)(BSTR, BSTR*);

    static std::wstring Take(BSTR text) {
        EXPECT_NE(nullptr, text) << "an empty text, not a null one";
        const std::wstring copy(text ? text : L"", SysStringLen(text));
        SysFreeString(text);
        return copy;
    }

    std::wstring Sign(const wchar_t* text) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(varnok->Sign(_bstr_t(text), &result));
        return Take(result);
    }
    std::wstring Mid1(const wchar_t* text, long position) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(varnok->Mid1(_bstr_t(text), position, &result));
        return Take(result);
    }
    std::wstring CvNStr(const _variant_t& number) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(varnok->CvNStr(number, &result));
        return Take(result);
    }
    double CvTextToN(const wchar_t* text) {
        double result = NAN;
        EXPECT_SUCCEEDED(varnok->CvTextToN(_bstr_t(text), &result));
        return result;
    }
    std::wstring ReadIni(const wchar_t* section, const wchar_t* key, const std::wstring& file) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(
            varnok->ReadRegVlA(_bstr_t(section), _bstr_t(key), _bstr_t(file.c_str()), &result));
        return Take(result);
    }
    void WriteIni(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                  const std::wstring& file) {
        EXPECT_SUCCEEDED(varnok->WriteRegA(_bstr_t(section), _bstr_t(key), _bstr_t(value),
                                           _bstr_t(file.c_str())));
    }
    long Copy(const std::wstring& from, const std::wstring& to, long failIfExists) {
        long done = -7;
        EXPECT_SUCCEEDED(
            varnok->CopyFile(_bstr_t(from.c_str()), _bstr_t(to.c_str()), failIfExists, &done));
        return done;
    }

    ComPtr<IVarnok> varnok;
};

// --- names ---

TEST_F(VarnokTest, UserNameIsTheSystems) {
    wchar_t name[257];
    DWORD size = 257;
    ASSERT_TRUE(GetUserNameW(name, &size));
    BSTR result = nullptr;
    EXPECT_SUCCEEDED(varnok->GetUSName(&result));
    EXPECT_EQ(name, Take(result));
    EXPECT_NE(L"", std::wstring(name));
}

TEST_F(VarnokTest, ComputerNameIsTheSystems) {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(GetComputerNameW(name, &size));
    BSTR result = nullptr;
    EXPECT_SUCCEEDED(varnok->GetPCName(&result));
    EXPECT_EQ(name, Take(result));
}

// --- files ---

class VarnokFileTest : public VarnokTest {
protected:
    void Write(const std::wstring& file, const char* text) {
        const HANDLE handle =
            CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        ASSERT_NE(INVALID_HANDLE_VALUE, handle);
        DWORD written = 0;
        WriteFile(handle, text, static_cast<DWORD>(strlen(text)), &written, nullptr);
        CloseHandle(handle);
    }
    static std::string Read(const std::wstring& file) {
        const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, 0, nullptr);
        if (handle == INVALID_HANDLE_VALUE)
            return "(no file)";
        char text[8192];
        DWORD size = 0;
        ReadFile(handle, text, sizeof text, &size, nullptr);
        CloseHandle(handle);
        return {text, size};
    }

    // A text as it is, also a null one, which a copy would make an empty one.
    static VARIANT Lent(BSTR text) {
        VARIANT lent = {};
        lent.vt = VT_BSTR;
        lent.bstrVal = text;
        return lent;
    }
    _variant_t CallLate(const wchar_t* member, std::vector<VARIANT> arguments) {
        std::reverse(arguments.begin(), arguments.end());
        DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        auto* name = const_cast<LPOLESTR>(member);
        DISPID id = 0;
        _variant_t result;
        EXPECT_SUCCEEDED(varnok->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id));
        EXPECT_SUCCEEDED(varnok->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &parameters,
                                        &result, nullptr, nullptr));
        return result;
    }

    TempDir folder;
    const std::wstring from = folder.File(L"dữ liệu.mdb"), to = folder.File(L"sao lưu.mdb");
};

TEST_F(VarnokFileTest, CopyKeepsAnExistingTargetWhenAskedTo) {
    Write(from, "new");
    EXPECT_NE(0, Copy(from, to, 1));
    EXPECT_EQ("new", Read(to));
    Write(from, "newer");
    EXPECT_EQ(0, Copy(from, to, 1));
    EXPECT_EQ(0, Copy(from, to, -1)) << "any number but 0 is yes";
    EXPECT_EQ("new", Read(to));
    EXPECT_NE(0, Copy(from, to, 0));
    EXPECT_EQ("newer", Read(to));
}

TEST_F(VarnokFileTest, CopyOfAMissingFileGivesZero) {
    EXPECT_EQ(0, Copy(from, to, 0));
    EXPECT_EQ("(no file)", Read(to));
    Write(from, "x");
    EXPECT_EQ(0, Copy(from, folder.File(L"no such folder\\a.mdb"), 0));
    EXPECT_EQ(0, Copy(L"", L"", 0));
}

TEST_F(VarnokFileTest, BackupOverwrites) {
    Write(from, "new");
    Write(to, "old and longer");
    long done = 0;
    EXPECT_SUCCEEDED(varnok->BackUpData(_bstr_t(from.c_str()), _bstr_t(to.c_str()), &done));
    EXPECT_NE(0, done);
    EXPECT_EQ("new", Read(to));
    EXPECT_SUCCEEDED(
        varnok->BackUpData(_bstr_t(folder.File(L"no.mdb").c_str()), _bstr_t(to.c_str()), &done));
    EXPECT_EQ(0, done);
    EXPECT_EQ("new", Read(to));
}

TEST_F(VarnokFileTest, NothingIsCopiedWhenTheResultHasNoPlace) {
    Write(from, "new");
    EXPECT_HR(E_POINTER, varnok->BackUpData(_bstr_t(from.c_str()), _bstr_t(to.c_str()), nullptr));
    EXPECT_HR(E_POINTER, varnok->CopyFile(_bstr_t(from.c_str()), _bstr_t(to.c_str()), 0, nullptr));
    EXPECT_EQ("(no file)", Read(to));
}

// --- initialisation files ---

TEST_F(VarnokFileTest, InitialisationFileKeepsVietnameseText) {
    const std::wstring file = folder.File(L"cấu hình.ini");
    // A Unicode file: the profile functions keep the encoding that they find.
    Write(file, "");
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD written = 0;
    WriteFile(handle, "\xFF\xFE", 2, &written, nullptr);
    CloseHandle(handle);
    WriteIni(L"Công ty", L"Tên", kAll, file);
    WriteIni(L"Công ty", L"Mã", L"  12 ", file);
    EXPECT_EQ(kAll, ReadIni(L"Công ty", L"Tên", file));
    wchar_t platform[64];
    GetPrivateProfileStringW(L"Công ty", L"Mã", L"", platform, 64, file.c_str());
    EXPECT_EQ(platform, ReadIni(L"Công ty", L"Mã", file));
}

TEST_F(VarnokFileTest, InitialisationFileIsMadeWhenMissing) {
    const std::wstring file = folder.File(L"new.ini");
    WriteIni(L"S", L"K", L"v 1", file);
    EXPECT_EQ("[S]\r\nK=v 1\r\n", Read(file));
    EXPECT_EQ(L"v 1", ReadIni(L"S", L"K", file));
    WriteIni(L"S", L"K", L"v 2", file);
    EXPECT_EQ(L"v 2", ReadIni(L"S", L"K", file));
}

TEST_F(VarnokFileTest, WhatIsNotInTheInitialisationFileIsEmpty) {
    const std::wstring file = folder.File(L"new.ini");
    EXPECT_EQ(L"", ReadIni(L"S", L"K", file));
    WriteIni(L"S", L"K", L"v", file);
    EXPECT_EQ(L"", ReadIni(L"S", L"Other", file));
    EXPECT_EQ(L"", ReadIni(L"Other", L"K", file));
    // No file can be made there; nothing is raised.
    WriteIni(L"S", L"K", L"v", folder.File(L"no such folder\\a.ini"));
}

TEST_F(VarnokFileTest, AtMost254CharactersAreRead) {
    const std::wstring file = folder.File(L"long.ini");
    WriteIni(L"S", L"Fits", std::wstring(254, L'x').c_str(), file);
    WriteIni(L"S", L"Long", std::wstring(300, L'y').c_str(), file);
    EXPECT_EQ(std::wstring(254, L'x'), ReadIni(L"S", L"Fits", file));
    EXPECT_EQ(std::wstring(254, L'y'), ReadIni(L"S", L"Long", file));
}

// What the profile functions do without a text, as hosts ask for it by vbNullString.
TEST_F(VarnokFileTest, NullTextsDeleteFromTheInitialisationFile) {
    const std::wstring file = folder.File(L"new.ini");
    const _bstr_t path(file.c_str()), section(L"S"), key(L"K");
    for (const wchar_t* name : {L"K", L"K2", L"K3"})
        WriteIni(L"S", name, L"v", file);
    WriteIni(L"T", L"K", L"v", file);
    EXPECT_SUCCEEDED(varnok->WriteRegA(section, key, _bstr_t(L""), path));
    EXPECT_EQ("[S]\r\nK=\r\nK2=v\r\nK3=v\r\n", Read(file).substr(0, 21)) << "empty is a value";
    EXPECT_SUCCEEDED(varnok->WriteRegA(section, key, nullptr, path));
    EXPECT_EQ("[S]\r\nK2=v\r\n", Read(file).substr(0, 11)) << "the key";
    CallLate(L"WriteRegA", {Lent(section), Lent(_bstr_t(L"K2")), Lent(nullptr), Lent(path)});
    EXPECT_EQ("[S]\r\nK3=v\r\n", Read(file).substr(0, 11)) << "late bound";
    VARIANT null = Lent(nullptr), variable = {};
    variable.vt = VT_BYREF | VT_VARIANT;
    variable.pvarVal = &null;
    CallLate(L"WriteRegA", {Lent(section), variable, Lent(_bstr_t(L"ignored")), Lent(path)});
    EXPECT_EQ(std::string::npos, Read(file).find("[S]")) << "the section, by a variable";
    EXPECT_EQ(L"v", ReadIni(L"T", L"K", file));
}

TEST_F(VarnokFileTest, NullTextsListTheNamesOfTheInitialisationFile) {
    const std::wstring file = folder.File(L"new.ini");
    const _bstr_t path(file.c_str());
    for (const wchar_t* name : {L"First", L"Second"})
        WriteIni(L"S", name, L"v", file);
    WriteIni(L"T", L"K", L"v", file);
    const auto read = [&](BSTR section, BSTR key) {
        BSTR result = nullptr;
        EXPECT_SUCCEEDED(varnok->ReadRegVlA(section, key, path, &result));
        return Take(result);
    };
    EXPECT_EQ(L"First", read(_bstr_t(L"S"), nullptr)) << "the text up to the first zero";
    EXPECT_EQ(L"S", read(nullptr, nullptr));
    EXPECT_EQ(L"S", read(nullptr, _bstr_t(L"K")));
    EXPECT_EQ(L"", read(_bstr_t(L""), _bstr_t(L"K")));
    EXPECT_EQ(L"", read(_bstr_t(L"none"), nullptr));
    EXPECT_EQ(_bstr_t(L"First"),
              _bstr_t(CallLate(L"ReadRegVlA", {Lent(_bstr_t(L"S")), Lent(nullptr), Lent(path)})));
}

// --- text ---

TEST_F(VarnokTest, SignIsTheFirstCharacterOnly) {
    EXPECT_EQ(L"+", Sign(L"+5"));
    EXPECT_EQ(L"-", Sign(L"-5"));
    EXPECT_EQ(L"-", Sign(L"-"));
    EXPECT_EQ(L"", Sign(L"5"));
    EXPECT_EQ(L"", Sign(L"5-"));
    EXPECT_EQ(L"", Sign(L" -5"));
    EXPECT_EQ(L"", Sign(L""));
    BSTR result = nullptr;
    EXPECT_SUCCEEDED(varnok->Sign(nullptr, &result)) << "a null text is an empty one";
    EXPECT_EQ(L"", Take(result));
}

TEST_F(VarnokTest, Mid1OutsideTheTextIsEmpty) {
    EXPECT_EQ(L"Đ", Mid1(L"Đồng", 1));
    EXPECT_EQ(L"g", Mid1(L"Đồng", 4));
    EXPECT_EQ(L"", Mid1(L"Đồng", 0));
    EXPECT_EQ(L"", Mid1(L"Đồng", 5));
    EXPECT_EQ(L"", Mid1(L"Đồng", -1));
    EXPECT_EQ(L"", Mid1(L"", 1));
    EXPECT_EQ(L"", Mid1(L"abc", std::numeric_limits<long>::max()));
    EXPECT_EQ(L"", Mid1(L"abc", std::numeric_limits<long>::min()));
}

// --- numbers ---

TEST_F(VarnokTest, NumberTextGroupsThousands) {
    EXPECT_EQ(L"-1.234.567,5", CvNStr(-1234567.5));
    EXPECT_EQ(L"999", CvNStr(999L));
    EXPECT_EQ(L"1.000", CvNStr(1000L));
    EXPECT_EQ(L"12", CvNStr(L"12"));
    EXPECT_EQ(L"1.234,5", CvNStr(L"1234,5"));
    EXPECT_EQ(L"+1.000.000", CvNStr(L" +1000000 "));
    EXPECT_EQ(L"0", CvNStr(0L));
}

TEST_F(VarnokTest, NumberTextTakesEveryKindOfNumber) {
    VARIANT currency = {}, byte = {};
    currency.vt = VT_CY;
    currency.cyVal.int64 = 12345675; // 1234.5675
    byte.vt = VT_UI1;
    byte.bVal = 255;
    EXPECT_EQ(L"1.234,5675", CvNStr(currency));
    EXPECT_EQ(L"255", CvNStr(byte));
    EXPECT_EQ(L"-2.147.483.648", CvNStr(std::numeric_limits<long>::min()));
    EXPECT_EQ(L"1.234,5", CvNStr(1234.5f));
    EXPECT_EQ(L"0,5", CvNStr(0.5));
    EXPECT_EQ(L"", CvNStr(_variant_t()));
    _variant_t null;
    null.vt = VT_NULL;
    EXPECT_EQ(L"", CvNStr(null));
    long number = 4321;
    EXPECT_EQ(L"4.321", CvNStr(ByRef(number)));
    _variant_t variable(4321L);
    EXPECT_EQ(L"4.321", CvNStr(ByRef(variable)));
}

TEST_F(VarnokTest, SmallNumbersHaveAllTheirDecimals) {
    EXPECT_EQ(L"0,00001", CvNStr(0.00001));
    EXPECT_EQ(L"-0,00001", CvNStr(-0.00001));
    EXPECT_EQ(L"0,0000123456", CvNStr(0.0000123456));
    EXPECT_EQ(L"0,0666666666666667", CvNStr(1.0 / 15));
    EXPECT_EQ(L"0,0000000000000000000125", CvNStr(1.25e-20));
    EXPECT_EQ(L"0,00001", CvNStr(0.00001f));
    EXPECT_EQ(L"0,3333333", CvNStr(1.0f / 3));
    double number = 0.00001;
    VARIANT reference = {};
    reference.vt = VT_BYREF | VT_R8;
    reference.pdblVal = &number;
    EXPECT_EQ(L"0,00001", CvNStr(_variant_t(reference)));
    _variant_t variable(number);
    EXPECT_EQ(L"0,00001", CvNStr(ByRef(variable)));
    EXPECT_EQ(0.00001, CvTextToN(CvNStr(0.00001).c_str()));
    EXPECT_EQ(L"999.999.999.999.999", CvNStr(999999999999999.0));
    EXPECT_EQ(L"1,5E+15", CvNStr(1.5e15)) << "as the reference says";
    EXPECT_EQ(L"1.234.567", CvNStr(1234567.0f));
}

TEST_F(VarnokTest, NumberTextIsReadBack) {
    EXPECT_EQ(-1234.5, CvTextToN(L"-1.234,5"));
    EXPECT_EQ(1234, CvTextToN(L"1.234"));
    EXPECT_EQ(-5, CvTextToN(L"-5"));
    EXPECT_EQ(0, CvTextToN(L"không"));
    EXPECT_EQ(0, CvTextToN(L""));
    EXPECT_EQ(0.25, CvTextToN(L",25"));
    EXPECT_EQ(7, CvTextToN(L" 7 , "));
    for (const double number : {0.0, 1.0, -1.0, 999.0, 1000.0, -1234567.5, 123456789.25})
        EXPECT_EQ(number, CvTextToN(CvNStr(number).c_str())) << number;
}

TEST_F(VarnokTest, CallsByNameAgreeWithTheVtable) {
    const LateBound late(varnok.Get());
    for (const wchar_t* text : {L"-1.234,5", L"+5", L"", L"không"}) {
        EXPECT_EQ(Sign(text), static_cast<const wchar_t*>(_bstr_t(late.Call(L"Sign", {text}))));
        EXPECT_EQ(CvTextToN(text), static_cast<double>(late.Call(L"CvTextToN", {text})));
        EXPECT_EQ(Mid1(text, 2),
                  static_cast<const wchar_t*>(_bstr_t(late.Call(L"Mid1", {text, 2L}))));
        EXPECT_EQ(CvNStr(text), static_cast<const wchar_t*>(_bstr_t(late.Call(L"CvNStr", {text}))));
    }
    const _variant_t number = late.Call(L"CvTextToN", {L"1,5"});
    EXPECT_EQ(VT_R8, number.vt);
    EXPECT_EQ(VT_I4, late.Call(L"CopyFile", {L"", L"", 0L}).vt);
}

// --- keys ---

struct KeyMessage {
    UINT message;
    WPARAM key;
    bool shift, control, alt;
    bool operator==(const KeyMessage&) const = default;
};

void PrintTo(const KeyMessage& m, std::ostream* out) {
    *out << std::hex << "{" << m.message << " key " << m.key << (m.shift ? " Shift" : "")
         << (m.control ? " Control" : "") << (m.alt ? " Alt" : "") << "}";
}

// A window that has the keyboard and writes down the keys that arrive, with the modifiers at that
// moment.
class KeyWindow {
public:
    KeyWindow() {
        WNDCLASSW type = {};
        type.lpfnWndProc = Procedure;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = L"VnDeskKeyTest";
        RegisterClassW(&type);
        window_ = CreateWindowExW(0, type.lpszClassName, L"phím", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  50, 50, 200, 100, nullptr, nullptr, type.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetForegroundWindow(window_);
        SetFocus(window_);
        PumpUntil([this] { return GetForegroundWindow() == window_ && GetFocus() == window_; });
    }
    ~KeyWindow() {
        DestroyWindow(window_);
        UnregisterClassW(L"VnDeskKeyTest", GetModuleHandleW(nullptr));
    }

    std::vector<KeyMessage> WaitFor(size_t count) {
        PumpUntil([&] { return keys_.size() >= count; }, 3000);
        PumpUntil([] { return false; }, 100); // and no more than these
        return keys_;
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<KeyWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self && message >= WM_KEYFIRST && message <= WM_KEYLAST) {
            const auto held = [](int key) { return GetKeyState(key) < 0; };
            if (message != WM_CHAR && message != WM_SYSCHAR)
                self->keys_.push_back(
                    {message, wParam, held(VK_SHIFT), held(VK_CONTROL), held(VK_MENU)});
            return 0; // Alt alone would open the menu
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    HWND window_ = nullptr;
    std::vector<KeyMessage> keys_;
};

class VarnokKeyTest : public VarnokTest {
protected:
    std::vector<KeyMessage> Stroke(long key, long shift, size_t count) {
        EXPECT_SUCCEEDED(varnok->Gui_Phim(key, shift));
        return window.WaitFor(count);
    }
    // No test may leave a key pressed for the next one.
    void TearDown() override {
        for (const int key : {VK_SHIFT, VK_CONTROL, VK_MENU})
            EXPECT_GE(GetAsyncKeyState(key), 0) << "key " << key << " is still held";
    }
    KeyWindow window;
};

TEST_F(VarnokKeyTest, StrokeWithoutModifier) {
    const std::vector<KeyMessage> wanted = {{WM_KEYDOWN, VK_TAB, false, false, false},
                                            {WM_KEYUP, VK_TAB, false, false, false}};
    EXPECT_EQ(wanted, Stroke(VK_TAB, 0, 2));
}

TEST_F(VarnokKeyTest, StrokeWithShift) {
    const std::vector<KeyMessage> wanted = {{WM_KEYDOWN, VK_SHIFT, true, false, false},
                                            {WM_KEYDOWN, 'A', true, false, false},
                                            {WM_KEYUP, 'A', true, false, false},
                                            {WM_KEYUP, VK_SHIFT, false, false, false}};
    EXPECT_EQ(wanted, Stroke('A', 1, 4));
}

TEST_F(VarnokKeyTest, StrokeWithControl) {
    const std::vector<KeyMessage> wanted = {{WM_KEYDOWN, VK_CONTROL, false, true, false},
                                            {WM_KEYDOWN, 'C', false, true, false},
                                            {WM_KEYUP, 'C', false, true, false},
                                            {WM_KEYUP, VK_CONTROL, false, false, false}};
    EXPECT_EQ(wanted, Stroke('C', 2, 4));
}

TEST_F(VarnokKeyTest, StrokeWithAlt) {
    const std::vector<KeyMessage> wanted = {{WM_SYSKEYDOWN, VK_MENU, false, false, true},
                                            {WM_SYSKEYDOWN, 'D', false, false, true},
                                            {WM_SYSKEYUP, 'D', false, false, true},
                                            {WM_KEYUP, VK_MENU, false, false, false}};
    EXPECT_EQ(wanted, Stroke('D', 3, 4));
}

TEST_F(VarnokKeyTest, OtherShiftStatesSendTheKeyAlone) {
    const std::vector<KeyMessage> wanted = {{WM_KEYDOWN, 'E', false, false, false},
                                            {WM_KEYUP, 'E', false, false, false}};
    EXPECT_EQ(wanted, Stroke('E', 4, 2));
    std::vector<KeyMessage> twice = wanted;
    twice.insert(twice.end(), wanted.begin(), wanted.end());
    EXPECT_EQ(twice, Stroke('E', -1, 4));
}

TEST_F(VarnokKeyTest, SingleEventsPressAndRelease) {
    EXPECT_SUCCEEDED(varnok->ESendKey(VK_SHIFT, 0));
    EXPECT_SUCCEEDED(varnok->ESendKey('F', 0));
    EXPECT_SUCCEEDED(varnok->ESendKey(VK_SHIFT, 2));
    EXPECT_SUCCEEDED(varnok->ESendKey('F', 2));
    const std::vector<KeyMessage> wanted = {{WM_KEYDOWN, VK_SHIFT, true, false, false},
                                            {WM_KEYDOWN, 'F', true, false, false},
                                            {WM_KEYUP, VK_SHIFT, false, false, false},
                                            {WM_KEYUP, 'F', false, false, false}};
    EXPECT_EQ(wanted, window.WaitFor(4));
}

TEST_F(VarnokKeyTest, StrokeFromAScriptVariableArrives) {
    const LateBound late(varnok.Get());
    _variant_t key(static_cast<long>(VK_F5)), shift(L"1");
    late.Call(L"Gui_Phim", {ByRef(key), ByRef(shift)});
    const auto keys = window.WaitFor(4);
    ASSERT_EQ(4u, keys.size());
    EXPECT_EQ((KeyMessage{WM_KEYDOWN, VK_F5, true, false, false}), keys[1]);
}

// --- help ---

// Wine hands WinHelp's arguments to the window of its help program, if there is one.
class HelpProgram {
public:
    HelpProgram() {
        WNDCLASSW type = {};
        type.lpfnWndProc = Procedure;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = L"MS_WINHELP";
        RegisterClassW(&type);
        window_ = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP, 0, 0, 1, 1, nullptr,
                                  nullptr, type.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~HelpProgram() {
        DestroyWindow(window_);
        UnregisterClassW(L"MS_WINHELP", GetModuleHandleW(nullptr));
    }

    HWND asked = nullptr;
    std::string data;
    LRESULT answer = 1;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<HelpProgram*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!self || message != WM_COPYDATA)
            return DefWindowProcW(window, message, wParam, lParam);
        const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        self->asked = reinterpret_cast<HWND>(wParam);
        self->data.assign(static_cast<const char*>(copy->lpData), copy->cbData);
        return self->answer;
    }
    HWND window_ = nullptr;
};

TEST_F(VarnokTest, HelpIsCalledWithTheArgumentsGiven) {
    if (!RunningUnderWine())
        GTEST_SKIP() << "only Wine's help engine can be listened to";
    HelpProgram help;
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                       nullptr, nullptr);
    const auto handle = static_cast<long>(reinterpret_cast<LONG_PTR>(owner));
    long done = -7;
    EXPECT_SUCCEEDED(
        varnok->WinHelp(handle, _bstr_t(L"C:\\huongdan.hlp"), HELP_CONTEXT, 0x12345678, &done));
    EXPECT_NE(0, done);
    EXPECT_EQ(owner, help.asked);
    EXPECT_NE(std::string::npos, help.data.find("huongdan.hlp"));
    EXPECT_NE(std::string::npos, help.data.find("\x78\x56\x34\x12"));
    help.answer = 0;
    EXPECT_SUCCEEDED(varnok->WinHelp(handle, _bstr_t(L"C:\\huongdan.hlp"), HELP_CONTEXT, 1, &done));
    EXPECT_EQ(0, done) << "the engine's answer is the result";
    DestroyWindow(owner);
}

} // namespace
