// SPDX-License-Identifier: MIT
#include "logon/logon_dialog.h"

#include "accounts/credentials.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/stores/ansi_text.h"
#include "forms/keys/keys.h"
#include "forms/look/hourglass.h"
#include "forms/look/images.h"
#include "forms/window/form_of.h"
#include "logon/unknown_names.h"
#include "logon/refusal_text.h"
#include "logon/text/captions.h"
#include "logon/text/logon_statement.h"
#include "msgbox/message_box.h"
#include "passwords/password.h"
#include "text/ascii_text.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr ControlSpec kControls[] = {
    Label(L"Label1", texts::kLogonUser, {1140, 270, 1380, 240}),
    TextBox(L"TxtUser", {2580, 225, 2400, 330}),
    Label(L"Label2", texts::kLogonPassword, {1140, 720, 1380, 240}),
    TextBox(L"TxtPass", {2580, 675, 2400, 330}, kPassword),
    Button(L"CmdOk", texts::kLogonOk, {1140, 1230, 1200, 375}, kDisabled, L"Click here to Logon!"),
    Button(L"CMDCAN", texts::kLogonExit, {2460, 1230, 1200, 375}, kCancel),
    Button(L"CmdHelp", texts::kLogonHelp, {3780, 1230, 1200, 375}),
    Image(L"Image1", {210, 225, 720, 720}),
};

constexpr FormSpec kForm = {
    .name = L"FrmLogon",
    .caption = L"Login",
    .client = {5190, 1830},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

constexpr UINT_PTR kDelayTimer = 1;

class LogonForm final : public FormOf<kForm> {
public:
    explicit LogonForm(const Database& database) : database_(database) {}

    LoggedOn result;

protected:
    void OnLoad() override {
        const int size = ToPixels(Get(L"Image1").Width(), Dpi());
        picture_.reset(
            static_cast<HICON>(LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(kImageLogon),
                                          IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
        Get(L"Image1").SetIcon(picture_.get());
        Get(L"TxtUser").onChange = [this] { UserChanged(); };
        Get(L"CmdOk").onClick = [this] { LogOn(); };
        Get(L"CMDCAN").onClick = [this] { Cancel(); };
    }

    // Enter moves on like Tab; it never presses the button.
    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER && wParam == kDelayTimer) {
            WaitOn();
            return 0;
        }
        return Form::OnMessage(message, wParam, lParam);
    }

private:
    void UserChanged() { Get(L"CmdOk").SetEnabled(!TrimBlanks(Get(L"TxtUser").Text()).empty()); }

    void LogOn() {
        if (NeedsAccounts())
            LogOnByAccount();
        else
            LogOnByNumber();
    }

    void LogOnByNumber() {
        const std::wstring userText = Get(L"TxtUser").Text();
        const std::wstring passwordText = Get(L"TxtPass").Text();
        const double code = PasswordCodeOf(TrimBlanks(passwordText));
        Recordset users;
        if (LookUp(users, TrimBlanks(userText), code)) {
            result.userCode = ToInteger(users.Value(0L));
            Unload();
            return;
        }
        Refuse(texts::kLogonFailed);
    }

    void Refuse(const std::wstring& message) {
        ShowMsg(message, kOkOnly, L"Login");
        Control& user = Get(L"TxtUser");
        user.Focus();
        user.Select(0, static_cast<int>(user.Text().size()));
    }

    // --- With hashes, locks or records ---

    bool NeedsAccounts() const {
        return database_.settings.KeepsAccounts() || database_.settings.Audit;
    }

    void LogOnByAccount() {
        const std::wstring name(TrimBlanks(Get(L"TxtUser").Text()));
        LogonAnswer answer;
        const ErrorState error = Trap([&] {
            const Hourglass waiting;
            answer = CheckCredentials(database_, name, Get(L"TxtPass").Text());
        });
        if (error) {
            PlainMessage(error.description);
            return;
        }
        switch (answer.verdict) {
        case LogonAnswer::Accepted:
            result = {answer.userCode, answer.userName, answer.mustChange};
            Unload();
            return;
        case LogonAnswer::Delayed:
            Wait(answer.waitSeconds);
            return;
        default:
            Refuse(RefusalText(unknownNames_.AsIfKnown(answer, name, database_.settings),
                               texts::kLogonFailed));
        }
    }

    // The try begins when the seconds are over, unless the dialog is closed before.
    void Wait(long seconds) {
        waitSeconds_ = seconds;
        SetWaiting(true);
        SetTimer(Window(), kDelayTimer, 1000, nullptr);
    }

    void WaitOn() {
        if (--waitSeconds_ > 0) {
            ShowSeconds();
            return;
        }
        KillTimer(Window(), kDelayTimer);
        SetWaiting(false);
        LogOn();
    }

    void SetWaiting(bool waiting) {
        for (const Name name : {Name(L"TxtUser"), Name(L"TxtPass"), Name(L"CmdOk")})
            Get(name).SetEnabled(!waiting);
        ShowSeconds();
        if (waiting)
            Get(L"CMDCAN").Focus();
    }

    void ShowSeconds() {
        std::wstring caption = ToUncText(texts::kLogonOk, kToUnicode);
        if (waitSeconds_ > 0)
            caption += L" (" + std::to_wstring(waitSeconds_) + L")";
        Get(L"CmdOk").SetCaption(caption);
    }

    // Rows found for a name with an apostrophe match a condition that was typed into the name, so
    // they do not count. A name that could be more than a condition is not even sent: anybody can
    // type into this dialog.
    bool LookUp(Recordset& users, std::wstring_view name, double code) {
        // What a driver reads that takes statements in the ANSI code page.
        const std::wstring inCodePage = WithAnsiApostrophes(name);
        const ValueStyle style = database_.Style();
        // Only apostrophes are doubled in the literals of an engine, nothing that becomes one.
        if (!style.bound && style.dialect && inCodePage != name)
            return false;
        if (!MayMeanMore(style, {name}) && !MayMeanMore(style, {inCodePage}))
            OpenRecordset(database_, users, LogonStatement(name, code, style));
        return !EndsLiteral(style, inCodePage) && CountRecords(users) > 0;
    }

    void Cancel() {
        result = {};
        Unload();
    }

    const Database& database_;
    UniqueIcon picture_;
    UnknownNames unknownNames_;
    long waitSeconds_ = 0;
};

} // namespace

LoggedOn ShowLogonDialog(const Database& database) {
    LogonForm form(database);
    form.ShowModal();
    return form.result;
}

} // namespace vndesk
