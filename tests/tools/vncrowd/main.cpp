// SPDX-License-Identifier: MIT
// vncrowd CONNECTION NUMBER ROUNDS SEED: one host of a crowd. Calls operations of clsLogon and
// works their forms at random; each write is a line: begin, end, kind, key, values, between tabs.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>

#include "support/dice.h"
#include "support/forms/walker.h"
#include "support/text.h"

namespace {

using namespace vndesk::test;

constexpr int kGroups[] = {1, 2, 3, 5, 8};
constexpr int kGroupsWithRights[] = {2, 3, 5};
constexpr int kSharedUsers[] = {1, 2, 4, 5, 7};
constexpr int kRenamedUser = 9;
constexpr int kCommands[] = {4, 6, 5};
constexpr int kSharedNames = 3;

class Host {
public:
    Host(std::wstring connection, int number, uint64_t seed)
        : connection_(std::move(connection)), name_(L"p" + std::to_wstring(number)),
          dice_(seed * 1000 + static_cast<uint64_t>(number)), logon_(CreateLogon()) {}

    void Round(int round) {
        const std::wstring mark = name_ + L"." + std::to_wstring(round);
        switch (dice_.Roll(9)) {
        case 0:
        case 1:
            return AddUser(mark, mark);
        case 2:
            return AddUser(L"chung" + std::to_wstring(dice_.Roll(kSharedNames)), mark);
        case 3:
            return ownUser_.empty() ? AddUser(mark, mark) : DeleteOwnUser();
        case 4:
            return EditUser(dice_.Pick(kSharedUsers), L"", mark);
        case 5:
            return EditUser(kRenamedUser, mark, mark);
        case 6:
            return ownGroup_.empty() ? AddGroup(mark) : ChangeOwnGroup(mark);
        default:
            return GiveRights(dice_.Pick(kGroupsWithRights));
        }
    }

private:
    using Script = std::function<void(Walker&, HWND)>;

    template <class Operation> void Call(const wchar_t* form, Script script, Operation operation) {
        _bstr_t connect(connection_.c_str());
        DialogDriver user([&] {
            Walker walker;
            script(walker, walker.Form(form));
        });
        EXPECT_SUCCEEDED(operation(&connect.GetBSTR()));
        user.Finish();
    }
    void Users(Script script) {
        Call(L"FrmMenu", std::move(script), [&](BSTR* c) { return logon_->UserManager(c); });
    }
    void Groups(Script script) {
        Call(L"FmGrp", std::move(script), [&](BSTR* c) { return logon_->ShowGroup(c); });
    }

    void Log(ULONGLONG begin, const wchar_t* kind, const std::wstring& key,
             const std::wstring& values) {
        std::printf("%llu\t%llu\t%s\t%s\t%s\n", begin, GetTickCount64(), ToUtf8(kind).c_str(),
                    ToUtf8(key).c_str(), ToUtf8(values).c_str());
        std::fflush(stdout);
    }

    // Chooses a group of the sample by its code.
    int ChooseGroup(HWND editor) {
        const int code = dice_.Pick(kGroups);
        const HWND list = Control(editor, L"TxtIdGroup");
        const auto count = SendMessageW(list, CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i)
            if (SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) == code) {
                SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
                return code;
            }
        Fail(L"no group " + std::to_wstring(code));
    }

    // Presses OK; the name may be taken, and nothing else may be told.
    static bool Confirm(Walker& walker, HWND editor) {
        const bool closed = walker.Closes(editor, L"CmdOk");
        const Lines told = walker.TakeTold();
        EXPECT_EQ(closed ? Lines() : Lines{L"Người sử dụng đã tồn tại"}, told);
        if (!closed)
            walker.Leave(editor, L"CMDCAN");
        return closed;
    }

    void AddUser(const std::wstring& name, const std::wstring& mark) {
        Users([&](Walker& walker, HWND list) {
            const HWND editor = walker.Open(list, L"CmdAdd", L"FrmInput");
            SetBox(editor, L"TxtUser", name.c_str());
            SetBox(editor, L"TxtDes", mark.c_str());
            const int group = ChooseGroup(editor);
            SetBox(editor, L"TxtPass", L"abc");
            SetBox(editor, L"txtConfirm", L"abc");
            const ULONGLONG begin = GetTickCount64();
            const bool added = Confirm(walker, editor);
            Log(begin, added ? L"add user" : L"refused user", name,
                mark + L"|" + std::to_wstring(group));
            walker.Leave(list, L"CmdExit");
            if (added && name == mark)
                ownUser_ = name;
        });
    }

    void EditUser(int code, const std::wstring& newName, const std::wstring& mark) {
        Users([&](Walker& walker, HWND list) {
            SelectRow(list, L"Lv", RowWith(list, L"Lv", 2, std::to_wstring(code)));
            const HWND editor = walker.Open(list, L"CmdEdit", L"FrmInput");
            // Renamed between the list and the editor, which then finds nobody.
            if (TextOf(editor, L"TxtUser").empty()) {
                walker.Leave(editor, L"CMDCAN");
                walker.Leave(list, L"CmdExit");
                return;
            }
            if (!newName.empty())
                SetBox(editor, L"TxtUser", newName.c_str());
            // The sample's users without a password must get one.
            SetBox(editor, L"TxtPass", L"abc");
            SetBox(editor, L"txtConfirm", L"abc");
            SetBox(editor, L"TxtDes", mark.c_str());
            const int group = ChooseGroup(editor);
            const ULONGLONG begin = GetTickCount64();
            if (Confirm(walker, editor))
                Log(begin, L"edit user", std::to_wstring(code),
                    mark + L"|" + std::to_wstring(group));
            walker.Leave(list, L"CmdExit");
        });
    }

    void DeleteOwnUser() {
        Users([&](Walker& walker, HWND list) {
            SelectRow(list, L"Lv", RowWith(list, L"Lv", 0, ownUser_));
            const ULONGLONG begin = GetTickCount64();
            walker.Do(list, L"CmdDel");
            EXPECT_EQ(Lines{L"Bạn chắc chắn xoá người sử dụng này"}, walker.TakeTold());
            Log(begin, L"delete user", ownUser_, L"");
            walker.Leave(list, L"CmdExit");
            ownUser_.clear();
        });
    }

    void AddGroup(const std::wstring& mark) {
        Groups([&](Walker& walker, HWND groups) {
            walker.Do(groups, L"CmdAdd");
            SetBox(groups, L"txtName", mark.c_str());
            SetBox(groups, L"TxtDesc", mark.c_str());
            const ULONGLONG begin = GetTickCount64();
            walker.Do(groups, L"CmdWrite");
            EXPECT_EQ(Lines(), walker.TakeTold());
            Log(begin, L"add group", mark, mark);
            walker.Leave(groups, L"CmdExit");
            ownGroup_ = mark;
        });
    }

    // Selects a group by the beginning of its line.
    static void Select(Walker& walker, HWND groups, const std::function<bool(int)>& matches) {
        const HWND list = Control(groups, L"Lv1");
        const int count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
        PostKey(groups, L"Lv1", VK_HOME);
        for (int row = 0; row < count; ++row) {
            if (row > 0)
                walker.Down(groups, L"Lv1", row);
            if (matches(row))
                return;
        }
        Fail(L"the group is not in the list");
    }

    void ChangeOwnGroup(const std::wstring& mark) {
        Groups([&](Walker& walker, HWND groups) {
            Select(walker, groups, [&](int) { return TextOf(groups, L"txtName") == ownGroup_; });
            SetBox(groups, L"TxtDesc", mark.c_str());
            const ULONGLONG begin = GetTickCount64();
            walker.Do(groups, L"CmdWrite");
            EXPECT_EQ(Lines(), walker.TakeTold());
            Log(begin, L"edit group", ownGroup_, mark);
            walker.Leave(groups, L"CmdExit");
        });
    }

    void GiveRights(int code) {
        Groups([&](Walker& walker, HWND groups) {
            const HWND list = Control(groups, L"Lv1");
            Select(walker, groups, [&](int row) {
                return SendMessageW(list, LB_GETITEMDATA, static_cast<WPARAM>(row), 0) == code;
            });
            const HWND rights = walker.Open(groups, L"CmdPms", L"FrPms");
            std::wstring masks;
            PostKey(rights, L"LstMenuBar", VK_HOME);
            for (int bar = 0; bar < static_cast<int>(std::size(kCommands)); ++bar) {
                if (bar > 0)
                    Down(walker, rights, bar);
                masks += (bar ? L"|" : L"") + std::to_wstring(Tick(rights, kCommands[bar]));
            }
            const ULONGLONG begin = GetTickCount64();
            walker.Leave(rights, L"CmdOk");
            EXPECT_EQ(Lines(), walker.TakeTold());
            Log(begin, L"rights", std::to_wstring(code), masks);
            walker.Leave(groups, L"CmdExit");
        });
    }
    static void Down(Walker& walker, HWND rights, int bar) {
        PostKey(rights, L"LstMenuBar", VK_DOWN);
        walker.Await([&] {
            return ListSelection(Control(rights, L"LstMenuBar")) == bar &&
                   RowCount(rights, L"LstSubMenu") == kCommands[bar];
        });
    }
    // Every command of the bar granted or not, at random.
    int Tick(HWND rights, int commands) {
        const int mask = dice_.Roll(1 << commands);
        const HWND list = Control(rights, L"LstSubMenu");
        for (int i = 0; i < commands; ++i) {
            LVITEMW item = {};
            item.stateMask = LVIS_STATEIMAGEMASK;
            item.state = INDEXTOSTATEIMAGEMASK(mask >> i & 1 ? 2 : 1);
            SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(i),
                         reinterpret_cast<LPARAM>(&item));
        }
        return mask;
    }

    const std::wstring connection_, name_;
    Dice dice_;
    Microsoft::WRL::ComPtr<ILogon> logon_;
    std::wstring ownUser_, ownGroup_;
};

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 5)
        return 2;
    testing::InitGoogleTest(); // failures of EXPECT are counted without a test, too
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 2;
    const int number = static_cast<int>(wcstol(argv[2], nullptr, 10));
    const int rounds = static_cast<int>(wcstol(argv[3], nullptr, 10));
    {
        Host host(argv[1], number, wcstoul(argv[4], nullptr, 10));
        for (int round = 0; round < rounds; ++round)
            host.Round(round);
    }
    CoUninitialize();
    return testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}
