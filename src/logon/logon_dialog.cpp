// SPDX-License-Identifier: MIT
#include "logon/logon_dialog.h"

#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/settings/ansi_text.h"
#include "forms/keys/keys.h"
#include "forms/look/images.h"
#include "forms/window/form_of.h"
#include "logon/password.h"
#include "logon/text/captions.h"
#include "logon/text/logon_statement.h"
#include "msgbox/message_box.h"
#include "text/ascii_text.h"

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

class LogonForm final : public FormOf<kForm> {
public:
    explicit LogonForm(const Database& database) : database_(database) {}

    long result = 0;

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

private:
    void UserChanged() { Get(L"CmdOk").SetEnabled(!TrimBlanks(Get(L"TxtUser").Text()).empty()); }

    void LogOn() {
        const std::wstring userText = Get(L"TxtUser").Text();
        const std::wstring passwordText = Get(L"TxtPass").Text();
        const double code = PasswordCodeOf(TrimBlanks(passwordText));
        Recordset users;
        if (LookUp(users, TrimBlanks(userText), code)) {
            result = ToInteger(users.Value(0L));
            Unload();
            return;
        }
        ShowMsg(texts::kLogonFailed, kOkOnly, L"Login");
        Control& user = Get(L"TxtUser");
        user.Focus();
        user.Select(0, static_cast<int>(user.Text().size()));
    }

    // Rows found for a name with an apostrophe match a condition that was typed into the name, so
    // they do not count. A name that could be more than a condition is not even sent: anybody can
    // type into this dialog.
    bool LookUp(Recordset& users, std::wstring_view name, double code) {
        // What a driver reads that takes statements in the ANSI code page.
        const std::wstring inCodePage = WithAnsiApostrophes(name);
        if (!MayMeanMore({name}) && !MayMeanMore({inCodePage}))
            OpenRecordset(database_, users, LogonStatement(name, code, database_.kind));
        return !EndsLiteral(inCodePage) && CountRecords(users) > 0;
    }

    void Cancel() {
        result = 0;
        Unload();
    }

    const Database& database_;
    UniqueIcon picture_;
};

} // namespace

long ShowLogonDialog(const Database& database) {
    LogonForm form(database);
    form.ShowModal();
    return form.result;
}

} // namespace vndesk
