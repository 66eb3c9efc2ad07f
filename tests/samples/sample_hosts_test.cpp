// SPDX-License-Identifier: MIT
// The sample hosts that can run here: each prints the same lines, follows the rights of the user's
// group and leaves in the database what its user has entered. Where the library is not registered
// yet, the setup program comes first, and the scripts are those that it brings.
#include <windows.h>

#include <sstream>

#include "samples/script_folder.h"
#include "support/forms/host_process.h"

namespace vndesk::test {
namespace {

struct Sample {
    const char* name;
    const wchar_t* program; // in the folder above the tests, or below dist/; empty for the system's
                            // script host
    const wchar_t* script;  // below samples/; empty for a program
    bool inCodePage = false; // prints letters of the system's code page
};

void PrintTo(const Sample& sample, std::ostream* stream) {
    *stream << sample.name;
}

constexpr Sample kSamples[] = {
    {"Cpp", L"vnhost.exe", L""},
    {"CppOfVersion1", L"tests/vnhost10.exe", L""},
    {"VBScript", L"vnscript.exe", L"vbscript\\host.vbs"},
    {"JScript", L"vnscript.exe", L"jscript\\host.js"},
    {"Delphi", L"vndelphi.exe", L"", true},
};
constexpr Sample kOtherWays[] = {
    {"CscriptVBScript", L"", L"vbscript\\host.vbs"},
    {"CscriptJScript", L"", L"jscript\\host.js"},
#ifndef _WIN64
    // The setup program has registered both DLLs.
    {"Cpp64", L"x64\\vnhost.exe", L""},
    {"VBScript64", L"x64\\vnscript.exe", L"vbscript\\host.vbs"},
#endif
};

class Installation : public testing::Environment {
    void SetUp() override {
        if (!EnvironmentText(L"VNDESK_PREFIX").empty()) {
            ASSERT_EQ(static_cast<DWORD>(kDone), RunSetup(L""));
        }
    }
};
const testing::Environment* const kInstallation =
    testing::AddGlobalTestEnvironment(new Installation);

// Wine's cscript loses letters that its console's code page lacks: nothing behind the first one
// counts.
std::wstring PlainStart(const std::wstring& line) {
    return line.substr(0, std::find_if(line.begin(), line.end(), [](wchar_t c) {
                              return c > 126;
                          }) - line.begin());
}

// What is left of a line in the system's code page, one character for each byte.
std::wstring InCodePage(const std::wstring& line) {
    const int length = static_cast<int>(line.size());
    std::string bytes(line.size() * 2, '\0');
    bytes.resize(
        static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, line.data(), length, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, nullptr)));
    return {reinterpret_cast<const unsigned char*>(bytes.data()),
            reinterpret_cast<const unsigned char*>(bytes.data()) + bytes.size()};
}

class SampleHosts : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        const std::wstring program = GetParam().program;
        if (program == L"vndelphi.exe" && !FileExists(BuiltProgram(program)))
            GTEST_SKIP() << "there is no Free Pascal with its sources";
    }
    void Start() { Start(database_.ConnectionString()); }
    void Start(const std::wstring& connectionString) {
        const Sample& sample = GetParam();
        std::wstring program = sample.program;
        if (program.find(L'\\') != std::wstring::npos)
            program = SourceDir() + L"\\dist\\" + program;
        std::vector<std::wstring> arguments;
        if (IsCscript()) {
            wchar_t folder[MAX_PATH] = L"";
            GetSystemDirectoryW(folder, MAX_PATH);
            program = folder + std::wstring(L"\\cscript.exe");
            arguments = {L"//nologo"};
        }
        if (*sample.script)
            arguments.push_back(ScriptFolder() + sample.script);
        arguments.push_back(connectionString);
        process_ = std::make_unique<HostProcess>(program.c_str(), arguments, Output());
    }

    HWND Form(const wchar_t* name) const { return process_->Form(name, kProcessStart); }
    HWND Open(HWND form, const wchar_t* button, const wchar_t* opens) const {
        Press(form, button);
        return process_->Form(opens);
    }
    void Leave(HWND form, const wchar_t* button) const {
        Press(form, button);
        WaitClosed(form);
    }

    void LogOn(const wchar_t* name, const wchar_t* password) const {
        const HWND logon = Form(L"FrmLogon");
        SetBox(logon, L"TxtUser", name);
        SetBox(logon, L"TxtPass", password);
        Leave(logon, L"CmdOk");
    }
    // The host that was built for version 1.0 knows none, and takes any password.
    static bool HasSettings() { return std::string_view(GetParam().name) != "CppOfVersion1"; }
    static void TypeNewPassword(HWND editor, const wchar_t* password) {
        SetBox(editor, L"TxtPass", password);
        SetBox(editor, L"txtConfirm", password);
    }
    void AnswerQuestion(const wchar_t* button) const {
        const HWND box = Form(HasSettings() ? L"NoticeBox" : L"MessageBox");
        EXPECT_EQ(L"Bạn đã xem xong chưa?", TextOf(box, L"Message"));
        Leave(box, button);
    }

    // How the program ends, and what it has printed until then.
    void ExpectEnd(DWORD code, const Lines& expected) {
        EXPECT_EQ(code, process_->ExitCode());
        const Lines printed = Printed();
        ASSERT_EQ(expected.size(), printed.size()) << testing::PrintToString(printed);
        for (size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(IsCscript()             ? printed[i].starts_with(PlainStart(expected[i]))
                        : GetParam().inCodePage ? printed[i] == InCodePage(expected[i])
                                                : printed[i] == expected[i])
                << ToUtf8(printed[i]) << "\ninstead of\n"
                << ToUtf8(expected[i]);
    }
    void ExpectError(const std::wstring& start) {
        EXPECT_EQ(2u, process_->ExitCode());
        const Lines printed = Printed();
        ASSERT_FALSE(printed.empty());
        EXPECT_TRUE(printed.back().starts_with(start)) << ToUtf8(printed.back());
    }

    const SampleDatabase database_ = SampleDatabase::Embedded();

private:
    static bool IsCscript() { return !*GetParam().program; }
    Lines Printed() const {
        Lines lines;
        std::wistringstream text(IsCscript() || GetParam().inCodePage ? AnsiFile(Output())
                                                                      : ReadUtf8File(Output()));
        for (std::wstring line; std::getline(text, line);) {
            line.resize(std::min(line.find(L'\r'), line.size()));
            lines.push_back(line);
        }
        return lines;
    }
    static std::wstring AnsiFile(const std::wstring& path) {
        std::wstring text;
        if (FILE* file = _wfopen(path.c_str(), L"rb")) {
            for (int c; (c = fgetc(file)) != EOF;)
                text += static_cast<wchar_t>(c);
            fclose(file);
        }
        return text;
    }
    std::wstring Output() const { return folder_.File(L"output.txt"); }

    TempDir folder_;
    std::unique_ptr<HostProcess> process_;
};

std::string NameOf(const testing::TestParamInfo<Sample>& info) {
    return info.param.name;
}

class EveryWay : public SampleHosts {};

INSTANTIATE_TEST_SUITE_P(Samples, SampleHosts, testing::ValuesIn(kSamples), NameOf);
INSTANTIATE_TEST_SUITE_P(Samples, EveryWay, testing::ValuesIn(kSamples), NameOf);
INSTANTIATE_TEST_SUITE_P(Ways, EveryWay, testing::ValuesIn(kOtherWays), NameOf);

// The storekeeper may administer but not search, until he gives his group that right.
TEST_P(EveryWay, GoThroughTheFiveSteps) {
    Start();
    LogOn(L"Lê Quốc Việt", L"KhoHang1");

    const HWND users = Form(L"FrmMenu");
    const HWND editor = Open(users, L"CmdAdd", L"FrmInput");
    SetBox(editor, L"TxtUser", L"Lý Thị Đào");
    SendMessageW(Control(editor, L"TxtIdGroup"), CB_SETCURSEL, 0, 0);
    TypeNewPassword(editor, L"abc");
    if (HasSettings()) {
        const HWND box = Open(editor, L"CmdOk", L"MessageBox");
        EXPECT_EQ(L"Mật khẩu phải có ít nhất 8 ký tự.", TextOf(box, L"Message"));
        Leave(box, L"Cmd1");
        TypeNewPassword(editor, L"hoa dao nam moi");
    }
    Leave(editor, L"CmdOk");
    Leave(users, L"CmdExit");

    const HWND groups = Form(L"FmGrp");
    SelectGroup(groups, 3, L"Kho");
    const HWND rights = Open(groups, L"CmdPms", L"FrPms");
    ToggleRight(rights, 1, 0, L"100000");
    Leave(rights, L"CmdOk");
    Leave(groups, L"CmdExit");

    const HWND search = Form(L"FrmFind");
    FillSearch(search, 2, 0, L"HP");
    Leave(search, L"CmdOk");
    AnswerQuestion(L"Cmd1");

    Lines lines = {L"1. Logon",
                   L"   user 4",
                   L"2. Rights",
                   L"   1 Đổi mật khẩu",
                   L"   2 Người sử dụng",
                   L"   3 Nhóm người sử dụng",
                   L"   11 Tồn kho",
                   L"3. Administration",
                   L"   user list closed",
                   L"   group manager closed",
                   L"4. Search",
                   L"   (MaTinh  =  'HP')",
                   L"   KH004 Siêu thị Thành Đạt 76.400.000,5",
                   L"   KH005 Trần Quang Vinh 450.000",
                   L"   KH028 Cửa hàng Ước Mơ 8.340.000,25",
                   L"   3 rows",
                   L"   ba",
                   L"5. Message",
                   L"   yes"};
    // The host that was built for version 1.0 knows no numbers in words.
    if (!HasSettings())
        std::erase(lines, L"   ba");
    ExpectEnd(0, lines);
    EXPECT_EQ(L"1", database_.ScalarText(L"select idgroup from \"user\" where name='Lý Thị Đào'"));
    EXPECT_EQ(L"1", database_.ScalarText(L"select p2 from groups where code=5"));
}

TEST_P(SampleHosts, WithoutRightsTheUserOnlyAnswersTheMessage) {
    Start();
    LogOn(L"Khách", L"");
    AnswerQuestion(L"Cmd2");
    ExpectEnd(0, {L"1. Logon", L"   user 7", L"2. Rights", L"   11 Tồn kho", L"3. Administration",
                  L"   user list not allowed", L"   group manager not allowed", L"4. Search",
                  L"   not allowed", L"5. Message", L"   no"});
}

TEST_P(SampleHosts, EndAfterARefusedLogon) {
    Start();
    const HWND logon = Form(L"FrmLogon");
    SetBox(logon, L"TxtUser", L"Admin");
    SetBox(logon, L"TxtPass", L"sai");
    Leave(Open(logon, L"CmdOk", L"MessageBox"), L"Cmd1");
    Leave(logon, L"CMDCAN");
    ExpectEnd(1, {L"1. Logon", L"   nobody has logged on"});
}

TEST_P(SampleHosts, EndWhenTheUserHasReadWhyThereIsNoDatabase) {
    if (!HasSettings())
        GTEST_SKIP() << "version 1.0 shows the connection string";
    Start(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\khong co\\host.db");
    const HWND box = Form(L"NoticeBox");
    EXPECT_TRUE(TextOf(box, L"Message").ends_with(L"Không tìm thấy tệp cơ sở dữ liệu."));
    Leave(box, L"Cmd1");
    ExpectEnd(1, {L"1. Logon", L"   nobody has logged on"});
}

TEST_P(SampleHosts, TellWhatTheDatabaseRefuses) {
    database_.Execute(L"drop table menu");
    Start();
    LogOn(L"Admin", L"abc");
    ExpectError(L"Error 0x80040E37: "); // the driver's own words follow
}

} // namespace
} // namespace vndesk::test
