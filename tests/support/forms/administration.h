// SPDX-License-Identifier: MIT
// What the tests of the administration forms share: a database of their own, the operations of
// clsLogon with a script that plays the administrator, and the statements that went to the
// provider.
#pragma once

#include "support/forms/host.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <vector>

#include "support/engine_variant.h"
#include "support/env.h"
#include "support/keys.h"
#include "support/sample_database.h"
#include "support/security_settings.h"
#include "support/temp_dir.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {

using Lines = std::vector<std::wstring>;

// Every statement that reaches the ADO bridge of this process while the object lives.
class StatementTrace {
public:
    StatementTrace() { SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", File().c_str()); }
    // A trace that was taken before goes on, with these.
    ~StatementTrace() {
        SetEnvironmentVariableW(L"VNDESK_ADO_TRACE", before_.empty() ? nullptr : before_.c_str());
        if (before_.empty())
            return;
        std::ofstream trace(std::filesystem::path(before_), std::ios::binary | std::ios::app);
        for (const std::wstring& line : All())
            trace << ToUtf8(line) << '\n';
    }

    void Forget() { DeleteFileW(File().c_str()); }

    Lines All() const {
        Lines lines;
        if (GetFileAttributesW(File().c_str()) == INVALID_FILE_ATTRIBUTES)
            return lines;
        std::wistringstream text(ReadUtf8File(File()));
        for (std::wstring line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }

    // Those that write.
    Lines Writing() const {
        Lines lines = All();
        std::erase_if(lines, [](const std::wstring& line) {
            return std::none_of(std::begin(kVerbs), std::end(kVerbs), [&](const wchar_t* verb) {
                return _wcsnicmp(line.c_str(), verb, wcslen(verb)) == 0;
            });
        });
        return lines;
    }

private:
    static constexpr const wchar_t* kVerbs[] = {L"Insert ", L"Update ", L"Delete "};

    std::wstring File() const { return folder_.File(L"trace.txt"); }

    const std::wstring before_ = EnvironmentText(L"VNDESK_ADO_TRACE");
    TempDir folder_;
};

// --- What the scripts do ---

inline void SetBox(HWND form, const wchar_t* control, const wchar_t* text) {
    const HWND window = Control(form, control);
    const HWND inner = FindWindowExW(window, nullptr, L"Edit", nullptr);
    const auto characters = reinterpret_cast<LPARAM>(text);
    if (!inner) {
        SendMessageW(window, WM_SETTEXT, 0, characters);
        return;
    }
    // The box of a drop-down list tells of what is typed, and not of WM_SETTEXT.
    SendMessageW(inner, EM_SETSEL, 0, -1);
    SendMessageW(inner, EM_REPLACESEL, FALSE, characters);
}

// Answers a message of the library by its first button; `answer` is another key.
inline void Answer(const std::wstring& text, const std::wstring& title, WORD answer = VK_SPACE) {
    const HWND box = WaitForForm(L"MessageBox");
    EXPECT_EQ(text, TextOf(box, L"Message"));
    EXPECT_EQ(title, TextOf(box, L"label4"));
    WaitReady(box, L"Cmd1");
    PressKey(answer);
    WaitForClose(box);
}

// Opens the user editor from the user list by the letter of a button.
inline HWND OpenEditor(WORD letter) {
    PressKey(letter, kAlt);
    const HWND editor = WaitForForm(L"FrmInput");
    WaitReady(editor, L"TxtUser");
    return editor;
}

inline bool IsWhollySelected(HWND form, const wchar_t* textBox) {
    DWORD start = 1, end = 0;
    SendMessageW(Control(form, textBox), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    return start == 0 && end == TextOf(form, textBox).size();
}

inline int RowCount(HWND form, const wchar_t* listView) {
    return static_cast<int>(SendMessageW(Control(form, listView), LVM_GETITEMCOUNT, 0, 0));
}

inline int SelectedRow(HWND form, const wchar_t* listView) {
    return static_cast<int>(SendMessageW(Control(form, listView), LVM_GETNEXTITEM,
                                         static_cast<WPARAM>(-1), LVNI_SELECTED));
}

inline bool RowIsVisible(HWND form, const wchar_t* listView, int row) {
    const HWND list = Control(form, listView);
    const int top = static_cast<int>(SendMessageW(list, LVM_GETTOPINDEX, 0, 0));
    return row >= top && row < top + SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0);
}

inline void SelectRow(HWND form, const wchar_t* listView, int row) {
    LVITEMW item = {};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(Control(form, listView), LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

// The row whose cell in a column shows a text; fails when there is none.
inline int RowWith(HWND form, const wchar_t* listView, int column, const std::wstring& text) {
    const HWND list = Control(form, listView);
    for (int row = 0; row < RowCount(form, listView); ++row)
        if (CellText(list, row, column) == text)
            return row;
    Fail(L"no row with " + text);
}

// "1", "0", ... for each item of a list with check boxes.
inline std::wstring Ticks(HWND form, const wchar_t* checkList) {
    const HWND list = Control(form, checkList);
    std::wstring ticks;
    for (int i = 0; i < RowCount(form, checkList); ++i)
        ticks +=
            SendMessageW(list, LVM_GETITEMSTATE, i, LVIS_STATEIMAGEMASK) >> 12 == 2 ? L'1' : L'0';
    return ticks;
}

// A click on an item of a list box or a row of a list view.
inline void ClickItem(HWND list, int item, bool twice = false) {
    RECT rect = {};
    if (ClassName(list) == WC_LISTVIEWW) {
        rect.left = LVIR_LABEL;
        SendMessageW(list, LVM_GETITEMRECT, item, reinterpret_cast<LPARAM>(&rect));
    } else {
        SendMessageW(list, LB_GETITEMRECT, item, reinterpret_cast<LPARAM>(&rect));
    }
    POINT point = {rect.left + 8, (rect.top + rect.bottom) / 2};
    ClientToScreen(list, &point);
    ClickAt(point);
    if (twice)
        ClickAt(point);
}

// The letters behind Alt of all visible controls, upper-cased, in their order.
inline std::wstring Mnemonics(HWND form) {
    std::wstring letters;
    for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child) || ClassName(child) == L"Edit")
            continue;
        const std::wstring text = TextOf(child);
        const size_t mark = text.find(L'&');
        if (mark != std::wstring::npos && mark + 1 < text.size())
            letters += towupper(text[mark + 1]);
    }
    return letters;
}

inline std::wstring Sorted(std::wstring letters) {
    std::sort(letters.begin(), letters.end());
    return letters;
}

inline SIZE SizeOf(HWND window) {
    RECT box = {};
    GetWindowRect(window, &box);
    return {box.right - box.left, box.bottom - box.top};
}

// Presses Tab from control to control.
inline void ExpectKeyWalks(HWND form, WORD key, std::initializer_list<const wchar_t*> controls) {
    for (const wchar_t* next : controls) {
        PressKey(key);
        WaitForFocus(form, next);
    }
}

// --- The database and the operations ---

class AdministrationTest {
public:
    explicit AdministrationTest(bool server)
        : AdministrationTest(server,
                             server ? SampleDatabase::Server() : SampleDatabase::Embedded()) {}
    AdministrationTest(bool server, SampleDatabase database)
        : server(server), database(std::move(database)) {}

    // The host's object.
    Microsoft::WRL::ComPtr<ILogon> Host() const {
        if (!settings && !InDialect())
            return CreateLogon();
        return LogonWith(settings.value_or(SecuritySettings()), userCode);
    }

    // Opens a form while the script plays the user; the host's call must succeed.
    void PlayEditor(const wchar_t* user, std::function<void(HWND)> script) const {
        Play(L"FrmInput", std::move(script), [&](ILogon& logon, BSTR* connect) {
            _bstr_t name(user);
            return logon.ShowUser(connect, &name.GetBSTR());
        });
    }
    void PlayUsers(std::function<void(HWND)> script) const {
        Play(L"FrmMenu", std::move(script),
             [](ILogon& logon, BSTR* connect) { return logon.UserManager(connect); });
    }
    void PlayGroups(std::function<void(HWND)> script) const {
        Play(L"FmGrp", std::move(script),
             [](ILogon& logon, BSTR* connect) { return logon.ShowGroup(connect); });
    }

    // The text, with the prefix that the kind of database asks for.
    std::wstring Quoted(const std::wstring& text) const {
        return (PrefixesTexts() ? L"N'" : L"'") + text + L"'";
    }
    // A name of the library's tables as its statements of 1.1 write it.
    std::wstring OwnName(const std::wstring& name) const {
        if (!InDialect())
            return name;
        if (CurrentVariant().dialect == vnDialectSqlServer)
            return L"[" + name + L"]";
        std::wstring folded = name;
        CharLowerBuffW(folded.data(), static_cast<DWORD>(folded.size()));
        return L"\"" + folded + L"\"";
    }
    std::wstring Read(const std::wstring& statement) const {
        return database.ScalarText(statement);
    }
    // A column of the user with a code, and of the group with a code.
    std::wstring User(const std::wstring& column, int code) const {
        return Read(L"select " + column + L" from \"user\" where code=" + std::to_wstring(code));
    }
    std::wstring Group(const std::wstring& column, int code) const {
        return Read(L"select " + column + L" from groups where code=" + std::to_wstring(code));
    }
    // Whole tables as text, to see that nothing has changed.
    std::wstring Users() const {
        return Table(L"select code,name,\"dec\",idgroup,password from \"user\" order by code");
    }
    std::wstring Groups() const { return Table(L"select * from groups order by code"); }

    const bool server;
    const SampleDatabase database;
    // Without them the host is one of 1.0.
    std::optional<SecuritySettings> settings;
    long userCode = 0;

private:
    std::wstring Table(const wchar_t* statement) const {
        std::wstring text;
        for (const auto& row : database.Query(statement)) {
            for (const auto& cell : row)
                text += cell.value_or(L"(null)") + L"|";
            text += L"\n";
        }
        return text;
    }

    template <class Operation>
    void Play(const wchar_t* form, std::function<void(HWND)> script, Operation operation) const {
        const auto logon = Host();
        _bstr_t connect(database.ConnectionString().c_str());
        DialogDriver user([&] {
            const HWND window = WaitForForm(form);
            WaitReady(window);
            script(window);
        });
        EXPECT_SUCCEEDED(operation(*logon.Get(), &connect.GetBSTR()));
        user.Finish();
    }
};

// Each case runs on the embedded database and on the server.
class Administration : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const bool server = CurrentVariant().server;
        if (server && !SampleDatabase::ServerAvailable())
            GTEST_SKIP() << "no PostgreSQL server: VNDESK_PG is not set";
        test_ = std::make_unique<AdministrationTest>(server);
    }

    const AdministrationTest& Test() const { return *test_; }
    std::wstring Q(const wchar_t* text) const { return test_->Quoted(text); }

    const VariantInUse variant_{GetParam()};
    std::unique_ptr<AdministrationTest> test_;
};

#define INSTANTIATE_ADMINISTRATION(suite) INSTANTIATE_DATABASES(suite)

} // namespace vndesk::test
