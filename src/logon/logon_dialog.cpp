// SPDX-License-Identifier: MIT
#include "logon/logon_dialog.h"

#include "accounts/credentials.h"
#include "comkit/base/com_error.h"
#include "data/connect/failure.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/stores/ansi_text.h"
#include "forms/keys/keys.h"
#include "forms/look/hourglass.h"
#include "forms/look/images.h"
#include "forms/look/picture_icon.h"
#include "forms/password/password_boxes.h"
#include "forms/window/form_of.h"
#include "logon/help_file.h"
#include "logon/name_box_menu.h"
#include "logon/refusal_text.h"
#include "logon/remembered_names.h"
#include "logon/text/captions.h"
#include "logon/text/logon_statement.h"
#include "logon/unknown_names.h"
#include "msgbox/message_box.h"
#include "passwords/password.h"
#include "text/ascii_text.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr auto kPlain = std::to_array<ControlSpec>({
    Label(L"Label1", texts::kLogonUser, {1140, 270, 1380, 240}),
    TextBox(L"TxtUser", {2580, 225, 2400, 330}),
    Label(L"Label2", texts::kLogonPassword, {1140, 720, 1380, 240}),
    TextBox(L"TxtPass", {2580, 675, 2400, 330}, kPassword),
    Button(L"CmdOk", texts::kLogonOk, {1140, 1230, 1200, 375}, kDisabled | kConfirms,
           L"Click here to Logon!"),
    Button(L"CMDCAN", texts::kLogonExit, {2460, 1230, 1200, 375}, kCancel),
    Button(L"CmdHelp", texts::kLogonHelp, {3780, 1230, 1200, 375}),
    Image(L"Image1", {210, 225, 720, 720}),
});

// On demand: a line above the boxes, and a list of names that have logged on.
constexpr double kBannerHeight = 330;
constexpr auto kBannered =
    WithRow(kPlain, L"Label1", kBannerHeight,
            std::array{Label(L"Banner", L"", {210, 150, 4770, 240}, kEllipsis)});
constexpr double kOpenHeight = 1650;
constexpr auto kPlainList = WithList(kPlain, L"TxtUser", kOpenHeight);
constexpr auto kBanneredList = WithList(kBannered, L"TxtUser", kOpenHeight);

consteval FormSpec Variant(std::span<const ControlSpec> controls, double further) {
    return {.name = L"FrmLogon",
            .caption = L"Login",
            .client = {5190, 1830 + further},
            .border = FormBorder::FixedDialog,
            .controls = controls};
}

constexpr FormSpec kForms[] = {Variant(kPlain, 0), Variant(kPlainList, 0),
                               Variant(kBannered, kBannerHeight),
                               Variant(kBanneredList, kBannerHeight)};
constexpr const FormSpec& kForm = kForms[2]; // has all names

constexpr UINT_PTR kDelayTimer = 1;

class LogonForm final : public FormOf<kForm> {
public:
    LogonForm(const Database& database, const LogonOptions& options)
        : FormOf(kForms[(options.banner.empty() ? 0 : 2) + (HasList(options) ? 1 : 0)]),
          database_(database), options_(options), names_(options.rememberKey) {}

    LoggedOn result;

protected:
    void OnLoad() override {
        LoadPicture();
        Get(L"TxtUser").onChange = [this] { UserChanged(); };
        Get(L"TxtUser").onClick = [this] { NameChosen(); };
        Get(L"CmdOk").onClick = [this] { LogOn(); };
        Get(L"CMDCAN").onClick = [this] { Cancel(); };
        Get(L"CmdHelp").onClick = [this] { Help(); };
    }

    void OnPrepared() override {
        if (!options_.caption.empty())
            SetWindowTextW(Window(), options_.caption.c_str());
        if (!options_.banner.empty())
            Get(L"Banner").SetCaption(options_.banner);
        if (names_.AreKept())
            OfferNames();
        if (database_.settings.InputWarnings)
            passwords_.Help(*this);
    }

    const Control* FirstControl() override {
        return names_.Names().empty() ? nullptr : &Get(L"TxtPass");
    }

    // Enter moves on like Tab where it does not confirm. In an open list it chooses.
    bool OnKeyPress(wchar_t character) override { return !ListIsOpen() && EnterAsTab(character); }

    bool OnKeyDown(const Control&, WPARAM key) override {
        if (key != VK_F1)
            return false;
        Help();
        return true;
    }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER && wParam == kDelayTimer) {
            WaitOn();
            return 0;
        }
        return Form::OnMessage(message, wParam, lParam);
    }

private:
    static bool HasList(const LogonOptions& options) {
        return options.pickUser && !options.rememberKey.empty();
    }

    void LoadPicture() {
        const int size = ToPixels(Get(L"Image1").Width(), Dpi());
        if (options_.picture)
            picture_ = IconOfPicture(*options_.picture.Get(), size);
        if (!picture_)
            picture_.reset(
                static_cast<HICON>(LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(kImageLogon),
                                              IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
        Get(L"Image1").SetIcon(picture_.get());
    }

    // --- Names that have logged on ---

    bool ListIsOpen() {
        return HasList(options_) &&
               SendMessageW(Get(L"TxtUser").Window(), CB_GETDROPPEDSTATE, 0, 0);
    }

    void OfferNames() {
        Control& user = Get(L"TxtUser");
        if (HasList(options_))
            for (const std::wstring& name : names_.Names())
                SendMessageW(user.Window(), CB_ADDSTRING, 0,
                             reinterpret_cast<LPARAM>(name.c_str()));
        if (!names_.Names().empty())
            user.SetText(names_.Names().front());
        UserChanged();
        menu_.Attach(
            user.Window(), [this] { return !names_.Names().empty(); }, [this] { ForgetNames(); });
    }

    void ForgetNames() {
        names_.Forget();
        Control& user = Get(L"TxtUser");
        if (HasList(options_))
            SendMessageW(user.Window(), CB_RESETCONTENT, 0, 0);
        user.SetText(L"");
        UserChanged();
        user.Focus();
    }

    // The list tells of a choice before the box has it.
    void NameChosen() {
        Control& user = Get(L"TxtUser");
        const auto chosen = static_cast<size_t>(SendMessageW(user.Window(), CB_GETCURSEL, 0, 0));
        if (chosen < names_.Names().size())
            user.SetText(names_.Names()[chosen]);
        UserChanged();
    }

    // --- Help ---

    void Help() {
        if ((options_.helped && options_.helped()) || options_.helpFile.empty())
            return;
        if (!OpenHelpFile(Window(), options_.helpFile))
            PlainMessage(texts::kHelpNotOpened + options_.helpFile, TitleText().c_str());
    }

    // --- Logging on ---

    std::wstring TitleText() const {
        return options_.caption.empty() ? Caption() : options_.caption;
    }

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
            LoggedOn user = {.userCode = ToInteger(users.Value(0L))};
            // Whoever may come in comes in, even where more about him cannot be read.
            Trap([&] {
                user.userName = NullToText(users.Value(L"Name"));
                user.groupCode = NullToInteger(users.Value(L"IdGroup"));
            });
            Accept(user);
            return;
        }
        Refuse(texts::kLogonFailed);
    }

    void Accept(LoggedOn user) {
        result = std::move(user);
        names_.Add(result.userName);
        Unload();
    }

    void Refuse(const std::wstring& message) {
        ++refusals_;
        if (options_.refused)
            options_.refused(TrimBlanks(Get(L"TxtUser").Text()), refusals_);
        ShowUnicodeMsg(ToUncText(message, kToUnicode), kOkOnly, TitleText());
        if (options_.maxTries > 0 && refusals_ >= options_.maxTries) {
            Cancel();
            return;
        }
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
            PlainMessage(ShownText(database_, error.description));
            return;
        }
        switch (answer.verdict) {
        case LogonAnswer::Accepted:
            Accept({answer.userCode, answer.userName, answer.groupCode, answer.mustChange});
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
    const LogonOptions& options_;
    RememberedNames names_;
    NameBoxMenu menu_;
    PasswordBoxes passwords_;
    UniqueIcon picture_;
    UnknownNames unknownNames_;
    long waitSeconds_ = 0;
    long refusals_ = 0;
};

} // namespace

LoggedOn ShowLogonDialog(const Database& database, const LogonOptions& options, HWND owner) {
    LogonForm form(database, options);
    form.SetOwner(owner);
    form.ConfirmByEnter(database.settings.EnterConfirms());
    form.ShowModal();
    return form.result;
}

} // namespace vndesk
