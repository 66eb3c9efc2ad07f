// SPDX-License-Identifier: MIT
#include "security/user_editor.h"

#include <array>

#include "accounts/account.h"
#include "accounts/credentials.h"
#include "accounts/passwords.h"
#include "data/connect/failure.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/lists/list_box.h"
#include "forms/keys/keys.h"
#include "comkit/base/upper_case.h"
#include "forms/lists/item_list.h"
#include "forms/look/hourglass.h"
#include "forms/password/password_boxes.h"
#include "forms/window/form_of.h"
#include "logon/refusal_text.h"
#include "passwords/password.h"
#include "passwords/password_text.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/text/captions.h"
#include "security/user_changes.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr auto kControls = std::to_array<ControlSpec>({
    Label(L"lblUser", texts::kUserEditorName, {210, 270, 1860, 240}, kMnemonic),
    TextBox(L"TxtUser", {2130, 225, 3300, 330}),
    Label(L"lblDes", texts::kUserEditorDescription, {210, 690, 1860, 240}, kMnemonic),
    TextBox(L"TxtDes", {2130, 645, 3300, 330}),
    Label(L"lblIdGroup", texts::kUserEditorGroup, {210, 1110, 1860, 240}, kMnemonic),
    DropDownList(L"TxtIdGroup", {2130, 1065, 3300, 3600}),
    Label(L"lblPass", texts::kUserEditorPassword, {210, 1530, 1860, 240}, kMnemonic),
    // The repetition has to be typed anew, whatever stands there.
    TextBox(L"TxtPass", {2130, 1485, 3300, 330}, kPassword | kEnterGoesOn),
    Label(L"lblConfirm", texts::kUserEditorConfirm, {210, 1950, 1860, 240}, kMnemonic),
    TextBox(L"txtConfirm", {2130, 1905, 3300, 330}, kPassword),
    Button(L"CmdOk", texts::kUserEditorOk, {2130, 2460, 1590, 375}, kConfirms),
    Button(L"CMDCAN", texts::kUserEditorCancel, {3840, 2460, 1590, 375}, kCancel),
    // Part of the form's set of controls, without behaviour, so it is not shown.
    Button(L"Command1", L"", {210, 2460, 1200, 375}, kHidden),
});

// With hashes, users who change their own password say the present one, and administrators may ask
// for a change.
constexpr double kRow = 420;
constexpr auto kOwnControls = WithCaption(
    WithRow(kControls, L"lblPass", kRow,
            std::to_array<ControlSpec>(
                {Label(L"lblCurrent", texts::kUserEditorCurrent, {210, 1530, 1860, 240}, kMnemonic),
                 TextBox(L"TxtCurrent", {2130, 1485, 3300, 330}, kPassword)})),
    L"lblPass", texts::kUserEditorNewPassword);
constexpr auto kMustChangeRow = std::to_array<ControlSpec>(
    {CheckBox(L"chkMustChange", texts::kUserEditorMustChange, {2130, 2340, 3300, 300})});
constexpr auto kAdminControls = WithRow(kControls, L"CmdOk", kRow, kMustChangeRow);
constexpr auto kAllControls = WithRow(kOwnControls, L"CmdOk", kRow, kMustChangeRow);

constexpr FormSpec Design(double rows, std::span<const ControlSpec> controls) {
    return {.name = L"FrmInput",
            .caption = texts::kUserEditorTitle,
            .client = {5640, 3060 + rows * kRow},
            .border = FormBorder::FixedDialog,
            .controls = controls};
}
constexpr FormSpec kForm = Design(0, kControls);
constexpr FormSpec kOwnForm = Design(1, kOwnControls);
constexpr FormSpec kAdminForm = Design(1, kAdminControls);
constexpr FormSpec kAllForms = Design(2, kAllControls);

const FormSpec& Variant(const Settings& settings, const UserEditorOptions& options) {
    if (settings.Scheme == PasswordScheme::Code)
        return kForm;
    return options.AllowChange ? kAdminForm : kOwnForm;
}

// The two titles differ in spelling on purpose.
constexpr wchar_t kAddTitle[] = L"User Infomation";
constexpr wchar_t kEditTitle[] = L"User Information";

class UserEditor final : public FormOf<kAllForms> {
public:
    UserEditor(const Operation& operation, const UserEditorOptions& options)
        : FormOf(Variant(operation.database.settings, options)), operation_(operation),
          database_(operation.database), options_(options) {}

    bool written = false;

protected:
    void OnLoad() override {
        Get(L"TxtUser").onChange = [this] { Get(L"CmdOk").SetEnabled(true); };
        for (const Name box : {Name(L"TxtPass"), Name(L"txtConfirm")})
            Get(box).onChange = [this] { passChanged_ = true; };
        TieClicks<UserEditor>({{L"CmdOk", &UserEditor::Confirm}, {L"CMDCAN", &UserEditor::Unload}});
    }

    void OnPrepared() override {
        for (const Name field : {Name(L"TxtIdGroup"), Name(L"TxtUser"), Name(L"TxtDes")})
            Get(field).SetEnabled(options_.AllowChange);
        Get(L"CmdOk").SetEnabled(false);
        ReadDict(StatementWriter(database_.Style()) << WholeTable{L"[Groups]"});
        if (options_.EditMode)
            Trap([&] { LoadUser(); });
        if (database_.settings.InputWarnings)
            passwords_.Help(*this);
        passChanged_ = false;
    }

    // Where Enter does not confirm, it moves to the next control; if it leaves a button, the button
    // is pressed.
    bool OnKeyPress(wchar_t character) override {
        Control* button = character == L'\r' ? FocusedButton() : nullptr;
        if (!button)
            return EnterAsTab(character);
        // A Tab stroke would go to the window that the button opens, or to the one behind.
        SendMessageW(Window(), WM_NEXTDLGCTL, FALSE, FALSE);
        const HWND window = button->Window();
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                     reinterpret_cast<LPARAM>(window));
        return true;
    }

private:
    Control* FocusedButton() {
        for (const Name name : {Name(L"CmdOk"), Name(L"CMDCAN")})
            if (Get(name).Window() == GetFocus())
                return &Get(name);
        return nullptr;
    }

    void ReadDict(const Statement& source) {
        Recordset rows;
        if (OpenRecordset(database_, rows, source) != 0)
            return;
        ItemList groups(Get(L"TxtIdGroup"));
        const long selected = groups.ListIndex();
        groups.Clear();
        const ErrorState failure = Trap([&] {
            for (; !rows.Eof(); rows.MoveNext())
                AddListItem(groups, NullToText(rows.Value(1L)) + L"-" + NullToText(rows.Value(2L)),
                            NullToInteger(rows.Value(0L)));
        });
        if (failure)
            groups.Clear();
        Trap([&] { rows.Close(); });
        groups.SetListIndex(selected);
    }

    void LoadUser() {
        Recordset user;
        const std::wstring& name = options_.OldName;
        const ValueStyle style = database_.Style();
        if (!MayMeanMore(style, {name}))
            OpenRecordset(database_, user, LoadUserStatement(name, style));
        // Rows found for a name with an apostrophe belong to other users.
        if (EndsLiteral(style, name) || CountRecords(user) == 0)
            return;
        Get(L"TxtUser").SetText(NullToText(user.Value(L"Name")));
        Get(L"TxtDes").SetText(NullToText(user.Value(L"Dec")));
        if (!Hashes()) {
            const std::wstring password = NullToText(user.Value(L"Password"));
            Get(L"TxtPass").SetText(password);
            Get(L"txtConfirm").SetText(password);
        }
        userCode_ = NullToInteger(user.Value(L"Code"));
        LoadMustChange();
        ItemList groups(Get(L"TxtIdGroup"));
        groupCode_ = NullToInteger(user.Value(L"IdGroup"));
        groups.SetListIndex(FindItemByData(groups, groupCode_));
        user.Close();
    }

    void LoadMustChange() {
        if (!AsksForChange())
            return;
        Trap([&] { mustChange_ = RequireAccount(database_, userCode_).mustChange; });
        SendMessageW(Get(L"chkMustChange").Window(), BM_SETCHECK,
                     mustChange_ ? BST_CHECKED : BST_UNCHECKED, 0);
    }

    // Whether administrators may tick that the user must change the password.
    bool AsksForChange() const { return Hashes() && options_.AllowChange; }

    // A user who must change the password to get in cannot choose a group, wherever the group is.
    bool KeepsGroup() const { return Hashes() && !options_.AllowChange; }

    bool Hashes() const { return database_.settings.Scheme == PasswordScheme::Pbkdf2; }

    // The two passwords are equal, apart from letter case, and have a code.
    bool HasCode() {
        const std::wstring password = UpperCase(Get(L"TxtPass").Text());
        return password == UpperCase(Get(L"txtConfirm").Text()) && PasswordCodeOf(password) != 0;
    }

    // A password to write: always of a new user, of others where one was typed.
    bool WritesPassword() {
        if (!options_.EditMode)
            return true;
        return passChanged_ &&
               (!Hashes() || !options_.AllowChange || !Get(L"TxtPass").Text().empty() ||
                !Get(L"txtConfirm").Text().empty());
    }

    std::optional<std::wstring> CheckPresent() {
        const Hourglass waiting;
        const LogonAnswer answer =
            CheckPresentPassword(database_, userCode_, Get(L"TxtCurrent").Text());
        if (answer.verdict == LogonAnswer::Accepted)
            return std::nullopt;
        return ToUncText(RefusalText(answer, texts::kUserWrongPassword), kToUnicode);
    }

    // Why the passwords are not taken, in Unicode.
    std::optional<std::wstring> CheckPass(const std::wstring& name) {
        const auto fixed = [](const wchar_t* text) { return ToUncText(text, kToUnicode); };
        if (!Hashes() && !HasCode())
            return fixed(texts::kUserBadPassword);
        const std::wstring password = Get(L"TxtPass").Text();
        if (Hashes() && !options_.AllowChange) {
            if (const auto refusal = CheckPresent())
                return refusal;
        }
        if (!WritesPassword())
            return options_.AllowChange || !Hashes()
                       ? std::nullopt
                       : std::optional(fixed(texts::kUserPasswordMissing));
        if (Hashes() && password != Get(L"txtConfirm").Text())
            return fixed(texts::kUserPasswordsDiffer);
        if (Hashes() && password.empty())
            return fixed(texts::kUserPasswordMissing);
        if (options_.MustChange && AreSamePassword(password, Get(L"TxtCurrent").Text()))
            return fixed(texts::kUserSamePassword);
        return RefusalOf(operation_, name, password);
    }

    void Confirm() {
        if (!KeepsGroup() && ItemList(Get(L"TxtIdGroup")).ListIndex() < 0) {
            ShowMsg(texts::kUserNoGroup, kOkOnly, texts::kNotice);
            Get(L"TxtIdGroup").Focus();
            return;
        }
        const std::wstring name = Get(L"TxtUser").Text();
        try {
            Save(name);
        } catch (...) {
            Fail();
        }
    }

    void Save(const std::wstring& name) {
        // Sent as it is, the statement could change other users, or all of them.
        const std::wstring description = Get(L"TxtDes").Text();
        const ValueStyle style = database_.Style();
        if (MayMeanMore(style, {WithoutPairs(name), WithoutPairs(description), options_.OldName}))
            throw ComError(E_INVALIDARG, ToUncText(texts::kUserNotWritten, kToUnicode));
        const wchar_t* title = options_.EditMode ? kEditTitle : kAddTitle;
        Recordset edited, taken;
        // Its rows are not needed: a failure to read the user is shown before the check.
        if (options_.EditMode)
            OpenRecordset(database_, edited, LoadUserStatement(options_.OldName, style));
        const long error =
            OpenRecordset(database_, taken,
                          options_.EditMode ? OtherUserNamedStatement(name, options_.OldName, style)
                                            : UserNamedStatement(name, style));
        // A record set that opens but cannot be read ends the form: the name may be taken.
        if (error == 0 && !taken.Eof()) {
            ShowMsg(texts::kUserExists, kOkOnly, title);
        } else if (const auto refusal = CheckPass(name)) {
            ShowUnicodeMsg(*refusal, kOkOnly, title);
        } else {
            Write(name);
            written = true;
        }
        SelectFirstBox();
        if (written)
            Unload();
    }

    void Write(const std::wstring& name) {
        const Hourglass waiting;
        ItemList groups(Get(L"TxtIdGroup"));
        const long group = KeepsGroup() ? groupCode_ : SelectedItemData(groups).value_or(0);
        const UserFields user = {name, Get(L"TxtDes").Text(), group};
        std::optional<NewPassword> password;
        if (WritesPassword())
            password = {Get(L"TxtPass").Text(), MustChangeIsTicked()};
        std::optional<bool> mustChange;
        if (AsksForChange() && MustChangeIsTicked() != mustChange_)
            mustChange = MustChangeIsTicked();
        if (options_.EditMode)
            EditUser(operation_, options_.OldName, user, password, mustChange);
        else
            AddUser(operation_, user, password.value());
    }

    bool MustChangeIsTicked() {
        return AsksForChange() &&
               SendMessageW(Get(L"chkMustChange").Window(), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }

    // The name, or the password where that is all that the user may change.
    void SelectFirstBox() {
        Control& box = options_.AllowChange ? Get(L"TxtUser")
                       : Hashes()           ? Get(L"TxtCurrent")
                                            : Get(L"TxtPass");
        box.Focus();
        box.Select(0, static_cast<int>(box.Text().size()));
    }

    const Operation& operation_;
    const Database& database_;
    UserEditorOptions options_;
    PasswordBoxes passwords_;
    long userCode_ = 0;
    long groupCode_ = 0; // as it was loaded
    bool passChanged_ = false;
    bool mustChange_ = false; // as it was loaded
};

} // namespace

bool ShowUserEditor(const Operation& operation, const UserEditorOptions& options) {
    UserEditor editor(operation, options);
    editor.SetOwner(options.Owner);
    editor.ConfirmByEnter(operation.database.settings.EnterConfirms());
    if (const ErrorState error = Trap([&] { editor.ShowModal(); }))
        PlainMessage(ShownText(operation.database, error.description));
    return editor.written;
}

} // namespace vndesk
