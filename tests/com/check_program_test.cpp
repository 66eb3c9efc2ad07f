// SPDX-License-Identifier: MIT
// vndesk-check.exe itself, run on this machine as it is and with one thing wrong at a time.
#include <filesystem>
#include <fstream>

#include "com/check_program.h"
#include "com/damaged_machine.h"
#include "support/env.h"
#include "support/text.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kForeignClass[] = L"{5D1A1E66-0B5E-4C1C-9D0A-335B8E620177}";
#ifdef _WIN64
constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
constexpr const wchar_t *kBits = L"64", *kOtherBits = L"32";
#else
constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
constexpr const wchar_t *kBits = L"32", *kOtherBits = L"64";
#endif

class CheckProgramTest : public DamagedMachineTest {};

TEST_F(CheckProgramTest, FindsNothingWrongWhereTheLibraryIsRegistered) {
    const Found found;
    EXPECT_EQ(Names{}, found.bad);
    EXPECT_EQ(0u, found.code);
    EXPECT_EQ(L"ok", found.All()[L"result"].text);
    EXPECT_EQ(std::stod(kBits), found.All()[L"bits"].number);
    EXPECT_EQ(kBits, found.Values(L"system").at(0));
    const auto library = found.Values(L"library-registered");
    EXPECT_EQ(dll_, library.at(0));
    EXPECT_EQ(kBits, library.at(1));
    EXPECT_EQ(VNDESK_WIDE_VERSION, library.at(2));
    EXPECT_EQ(std::wstring(L"HKEY_LOCAL_MACHINE (") + kBits + L")", library.at(3));
    EXPECT_EQ(std::to_wstring(classes_.size()), found.Values(L"classes-created").at(0));
    EXPECT_EQ(dll_, found.Values(L"type-library-registered").at(0));
    EXPECT_TRUE(found.Has(L"common-controls"));
    EXPECT_TRUE(found.Has(L"font-ready"));
    EXPECT_TRUE(found.Has(L"odbc-drivers"));
    EXPECT_EQ(RunningUnderWine(), found.Has(L"wine"));
    EXPECT_TRUE(found.Has(RunningUnderWine() ? L"ado-bridge" : L"ado-ready"));
}

TEST(CheckProgramOutputTest, SaysTheSameInEachLanguage) {
    const Printed english = RunCheck({L"--en"}), vietnamese = RunCheck({L"--vi"});
    EXPECT_EQ(0u, english.code);
    EXPECT_EQ(0u, vietnamese.code);
    EXPECT_NE(std::wstring::npos, english.text.find(L"[ok] All 11 classes can be created.\n"));
    EXPECT_NE(std::wstring::npos, english.text.find(L"\nVnDesk works.\n"));
    EXPECT_NE(std::wstring::npos, vietnamese.text.find(L"[tốt] Tạo được cả 11 lớp.\n"));
    EXPECT_NE(std::wstring::npos, vietnamese.text.find(L"\nVnDesk dùng được.\n"));
    const Printed french = RunCheck({L"--fr"});
    EXPECT_EQ(0u, french.code);
    EXPECT_NE(std::wstring::npos,
              french.text.find(L"[bien] Les 11 classes peuvent être créées.\n"));
    EXPECT_NE(std::wstring::npos, french.text.find(L"\nVnDesk fonctionne.\n"));
}

TEST(CheckProgramOutputTest, TellsItsVersionItsUsageAndWhatItDoesNotUnderstand) {
    const Printed version = RunCheck({L"--version"});
    EXPECT_EQ(0u, version.code);
    EXPECT_EQ(L"vndesk-check " VNDESK_WIDE_VERSION L"\n", version.text);
    const Printed help = RunCheck({L"--help", L"--en"});
    EXPECT_EQ(0u, help.code);
    EXPECT_NE(std::wstring::npos, help.text.find(L"--json"));
    const Printed wrong = RunCheck({L"--jsn"});
    EXPECT_EQ(3u, wrong.code);
    EXPECT_EQ(L"", wrong.text) << "told on the error output only";
}

TEST_F(CheckProgramTest, TellsThatNothingIsRegistered) {
    Unregister();
    const Found found;
    EXPECT_EQ(2u, found.code);
    const bool other = KeyExists(HKEY_LOCAL_MACHINE, ServerKey(classes_[0]), kOtherView);
    EXPECT_EQ((Names{other ? L"library-other-bitness-only" : L"library-not-registered",
                     L"type-library-not-registered"}),
              found.bad);
}

TEST_F(CheckProgramTest, TellsThatOnlyTheOtherBitnessIsRegistered) {
    if (KeyExists(HKEY_LOCAL_MACHINE, ServerKey(classes_[0]), kOtherView))
        GTEST_SKIP() << "the other bitness is registered, or the registry has one view only";
    Unregister();
    for (const RegisteredClass& entry : classes_) {
        SetText(HKEY_LOCAL_MACHINE, ServerKey(entry), nullptr, L"C:\\other\\vndesk.dll",
                kOtherView);
        AtEnd([key = ClassKey(entry)] { DeleteTree(HKEY_LOCAL_MACHINE, key, kOtherView); });
    }
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"library-other-bitness-only", L"type-library-not-registered"}), found.bad);
    EXPECT_EQ(kOtherBits, found.Values(L"library-other-bitness-only").at(0));
    EXPECT_EQ(L"C:\\other\\vndesk.dll", found.Values(L"library-other-bitness-only").at(1));
}

TEST_F(CheckProgramTest, TellsThatTheFilesAreNotThere) {
    const std::wstring missing = folder_.File(L"không có.dll");
    ServeAllClassesFrom(missing);
    SetText(HKEY_LOCAL_MACHINE, TypeLibraryKey(), nullptr, missing);
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"library-file-missing", L"type-library-file-missing"}), found.bad);
    EXPECT_EQ(missing, found.Values(L"library-file-missing").at(0));
    EXPECT_EQ(missing, found.Values(L"type-library-file-missing").at(0));
}

// The file with its header saying that it is for the other processor.
void TurnBitness(const std::wstring& path) {
    std::fstream file(std::filesystem::path(path), std::ios::in | std::ios::out | std::ios::binary);
    DWORD header = 0;
    file.seekg(0x3C);
    file.read(reinterpret_cast<char*>(&header), sizeof header);
    const WORD machine = sizeof(void*) == 8 ? IMAGE_FILE_MACHINE_I386 : IMAGE_FILE_MACHINE_AMD64;
    file.seekp(header + 4);
    file.write(reinterpret_cast<const char*>(&machine), sizeof machine);
    EXPECT_TRUE(file.good());
}

TEST_F(CheckProgramTest, TellsThatTheFileIsForTheOtherBitness) {
    const std::wstring wrong = CopyOfDll();
    TurnBitness(wrong);
    ServeAllClassesFrom(wrong);
    const Found found;
    EXPECT_EQ(2u, found.code);
    // The type library is still that of the right file.
    EXPECT_EQ((Names{L"library-wrong-bitness", L"type-library-other-file"}), found.bad);
    const auto values = found.Values(L"library-wrong-bitness");
    EXPECT_EQ(wrong, values.at(0));
    EXPECT_EQ(kOtherBits, values.at(1));
    EXPECT_EQ(kBits, values.at(2));
}

TEST_F(CheckProgramTest, TellsThatTheFileIsNoLibrary) {
    const std::wstring text = folder_.File(L"vndesk.dll");
    std::ofstream(std::filesystem::path(text)) << "MZ is not enough";
    ServeAllClassesFrom(text);
    SetText(HKEY_LOCAL_MACHINE, TypeLibraryKey(), nullptr, text);
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"library-not-a-library", L"type-library-not-loaded"}), found.bad);
    EXPECT_EQ(text, found.Values(L"library-not-a-library").at(0));
    EXPECT_EQ(text, found.Values(L"type-library-not-loaded").at(0));
}

// Writes one more than there is into the first part of the file's version.
void RaiseVersion(const std::wstring& path) {
    std::fstream file(std::filesystem::path(path), std::ios::in | std::ios::out | std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    // VS_FIXEDFILEINFO: signature, version of the structure, then the file's, its low word first.
    const size_t at = bytes.find(std::string("\xBD\x04\xEF\xFE\x00\x00\x01\x00", 8));
    ASSERT_NE(std::string::npos, at);
    file.seekp(static_cast<std::streamoff>(at + 10));
    file.put(static_cast<char>(bytes[at + 10] + 1));
    EXPECT_TRUE(file.good());
}

TEST_F(CheckProgramTest, TellsThatTheLibraryHasAnotherVersion) {
    const std::wstring newer = CopyOfDll();
    RaiseVersion(newer);
    ServeAllClassesFrom(newer);
    SetText(HKEY_LOCAL_MACHINE, TypeLibraryKey(), nullptr, newer);
    const Found found;
    EXPECT_EQ(1u, found.code);
    EXPECT_EQ(Names{L"library-version-differs"}, found.bad);
    const std::wstring version = found.Values(L"library-version-differs").at(0);
    EXPECT_EQ(std::stoi(VNDESK_WIDE_VERSION) + 1, std::stoi(version)) << ToUtf8(version);
    EXPECT_EQ(VNDESK_WIDE_VERSION, found.Values(L"library-version-differs").at(1));
}

TEST_F(CheckProgramTest, TellsEachDamagedEntry) {
    DeleteTree(HKEY_LOCAL_MACHINE, ClassKey(classes_[0]));
    Replace(HKEY_LOCAL_MACHINE, Under(classes_[1].progId + L"\\CLSID"), kForeignClass);
    SetText(HKEY_LOCAL_MACHINE, ServerKey(classes_[2]), L"ThreadingModel", L"Both");
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"class-not-registered", L"class-name-wrong", L"class-threading"}), found.bad);
    EXPECT_EQ(classes_[0].progId, found.Values(L"class-not-registered").at(0));
    EXPECT_EQ(classes_[1].progId, found.Values(L"class-name-wrong").at(0));
    EXPECT_EQ(kForeignClass, found.Values(L"class-name-wrong").at(1));
    EXPECT_EQ(classes_[2].progId, found.Values(L"class-threading").at(0));
    EXPECT_EQ(L"Both", found.Values(L"class-threading").at(1));
    EXPECT_FALSE(found.Has(L"classes-created"));
}

TEST_F(CheckProgramTest, TellsAClassThatItsFileDoesNotHaveAndThatThereAreTwoFiles) {
    const std::wstring other = BesideTests(L"adobridge.dll");
    SetText(HKEY_LOCAL_MACHINE, ServerKey(classes_[3]), nullptr, other);
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"class-not-created", L"library-several-copies"}), found.bad);
    const auto values = found.Values(L"class-not-created");
    EXPECT_EQ(classes_[3].progId, values.at(0));
    EXPECT_EQ(0u, values.at(1).find(L"0x80040111")) << ToUtf8(values.at(1));
    EXPECT_EQ(dll_ + L"; " + other, found.Values(L"library-several-copies").at(0));
}

TEST_F(CheckProgramTest, TellsATypeLibraryOfAnotherCopy) {
    const std::wstring copy = CopyOfDll();
    SetText(HKEY_LOCAL_MACHINE, TypeLibraryKey(), nullptr, copy);
    const Found found;
    EXPECT_EQ(1u, found.code);
    EXPECT_EQ(Names{L"type-library-other-file"}, found.bad);
    EXPECT_EQ(L"warnings", found.All()[L"result"].text);
}

TEST_F(CheckProgramTest, TellsWhatTheUsersOwnRegistrationDoes) {
    const std::wstring copy = CopyOfDll();
    for (const RegisteredClass& entry : classes_) {
        SetText(HKEY_CURRENT_USER, ServerKey(entry), nullptr, copy);
        AtEnd([key = ClassKey(entry)] { DeleteTree(HKEY_CURRENT_USER, key); });
    }
    const Found found;
    // Wine does not read it, Windows prefers it.
    if (RunningUnderWine()) {
        EXPECT_EQ(Names{L"library-user-ignored"}, found.bad);
        EXPECT_EQ(copy, found.Values(L"library-user-ignored").at(0));
        EXPECT_EQ(1u, found.code);
    } else {
        EXPECT_EQ(copy, found.Values(L"library-user-hides-machine").at(0));
        EXPECT_EQ(dll_, found.Values(L"library-user-hides-machine").at(1));
    }
}

TEST_F(CheckProgramTest, TellsAProviderThatCannotBeUsed) {
    const std::wstring name = Under(L"Microsoft.ACE.OLEDB.12.0");
    if (KeyExists(HKEY_LOCAL_MACHINE, name))
        GTEST_SKIP() << "the machine has that provider";
    const std::wstring missing = folder_.File(L"aceoledb.dll");
    const std::wstring clsid = Under(std::wstring(L"CLSID\\") + kForeignClass);
    AtEnd([=] {
        DeleteTree(HKEY_LOCAL_MACHINE, name);
        DeleteTree(HKEY_LOCAL_MACHINE, clsid);
    });
    SetText(HKEY_LOCAL_MACHINE, name + L"\\CLSID", nullptr, kForeignClass);
    SetText(HKEY_LOCAL_MACHINE, clsid + L"\\InprocServer32", nullptr, missing);
    const Found found;
    EXPECT_EQ(1u, found.code);
    EXPECT_EQ(Names{L"provider-broken"}, found.bad);
    const auto values = found.Values(L"provider-broken");
    EXPECT_EQ(L"Microsoft.ACE.OLEDB.12.0", values.at(0));
    EXPECT_NE(std::wstring::npos, values.at(1).find(missing)) << ToUtf8(values.at(1));
}

TEST_F(CheckProgramTest, TellsAnAdoThatDoesNotServe) {
    if (!RunningUnderWine())
        GTEST_SKIP() << "on Windows the system's ADO is left alone";
    const std::wstring clsid = RegistryText(HKEY_LOCAL_MACHINE, Under(L"ADODB.Connection\\CLSID"));
    const std::wstring server = Under(L"CLSID\\" + clsid + L"\\InprocServer32");
    Replace(HKEY_LOCAL_MACHINE, server, folder_.File(L"msado15.dll"));
    {
        const Found found;
        EXPECT_EQ(2u, found.code);
        EXPECT_TRUE(found.bad.count(L"ado-missing"));
        EXPECT_EQ(L"ADODB.Connection", found.Values(L"ado-missing").at(0));
        // Without the bridge providers would be needed.
        EXPECT_TRUE(found.Has(L"provider-no-jet"));
        EXPECT_TRUE(found.Has(L"provider-no-sql-server"));
        EXPECT_EQ(L"MSDASQL", found.Values(L"providers-present").at(1));
    }
    const std::wstring odbc = RegistryText(HKEY_LOCAL_MACHINE, Under(L"MSDASQL\\CLSID"));
    Replace(HKEY_LOCAL_MACHINE, Under(L"CLSID\\" + odbc + L"\\InprocServer32"),
            folder_.File(L"msdasql.dll"));
    wchar_t wines[MAX_PATH];
    ExpandEnvironmentStringsW(L"%CommonProgramFiles%\\System\\ADO\\msado15.dll", wines, MAX_PATH);
    SetText(HKEY_LOCAL_MACHINE, server, nullptr, wines);
    const Found found;
    EXPECT_EQ(2u, found.code);
    EXPECT_EQ((Names{L"ado-bridge-missing", L"provider-broken", L"provider-none"}), found.bad);
    EXPECT_EQ(wines, found.Values(L"ado-bridge-missing").at(0));
}

// Fonts and theme of a new program; other systems keep them elsewhere.
TEST_F(CheckProgramTest, TellsAFontWithoutVietnameseLettersAndAThemeSwitchedOff) {
    if (!RunningUnderWine())
        GTEST_SKIP() << "fonts can be exchanged for a test under Wine only";
    const std::wstring fonts = L"Software\\Wine\\Fonts\\Replacements";
    const std::wstring theme = L"Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager";
    const std::wstring active = RegistryText(HKEY_CURRENT_USER, theme, L"ThemeActive");
    AtEnd([=] {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, fonts.c_str(), L"Arial");
        if (active.empty())
            RegDeleteKeyValueW(HKEY_CURRENT_USER, theme.c_str(), L"ThemeActive");
        else
            SetText(HKEY_CURRENT_USER, theme, L"ThemeActive", active);
    });
    SetText(HKEY_CURRENT_USER, fonts, L"Arial", L"Marlett");
    SetText(HKEY_CURRENT_USER, theme, L"ThemeActive", L"0");
    const Found found;
    EXPECT_EQ(1u, found.code);
    EXPECT_EQ(Names{L"font-no-vietnamese"}, found.bad);
    const auto values = found.Values(L"font-no-vietnamese");
    EXPECT_EQ(L"Arial", values.at(0));
    EXPECT_EQ(L"134", values.at(3));
    EXPECT_NE(L"", values.at(4));
    EXPECT_TRUE(found.Has(L"theme-off"));
}

// --- versions ---

std::wstring VersionTextOf(const std::wstring& path, const wchar_t* name) {
    DWORD ignored = 0;
    std::vector<BYTE> data(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    const std::wstring query = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    void* text = nullptr;
    UINT length = 0;
    if (data.empty() ||
        !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), query.c_str(), &text, &length))
        return {};
    return static_cast<const wchar_t*>(text);
}

TEST(VersionTest, FilesAndTypeLibraryHaveTheVersionOfTheProject) {
    const std::wstring shortVersion = FromUtf8(VNDESK_SHORT_VERSION);
    const std::wstring interfaces = FromUtf8(VNDESK_INTERFACE_VERSION);
    for (const wchar_t* name : {L"vndesk.dll", L"adobridge.dll", L"vndesk-check.exe"}) {
        EXPECT_EQ(VNDESK_WIDE_VERSION, VersionTextOf(BesideTests(name), L"FileVersion"))
            << ToUtf8(name);
        EXPECT_EQ(shortVersion, VersionTextOf(BesideTests(name), L"ProductVersion"))
            << ToUtf8(name);
    }
    const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    TLIBATTR* attributes = nullptr;
    ASSERT_SUCCEEDED(library->GetLibAttr(&attributes));
    EXPECT_EQ(interfaces, std::to_wstring(attributes->wMajorVerNum) + L"." +
                              std::to_wstring(attributes->wMinorVerNum));
    library->ReleaseTLibAttr(attributes);
    BSTR help = nullptr;
    ASSERT_SUCCEEDED(library->GetDocumentation(-1, nullptr, &help, nullptr, nullptr));
    EXPECT_EQ(0u, std::wstring(help).find(L"VnDesk " + interfaces + L":"));
    SysFreeString(help);
}

} // namespace
