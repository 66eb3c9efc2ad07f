// SPDX-License-Identifier: MIT
// Every form of the library as a host opens it, one row each: for tests of what may befall them
// all.
#pragma once

#include "support/forms/lookup_host.h"
#include "support/forms/search.h"
#include "support/security_settings.h"

namespace vndesk::test {

struct EachForm {
    const char* name;
    // By the buttons of which forms the last one is reached, the first one's name first.
    std::vector<const wchar_t*> path;
    // The host's call; it returns when the forms have gone.
    std::function<HRESULT(BSTR* connect)> open;
};

inline void PrintTo(const EachForm& form, std::ostream* out) {
    *out << form.name;
}

inline const std::vector<EachForm>& EveryForm() {
    static const auto logon = [](auto call) {
        return [call](BSTR* connect) { return call(*CreateLogon().Get(), connect); };
    };
    // A host that asks for hashes, locks and warnings, on a database with the tables that they
    // need.
    static const auto kept = [](auto call) {
        return [call](BSTR* connect) {
            SecuritySettings settings;
            settings.PasswordScheme = vnPasswordPbkdf2;
            settings.LockAfter = 3;
            settings.InputWarnings = true;
            return call(*LogonWith(settings).Get(), connect);
        };
    };
    static const std::vector<EachForm> forms = {
        {"MessageBox", {L"MessageBox"}, logon([](ILogon& object, BSTR*) {
             _bstr_t text(L"abc"), title(L"x"), pressed;
             return object.MgBox(&text.GetBSTR(), vbYesNo, &title.GetBSTR(), vbQuestion,
                                 VARIANT_FALSE, pressed.GetAddress());
         })},
        {"Logon", {L"FrmLogon"}, logon([](ILogon& object, BSTR* connect) {
             long code = -1;
             const HRESULT hr = object.ShowLogon(connect, &code);
             EXPECT_EQ(0, code) << "nobody has logged on";
             return hr;
         })},
        {"UserEditor", {L"FrmInput"}, logon([](ILogon& object, BSTR* connect) {
             _bstr_t user(L"Admin");
             return object.ShowUser(connect, &user.GetBSTR());
         })},
        {"UserList", {L"FrmMenu"}, logon([](ILogon& object, BSTR* connect) {
             return object.UserManager(connect);
         })},
        {"EditorOfTheUserList",
         {L"FrmMenu", L"CmdEdit", L"FrmInput"},
         logon([](ILogon& object, BSTR* connect) { return object.UserManager(connect); })},
        {"QuestionOfTheUserList",
         {L"FrmMenu", L"CmdDel", L"MessageBox"},
         logon([](ILogon& object, BSTR* connect) { return object.UserManager(connect); })},
        {"LogonWithLocks", {L"FrmLogon"}, kept([](ILogon2& object, BSTR* connect) {
             long code = -1;
             const HRESULT hr = object.ShowLogon(connect, &code);
             EXPECT_EQ(0, code) << "nobody has logged on";
             return hr;
         })},
        {"OwnPassword", {L"FrmInput"}, kept([](ILogon2& object, BSTR* connect) {
             _bstr_t user(L"Admin");
             return object.ShowUser(connect, &user.GetBSTR());
         })},
        {"UserListWithLocks", {L"FrmMenu"}, kept([](ILogon2& object, BSTR* connect) {
             return object.UserManager(connect);
         })},
        {"UserListThatShrinks",
         {L"FrmMenu"},
         [](BSTR* connect) { return LogonWith(kFindNames)->UserManager(connect); }},
        {"GroupManagerThatShrinks",
         {L"FmGrp"},
         [](BSTR* connect) { return LogonWith(kFindNames)->ShowGroup(connect); }},
        {"EditorWithHashes",
         {L"FrmMenu", L"CmdEdit", L"FrmInput"},
         kept([](ILogon2& object, BSTR* connect) { return object.UserManager(connect); })},
        {"GroupManager", {L"FmGrp"}, logon([](ILogon& object, BSTR* connect) {
             return object.ShowGroup(connect);
         })},
        {"Rights", {L"FmGrp", L"CmdPms", L"FrPms"}, logon([](ILogon& object, BSTR* connect) {
             return object.ShowGroup(connect);
         })},
        {"FailedConnection", {L""}, logon([](ILogon& object, BSTR*) {
             _bstr_t nowhere(L"Driver={none}");
             long code = 0;
             return object.ShowLogon(&nowhere.GetBSTR(), &code);
         })},
        {"ReasonOfAFailedConnection",
         {L"NoticeBox"},
         [](BSTR*) {
             _bstr_t nowhere(L"Driver={none}");
             long code = 0;
             return LogonWith({.ConnectionErrors = vnErrorsShowReason})
                 ->ShowLogon(&nowhere.GetBSTR(), &code);
         }},
        {"Search",
         {L"FrmFind"},
         [](BSTR* connect) {
             const auto search = CreateSearch();
             long modal = 1;
             EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(*connect)));
             EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
             const HRESULT hr = search->Show(&modal, Missing());
             EXPECT_EQ(L"", ResultOf(*search.Get()));
             return hr;
         }},
        {"SearchInOneCall",
         {L"FrmFind"},
         [](BSTR* connect) {
             return LateBound::Create(L"VnDesk.Varnok")
                 .TryCall(L"FindShow", {*connect, L"KhachHang"})
                 .hr;
         }},
        {"ItemPicker",
         {L"FmSelHang"},
         [](BSTR* connect) {
             const auto item = CreateSelItem();
             const HWND box = CreateWindowExW(0, L"EDIT", L"H", WS_CHILD | WS_VISIBLE, 5, 5, 90, 24,
                                              GetActiveWindow(), nullptr, nullptr, nullptr);
             EXPECT_SUCCEEDED(item->SetTextSel(HandleOf(box)));
             EXPECT_SUCCEEDED(
                 item->put_SqlName(_bstr_t(L"Select Code,Name From TinhThanh Where Name")));
             EXPECT_SUCCEEDED(item->put_ActiveConnection(_variant_t(*connect)));
             SendMessageW(box, WM_KEYDOWN, VK_RETURN, 0);
             DestroyWindow(box);
             return S_OK;
         }},
    };
    return forms;
}

// Goes on to the last form from inside the forms' own loops, and then does something there, once.
class AtLastForm {
public:
    AtLastForm(const EachForm& form, std::function<void(HWND)> action)
        : form_(form), action_(std::move(action)),
          timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Step)) {
        current_ = this;
    }
    ~AtLastForm() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }
    AtLastForm(const AtLastForm&) = delete;
    AtLastForm& operator=(const AtLastForm&) = delete;

    bool Done() const { return done_; }

private:
    // Nameless is the platform's message box.
    static HWND Shown(std::wstring_view name) {
        for (const HWND window : TopWindows())
            if (name.empty() ? ClassName(window) == L"#32770" && GetDlgItem(window, IDOK)
                             : WindowName(window) == name)
                return window;
        return nullptr;
    }

    static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) { current_->Go(); }

    void Go() {
        const HWND form = done_ ? nullptr : Shown(form_.path[next_]);
        if (!form || !IsWindowEnabled(form))
            return;
        if (next_ + 1 < form_.path.size()) {
            const wchar_t* button = form_.path[next_ + 1];
            next_ += 2;
            PostMessageW(form, WM_COMMAND, GetDlgCtrlID(FindControl(form, button)), 0);
            return;
        }
        done_ = true;
        action_(form);
    }

    static inline AtLastForm* current_ = nullptr;
    const EachForm& form_;
    std::function<void(HWND)> action_;
    size_t next_ = 0;
    bool done_ = false;
    UINT_PTR timer_;
};

// What the tests' own windows are called.
inline constexpr wchar_t kHostTitle[] = L"Chương trình chủ";

class HostMainWindow {
public:
    HostMainWindow()
        : window_(CreateWindowExW(0, L"STATIC", kHostTitle, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50,
                                  50, 400, 200, nullptr, nullptr, nullptr, nullptr)) {
        SetForegroundWindow(window_);
        SetActiveWindow(window_);
    }
    ~HostMainWindow() { DestroyWindow(window_); }
    HostMainWindow(const HostMainWindow&) = delete;
    HostMainWindow& operator=(const HostMainWindow&) = delete;
    HWND Window() const { return window_; }

private:
    HWND window_;
};

// Closes every window that a test has left, so that the call comes back whatever happens.
class CloseTheRest {
public:
    CloseTheRest() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Close)) {}
    ~CloseTheRest() { KillTimer(nullptr, timer_); }
    CloseTheRest(const CloseTheRest&) = delete;
    CloseTheRest& operator=(const CloseTheRest&) = delete;

private:
    static void CALLBACK Close(HWND, UINT, UINT_PTR, DWORD) {
        for (const HWND window : TopWindows())
            if (IsWindowEnabled(window) && TextOf(window) != kHostTitle)
                PostMessageW(window, WM_CLOSE, 0, 0);
    }

    UINT_PTR timer_;
};

} // namespace vndesk::test
