// SPDX-License-Identifier: MIT
// What the pages show is compiled and run as it stands there.
#include "readme_cpp1.inc" // first: it must bring all that it needs

#include <thread>

#include "support/forms/host.h"
#include "support/forms/host_process.h"

#include "support/env.h"
#include "support/sample_database.h"
#include "support/script_host.h"
#include "support/text.h"
#include "../../samples/tour/rights.h"

namespace vndesk::test {
namespace {

// clang-format off
void EnableCommand(HostDatabase& database, long userCode, HMENU bar, UINT id, long subMenuId) {
#include "readme_cpp2.inc"
} // clang-format on

TEST(PageCode, CppLogsOn) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const _bstr_t connect(database.ConnectionString().c_str());
    DialogDriver user([] {
        const HWND form = WaitForForm(L"FrmLogon");
        SetBox(form, L"TxtUser", L"Khách");
        Press(form, L"CmdOk");
        WaitForClose(form);
    });
    long code = 0;
    EXPECT_SUCCEEDED(LogOn(connect, &code));
    user.Finish();
    EXPECT_EQ(7, code);
}

TEST(PageCode, CppTellsThatNoObjectCouldBeMade) {
    HRESULT hr = S_OK;
    std::thread([&] {
        long code = 0; // no apartment here
        hr = LogOn(nullptr, &code);
    }).join();
    EXPECT_EQ(CO_E_NOTINITIALIZED, hr);
}

TEST(PageCode, CppEnablesWhatTheUserMayDo) {
    const SampleDatabase sample = SampleDatabase::Embedded();
    HostDatabase database(sample.ConnectionString());
    constexpr UINT kId = 100;
    constexpr long kUsers = 2, kAdmin = 3, kGuest = 7;
    const HMENU bar = CreateMenu();
    AppendMenuW(bar, MF_STRING, kId, L"Users");
    EnableCommand(database, kGuest, bar, kId, kUsers);
    EXPECT_EQ(UINT{MF_GRAYED}, GetMenuState(bar, kId, MF_BYCOMMAND));
    EnableCommand(database, kAdmin, bar, kId, kUsers);
    EXPECT_EQ(UINT{MF_ENABLED}, GetMenuState(bar, kId, MF_BYCOMMAND));
    DestroyMenu(bar);
}

// The blocks of a page in Visual Basic that a script host can read: those without types.
std::vector<std::wstring> Scripts(const std::wstring& page) {
    const std::wstring text = ReadUtf8File(SourceDir() + L"\\" + page);
    std::vector<std::wstring> scripts;
    for (size_t at = 0; (at = text.find(L"\n```vb\n", at)) != std::wstring::npos;) {
        at += 7;
        const std::wstring block = text.substr(at, text.find(L"```", at) - at);
        if (block.find(L" As ") == std::wstring::npos)
            scripts.push_back(block);
    }
    return scripts;
}

// The engine reads a block within a procedure, which nobody calls.
TEST(PageCode, ScriptsOfTheGuidesAreUnderstood) {
    int blocks = 0;
    WIN32_FIND_DATAW entry;
    const HANDLE find = FindFirstFileW((SourceDir() + L"\\docs\\*.md").c_str(), &entry);
    ASSERT_NE(INVALID_HANDLE_VALUE, find);
    do {
        for (std::wstring script : Scripts(std::wstring(L"docs\\") + entry.cFileName)) {
            script.insert(std::min(script.find(L"\nSub "), script.size()), L"\nEnd Sub\n");
            const ScriptResult result = ScriptRunner().Run(L"Sub Block\n" + script);
            EXPECT_SUCCEEDED(result.hr) << ToUtf8(entry.cFileName) << ": " << ToUtf8(result.text)
                                        << " in line " << result.line - 1 << " of\n"
                                        << ToUtf8(script);
            ++blocks;
        }
    } while (FindNextFileW(find, &entry));
    FindClose(find);
    EXPECT_LT(5, blocks);
}

struct Readme {
    const wchar_t* file;
    bool administers;
    const wchar_t* output;
};

class ReadmeScript : public testing::TestWithParam<Readme> {};

INSTANTIATE_TEST_SUITE_P(Languages, ReadmeScript,
                         testing::Values(Readme{L"README.md", false, L"User 3\n"},
                                         Readme{L"README.vi.md", true, L""}),
                         [](const auto& info) -> std::string {
                             return info.param.administers ? "Vietnamese" : "English";
                         });

TEST_P(ReadmeScript, RunsInTheScriptHost) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const TempDir folder;
    std::wstring script;
    for (const std::wstring& block : Scripts(GetParam().file))
        script += block;
    constexpr std::wstring_view kDatabase = L"C:\\data\\host.mdb";
    const size_t place = script.find(kDatabase);
    ASSERT_NE(std::wstring::npos, place);
    script.replace(place, kDatabase.size(), database.File());
    const std::wstring file = folder.File(L"readme.vbs"), output = folder.File(L"output.txt");
    FILE* written = _wfopen(file.c_str(), L"wb");
    ASSERT_TRUE(written);
    fputs(ToUtf8(script).c_str(), written);
    fclose(written);

    HostProcess host(L"vnscript.exe", {file}, output);
    const HWND logon = host.Form(L"FrmLogon", kProcessStart);
    SetBox(logon, L"TxtUser", L"Admin");
    SetBox(logon, L"TxtPass", L"abc");
    Press(logon, L"CmdOk");
    if (GetParam().administers) {
        Press(host.Form(L"FrmMenu"), L"CmdExit");
        Press(host.Form(L"FmGrp"), L"CmdExit");
    }
    Press(host.Form(L"FrmFind"), L"CmdCancel");
    EXPECT_EQ(0u, host.ExitCode());
    std::wstring printed = ReadUtf8File(output);
    std::erase(printed, L'\r');
    EXPECT_EQ(GetParam().output, printed);
}

} // namespace
} // namespace vndesk::test
