// SPDX-License-Identifier: MIT
// VnDesk.clsRegistry through the registered DLL; what it wrote is read back by the wide functions.
// Each test leaves the registry as it found it.
#include <gtest/gtest.h>

#include "com/registered_dll.h"
#include "support/check_hr.h"
#include "support/late_bound.h"
#include "support/script_host.h"
#include "support/text.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kOdbc[] = L"SOFTWARE\\ODBC";
constexpr wchar_t kOdbcIni[] = L"SOFTWARE\\ODBC\\ODBC.INI";
constexpr wchar_t kList[] = L"SOFTWARE\\ODBC\\ODBC.INI\\ODBC Data Sources";
// The part of the machine's registry that programs of this process's word size see.
constexpr REGSAM kView = sizeof(void*) == 8 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;

class RegistryTest : public testing::Test {
protected:
    void SetUp() override {
        CLSID clsid;
        ASSERT_SUCCEEDED(CLSIDFromProgID(L"VnDesk.clsRegistry", &clsid));
        ASSERT_SUCCEEDED(
            CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&registry)));
    }
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, parent.c_str()); }

    // Stores a value by the wide functions.
    void Store(const wchar_t* name, DWORD type, const void* data, size_t size) {
        HKEY opened = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyW(HKEY_CURRENT_USER, key.c_str(), &opened));
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(opened, name, 0, type, static_cast<const BYTE*>(data),
                                 static_cast<DWORD>(size)));
        RegCloseKey(opened);
    }
    void StoreText(const wchar_t* name, DWORD type, const std::wstring& text) {
        Store(name, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void StoreNumber(const wchar_t* name, DWORD number) {
        Store(name, REG_DWORD, &number, sizeof number);
    }

    struct Answer {
        bool opened;
        std::wstring data;
        bool operator==(const Answer&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Answer& answer) {
            return out << answer.opened << " \"" << ToUtf8(answer.data) << "\"";
        }
    };
    Answer Get(REGToolRootTypes root, const std::wstring& path, const wchar_t* name) {
        _bstr_t pathText(path.c_str()), nameText(name), data(L"(before)");
        VARIANT_BOOL opened = 77;
        EXPECT_SUCCEEDED(registry->GetKeyValue(root, &pathText.GetBSTR(), &nameText.GetBSTR(),
                                               &data.GetBSTR(), &opened));
        EXPECT_TRUE(opened == VARIANT_TRUE || opened == VARIANT_FALSE) << opened;
        return {opened != VARIANT_FALSE, {data.GetBSTR(), SysStringLen(data.GetBSTR())}};
    }
    Answer Get(const wchar_t* name) { return Get(HK_CURRENT_USER, key, name); }

    long Write(REGToolRootTypes root, const std::wstring& path, const wchar_t* name,
               const std::wstring& text) {
        _bstr_t pathText(path.c_str()), nameText(name), data(text.c_str());
        long result = -7;
        EXPECT_SUCCEEDED(registry->WriteRegEdit(root, &pathText.GetBSTR(), &nameText.GetBSTR(),
                                                &data.GetBSTR(), &result));
        return result;
    }
    // Type and characters of a value of the test's key, final zeros included.
    std::wstring Raw(const wchar_t* name) {
        const RegistryTree tree = ReadTree(HKEY_CURRENT_USER, key);
        const auto found = tree.find(key + L"|" + name);
        return found == tree.end() ? L"(none)" : found->second;
    }

    const std::wstring parent = L"Software\\VnDesk test " + std::to_wstring(GetCurrentProcessId());
    const std::wstring key = parent + L"\\Settings";
    ComPtr<IRegistry> registry;
};

TEST_F(RegistryTest, RootsHaveThePlatformsNumbers) {
    const auto number = [](HKEY root) {
        return static_cast<long>(reinterpret_cast<LONG_PTR>(root));
    };
    EXPECT_EQ(number(HKEY_CLASSES_ROOT), static_cast<long>(HK_CLASSES_ROOT));
    EXPECT_EQ(number(HKEY_CURRENT_USER), static_cast<long>(HK_CURRENT_USER));
    EXPECT_EQ(number(HKEY_LOCAL_MACHINE), static_cast<long>(HK_LOCAL_MACHINE));
    EXPECT_EQ(number(HKEY_USERS), static_cast<long>(HK_USERS));
    EXPECT_EQ(number(HKEY_PERFORMANCE_DATA), static_cast<long>(HK_PERFORMANCE_DATA));
    EXPECT_EQ(number(HKEY_CURRENT_CONFIG), static_cast<long>(HK_CURRENT_CONFIG));
    EXPECT_EQ(number(HKEY_DYN_DATA), static_cast<long>(HK_DYN_DATA));
}

// --- reading ---

TEST_F(RegistryTest, TextIsReadAsItIs) {
    StoreText(L"a", REG_SZ, L"C:\\Sao luu");
    EXPECT_EQ((Answer{true, L"C:\\Sao luu"}), Get(L"a"));
    StoreText(L"a", REG_SZ, L"");
    EXPECT_EQ((Answer{true, L""}), Get(L"a"));
    Store(L"a", REG_SZ, L"abc", 3 * sizeof(wchar_t));
    EXPECT_EQ((Answer{true, L"abc"}), Get(L"a")) << "stored without a final zero";
    StoreText(L"", REG_SZ, L"own");
    EXPECT_EQ((Answer{true, L"own"}), Get(L"")) << "the key's own value";
}

TEST_F(RegistryTest, NumberOf32BitsIsReadInDecimal) {
    for (const auto& [number, text] : {std::pair{0x10ul, L"16"},
                                       {0ul, L"0"},
                                       {255ul, L"255"},
                                       {0x12345678ul, L"305419896"},
                                       {0x00008000ul, L"32768"},
                                       {0x7FFFFFFFul, L"2147483647"},
                                       {0xFFFFFFFFul, L"-1"}}) {
        StoreNumber(L"n", number);
        EXPECT_EQ((Answer{true, text}), Get(L"n")) << number;
    }
}

TEST_F(RegistryTest, OtherTypesAreReadRaw) {
    StoreText(L"path", REG_EXPAND_SZ, L"%TEMP%\\a");
    EXPECT_EQ((Answer{true, L"%TEMP%\\a"}), Get(L"path"));
    Store(L"bytes", REG_BINARY, "\x10\x41\x00\x42", 4);
    EXPECT_EQ((Answer{true, std::wstring(L"\x10"
                                         L"A\0B",
                                         4)}),
              Get(L"bytes"));
    Store(L"bytes", REG_BINARY, "\x10\x41\x00", 3);
    EXPECT_EQ((Answer{true, L"\x10"
                            L"A"}),
              Get(L"bytes"))
        << "one final zero is dropped";
}

TEST_F(RegistryTest, MissingValueOfAnExistingKeyIsEmpty) {
    StoreText(L"a", REG_SZ, L"x");
    EXPECT_EQ((Answer{true, L""}), Get(L"no such value"));
}

TEST_F(RegistryTest, LongValueIsReadUpToTheBuffersSize) {
    StoreText(L"a", REG_SZ, std::wstring(1023, L'x'));
    EXPECT_EQ((Answer{true, std::wstring(1023, L'x')}), Get(L"a"));
    StoreText(L"a", REG_SZ, std::wstring(1024, L'x'));
    EXPECT_EQ((Answer{true, L""}), Get(L"a")) << "what does not fit is not cut";
}

TEST_F(RegistryTest, MissingKeyGivesFalseAndLeavesTheText) {
    EXPECT_EQ((Answer{false, L"(before)"}), Get(L"a"));
    StoreText(L"a", REG_SZ, L"x");
    EXPECT_EQ((Answer{false, L"(before)"}), Get(HK_CURRENT_USER, key + L"\\sub", L"a"));
    EXPECT_EQ((Answer{false, L"(before)"}), Get(HK_USERS, key, L"a"));
    EXPECT_EQ((Answer{false, L"(before)"}), Get(static_cast<REGToolRootTypes>(0), key, L"a"));
}

TEST_F(RegistryTest, EveryRootIsReached) {
    EXPECT_TRUE(Get(HK_CLASSES_ROOT, L"VnDesk.clsRegistry", L"").opened);
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\VnDesk.clsRegistry"),
              Get(HK_CLASSES_ROOT, L"VnDesk.clsRegistry", L"").data);
    EXPECT_EQ(RegistryText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\VnDesk.clsRegistry\\CLSID"),
              Get(HK_LOCAL_MACHINE, L"Software\\Classes\\VnDesk.clsRegistry\\CLSID", L"").data);
    EXPECT_TRUE(Get(HK_USERS, L"", L"").opened);
}

// --- writing ---

TEST_F(RegistryTest, WriteMakesTheKeyAndTheValue) {
    EXPECT_EQ(0, Write(HK_CURRENT_USER, key + L"\\a\\b", L"Name", L"C:\\Du lieu"));
    EXPECT_EQ(L"C:\\Du lieu", RegistryText(HKEY_CURRENT_USER, key + L"\\a\\b", L"Name"));
    EXPECT_EQ(0, Write(HK_CURRENT_USER, key + L"\\a\\b", L"Name", L"x"));
    EXPECT_EQ(0, Write(HK_CURRENT_USER, key + L"\\a\\b", L"", L"own"));
    EXPECT_EQ((Answer{true, L"x"}), Get(HK_CURRENT_USER, key + L"\\a\\b", L"Name"));
    EXPECT_EQ((Answer{true, L"own"}), Get(HK_CURRENT_USER, key + L"\\a\\b", L""));
}

TEST_F(RegistryTest, WrittenTextHasTypeOneAndNoFinalZero) {
    Write(HK_CURRENT_USER, key, L"a", L"abc");
    EXPECT_EQ(L"1:abc", Raw(L"a"));
    Write(HK_CURRENT_USER, key, L"a", L"");
    EXPECT_EQ(L"1:", Raw(L"a"));
    Write(HK_CURRENT_USER, key, L"a", std::wstring(1500, L'y'));
    EXPECT_EQ(L"1:" + std::wstring(1500, L'y'), Raw(L"a"));
}

TEST_F(RegistryTest, NumberIsReplacedByText) {
    StoreNumber(L"n", 16);
    Write(HK_CURRENT_USER, key, L"n", L"17");
    EXPECT_EQ(L"1:17", Raw(L"n"));
    EXPECT_EQ((Answer{true, L"17"}), Get(L"n"));
}

TEST_F(RegistryTest, TextsGoThroughTheSystemsCodePage) {
    const wchar_t* text = L"Café — 10 €";
    char ansi[64];
    BOOL lost = FALSE;
    WideCharToMultiByte(CP_ACP, 0, text, -1, ansi, sizeof ansi, nullptr,
                        GetACP() == CP_UTF8 ? nullptr : &lost);
    wchar_t back[64];
    MultiByteToWideChar(CP_ACP, 0, ansi, -1, back, 64);
    Write(HK_CURRENT_USER, key, L"a", text);
    EXPECT_EQ(std::wstring(L"1:") + back, Raw(L"a"));
    EXPECT_EQ((Answer{true, back}), Get(L"a"));
}

TEST_F(RegistryTest, WriteWhereNothingCanBeWrittenIsSilent) {
    EXPECT_EQ(0, Write(static_cast<REGToolRootTypes>(0), key, L"a", L"x"));
    EXPECT_EQ(0, Write(HK_DYN_DATA, key, L"a", L"x"));
    EXPECT_EQ(0, Write(HK_PERFORMANCE_DATA, key, L"a", L"x"));
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, key));
}

TEST_F(RegistryTest, ScriptReadsAndWrites) {
    ScriptRunner script;
    script.RunOk(L"Const HK_CURRENT_USER = -2147483647\n"
                 L"Set r = WScript.CreateObject(\"VnDesk.clsRegistry\")\n"
                 L"key = \"" +
                 key +
                 L"\"\n"
                 L"Echo r.GetKeyValue(HK_CURRENT_USER, key, \"a\", text)\n"
                 L"Echo r.WriteRegEdit(HK_CURRENT_USER, key, \"a\", 12)\n"
                 L"Echo r.GetKeyValue(HK_CURRENT_USER, key, \"a\", text), text");
    EXPECT_EQ((std::vector<std::wstring>{L"False", L"0", L"True 12"}), script.Lines());
}

// --- data sources ---

class DataSourceTest : public RegistryTest {
protected:
    void SetUp() override {
        RegistryTest::SetUp();
        before_ = ReadTree(HKEY_LOCAL_MACHINE, kOdbc, kView);
        hadList_ = KeyExists(HKEY_LOCAL_MACHINE, kList, kView);
        hadIni_ = KeyExists(HKEY_LOCAL_MACHINE, kOdbcIni, kView);
        hadOdbc_ = KeyExists(HKEY_LOCAL_MACHINE, kOdbc, kView);
    }
    void TearDown() override {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, SourceKey().c_str());
        HKEY list = nullptr;
        if (RegOpenKeyW(HKEY_LOCAL_MACHINE, kList, &list) == ERROR_SUCCESS) {
            RegDeleteValueW(list, name.c_str());
            RegCloseKey(list);
        }
        if (!hadList_)
            RegDeleteKeyW(HKEY_LOCAL_MACHINE, kList);
        if (!hadIni_)
            RegDeleteKeyW(HKEY_LOCAL_MACHINE, kOdbcIni);
        if (!hadOdbc_)
            RegDeleteKeyW(HKEY_LOCAL_MACHINE, kOdbc);
        EXPECT_EQ(before_, ReadTree(HKEY_LOCAL_MACHINE, kOdbc, kView));
        RegistryTest::TearDown();
    }

    std::wstring SourceKey() const { return std::wstring(kOdbcIni) + L"\\" + name; }
    // What was added below ODBC, seen from there.
    RegistryTree Added() const {
        RegistryTree added;
        const std::wstring root = std::wstring(kOdbcIni) + L"\\";
        for (const auto& [entry, data] : ReadTree(HKEY_LOCAL_MACHINE, kOdbc, kView))
            if (!before_.contains(entry) && entry.find(root) == 0 && entry != kList)
                added[entry.substr(root.size())] = data;
        return added;
    }

    long CreateSqlServer(const wchar_t* description, const wchar_t* database, const wchar_t* server,
                         const wchar_t* title) {
        _bstr_t texts[] = {name.c_str(), description, database, server, title};
        long result = -7;
        EXPECT_SUCCEEDED(registry->Create_DSN(&texts[0].GetBSTR(), &texts[1].GetBSTR(),
                                              &texts[2].GetBSTR(), &texts[3].GetBSTR(),
                                              &texts[4].GetBSTR(), &result));
        return result;
    }
    long CreateExcel(const wchar_t* folder, const wchar_t* workbook, const wchar_t* type,
                     const wchar_t* driver) {
        _bstr_t texts[] = {name.c_str(), folder, workbook, type, driver};
        long result = -7;
        EXPECT_SUCCEEDED(registry->Create_DSN_EXL(&texts[0].GetBSTR(), &texts[1].GetBSTR(),
                                                  &texts[2].GetBSTR(), &texts[3].GetBSTR(),
                                                  &texts[4].GetBSTR(), &result));
        return result;
    }
    RegistryTree ExcelEntries(const wchar_t* driverId) const {
        return {{name, L""},
                {name + L"|DBQ", L"1:C:\\Bang luong.xls"},
                {name + L"|Description", L"1:VN"},
                {name + L"|DefaultDir", L"1:C:\\Du lieu"},
                {name + L"|DRIVER", L"1:Microsoft Excel Driver (*.xls)"},
                {name + L"|DriverId", std::wstring(L"1:") + driverId},
                {name + L"|FIL", L"1:excel 8.0"},
                {name + L"|UID", L"1:admin"},
                {name + L"|SafeTransactions", L"1:0"},
                {name + L"|ReadOnly", L"1:1"},
                {name + L"|PageTimeout", L"1:5"},
                {name + L"|MaxBufferSize", L"1:512"},
                {name + L"\\Engines", L""},
                {name + L"\\Engines\\Excel", L""},
                {name + L"\\Engines\\Excel|FirstRowHasNames", L"1:01"},
                {name + L"\\Engines\\Excel|ImplicitCommitSync", L"1:Yes"},
                {name + L"\\Engines\\Excel|Threads", L"1:3"},
                {name + L"\\Engines\\Excel|UserCommitSync", L"1:Yes"},
                {L"ODBC Data Sources|" + name, L"1:Microsoft Excel Driver (*.xls)"}};
    }

    const std::wstring name = L"VnDesk test " + std::to_wstring(GetCurrentProcessId());

private:
    RegistryTree before_;
    bool hadList_ = false, hadIni_ = false, hadOdbc_ = false;
};

TEST_F(DataSourceTest, SqlServerSourceIsWrittenValueByValue) {
    EXPECT_EQ(0, CreateSqlServer(L"Ke toan", L"KETOAN", L"MAYCHU\\SQL", L"SQL Server"));
    const RegistryTree wanted = {{name, L""},
                                 {name + L"|Database", L"1:KETOAN"},
                                 {name + L"|Description", L"1:Ke toan"},
                                 {name + L"|Driver", L"1:"},
                                 {name + L"|LastUser", L"1:sa"},
                                 {name + L"|Server", L"1:MAYCHU\\SQL"},
                                 {name + L"|AnsiNPW", L"1:No"},
                                 {L"ODBC Data Sources|" + name, L"1:SQL Server"}};
    EXPECT_EQ(wanted, Added());
}

TEST_F(DataSourceTest, SqlServerSourceIsOverwritten) {
    CreateSqlServer(L"a", L"b", L"c", L"d");
    CreateSqlServer(L"", L"B", L"C", L"D");
    const RegistryTree added = Added();
    EXPECT_EQ(L"1:", added.at(name + L"|Description"));
    EXPECT_EQ(L"1:B", added.at(name + L"|Database"));
    EXPECT_EQ(L"1:D", added.at(L"ODBC Data Sources|" + name));
}

TEST_F(DataSourceTest, ExcelSourceIsWrittenValueByValue) {
    EXPECT_EQ(0, CreateExcel(L"C:\\Du lieu", L"C:\\Bang luong.xls", L"excel 8.0", L"1046"));
    EXPECT_EQ(ExcelEntries(L"1046"), Added());
}

TEST_F(DataSourceTest, ExcelSourceWithoutADriverNumberTakes790) {
    EXPECT_EQ(0, CreateExcel(L"C:\\Du lieu", L"C:\\Bang luong.xls", L"excel 8.0", L""));
    EXPECT_EQ(ExcelEntries(L"790"), Added());
}

TEST_F(DataSourceTest, HostReadsTheSourceBack) {
    CreateExcel(L"C:\\Du lieu", L"C:\\a.xls", L"excel 8.0", L"");
    EXPECT_EQ((Answer{true, L"790"}), Get(HK_LOCAL_MACHINE, SourceKey(), L"DriverId"));
    EXPECT_EQ((Answer{true, L"01"}),
              Get(HK_LOCAL_MACHINE, SourceKey() + L"\\Engines\\Excel", L"FirstRowHasNames"));
}

} // namespace
