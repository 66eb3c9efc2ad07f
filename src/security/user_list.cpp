// SPDX-License-Identifier: MIT
#include "security/user_list.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "accounts/local_time.h"
#include "accounts/passwords.h"
#include "data/connect/failure.h"
#include "data/connect/name_search.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/text/captions.h"
#include "forms/keys/keys.h"
#include "forms/lists/report_list.h"
#include "forms/lists/search_line.h"
#include "forms/look/hourglass.h"
#include "forms/window/form_of.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/text/captions.h"
#include "security/user_changes.h"
#include "security/user_editor.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr auto kControls = std::to_array<ControlSpec>({
    ListView(L"Lv", {180, 180, 6600, 4200}, kGrow),
    Button(L"CmdAdd", texts::kUserListAdd, {6930, 180, 1290, 375}, kMoveRight),
    Button(L"CmdEdit", texts::kUserListEdit, {6930, 660, 1290, 375}, kConfirms | kMoveRight),
    Button(L"CmdDel", texts::kUserListDelete, {6930, 1140, 1290, 375}, kMoveRight),
    Button(L"CmdExit", texts::kUserListExit, {6930, 4005, 1290, 375}, kCancel | kMove),
});
// Where users may be locked.
constexpr auto kLockControls =
    WithRow(kControls, L"CmdExit", 0,
            std::to_array<ControlSpec>({Button(L"CmdUnlock", texts::kUserListUnlock,
                                               {6930, 1620, 1290, 375}, kMoveRight)}));

constexpr FormSpec Design(std::span<const ControlSpec> controls) {
    return {.name = L"FrmMenu",
            .caption = texts::kUserListTitle,
            .client = {8400, 4560},
            .border = FormBorder::Sizable,
            .controls = controls};
}
constexpr FormSpec kForm = Design(kControls);
constexpr FormSpec kLockForm = Design(kLockControls);
// Where the list shrinks to what the user types.
constexpr SearchLineTexts kSearchTexts = {texts::kListSearch, texts::kNothingFound};
constexpr auto kSearchControls = WithSearchLine(kControls, L"Lv", L"Lv", kSearchTexts);
constexpr auto kLockSearchControls = WithSearchLine(kLockControls, L"Lv", L"Lv", kSearchTexts);
constexpr FormSpec kSearchForm = Design(kSearchControls);
constexpr FormSpec kLockSearchForm = Design(kLockSearchControls);

const FormSpec& DesignFor(const Settings& settings) {
    if (settings.FindsNames())
        return settings.LockAfter > 0 ? kLockSearchForm : kSearchForm;
    return settings.LockAfter > 0 ? kLockForm : kForm;
}

// The built-in account, which may be renamed but not deleted.
constexpr double kProtectedUser = 3;

enum Column : size_t { kName, kDescription, kCode, kState };

std::wstring KeyOf(const std::wstring& code) {
    return L"T" + code;
}

ReportRow RowOf(Recordset& user) {
    const std::wstring code = NullToText(user.Value(L"Code"));
    return {KeyOf(code), {NullToText(user.Value(L"Name")), NullToText(user.Value(L"Dec")), code}};
}

class UserList final : public FormOf<kLockSearchForm> {
public:
    explicit UserList(const Operation& operation)
        : FormOf(DesignFor(operation.database.settings)), operation_(operation),
          database_(operation.database), rules_(NameRules(database_.settings)) {}

protected:
    void OnLoad() override {
        TieClicks<UserList>({{L"CmdAdd", &UserList::Add},
                             {L"CmdEdit", &UserList::Edit},
                             {L"CmdDel", &UserList::Delete},
                             {L"CmdExit", &UserList::Unload}});
        if (Locks())
            TieClicks<UserList>({{L"CmdUnlock", &UserList::Unlock}});
        if (rules_)
            Get(L"TxtFind").onChange = [this] {
                ShowRows();
                users_->SelectPlace(0);
            };
    }

    void OnPrepared() override {
        users_.emplace(Get(L"Lv"), Columns());
        users_->onDoubleClick = [this] { Edit(); };
        if (rules_)
            users_->accents = rules_->accents;
        Trap([&] { ReadInfo(); });
        ReadLocks();
        users_->Refresh();
        if (!users_->Rows().empty())
            users_->Select(0);
    }

    void OnResize() override {
        if (users_)
            users_->FitColumns();
    }

    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    bool OnKeyDown(const Control& control, WPARAM key) override {
        if (rules_ && &control == &Get(L"TxtFind"))
            return MovesTheList(key, Get(L"Lv"));
        if (&control != &Get(L"Lv") || !IsDeleteAlone(key))
            return false;
        Delete();
        return true;
    }

private:
    bool Locks() const { return database_.settings.LockAfter > 0; }

    std::vector<ReportColumn> Columns() const {
        const auto shown = [](const wchar_t* caption) { return ToUncText(caption, kToUnicode); };
        if (!Locks())
            return {{L"cName", shown(texts::kUserListName), 0.35},
                    {L"cDes", shown(texts::kUserListDescription), 0.48},
                    {L"cCode", shown(texts::kUserListCode), 0.17}};
        return {{L"cName", shown(texts::kUserListName), 0.27},
                {L"cDes", shown(texts::kUserListDescription), 0.33},
                {L"cCode", shown(texts::kUserListCode), 0.12},
                {L"cState", shown(texts::kUserListState), 0.28}};
    }

    // Of a list that shrinks, the rows that are found by the line above it; names come before
    // descriptions. All where the line is empty.
    void ShowRows() {
        if (rules_) {
            const std::wstring typed = Get(L"TxtFind").Text();
            if (!typed.empty() && !hits_) {
                hits_.emplace(*rules_);
                for (const ReportRow& row : users_->Rows())
                    hits_->Add(row.cells[kName] + L" " + row.cells[kDescription]);
            }
            users_->ShowOnly(typed.empty() ? std::nullopt : std::optional(hits_->Find(typed)));
            ShowFound(Get(L"Lv"), Get(L"lblNone"), typed.empty() || users_->ShownCount() > 0);
        }
        users_->Refresh();
    }

    // After a change of the rows.
    void ShowChangedRows() {
        hits_.reset();
        ShowRows();
    }

    // Nobody looks for a user who has just been added or is the only one left.
    void ShowAllRows() {
        if (rules_)
            Get(L"TxtFind").SetText(L"");
        ShowChangedRows();
    }

    // Who is locked now, into the rows. Nobody is where it cannot be read.
    void ReadLocks() {
        if (!Locks())
            return;
        std::map<std::wstring, std::wstring> locked;
        Trap([&] {
            for (const LockedUser& user : LockedUsers(database_))
                locked[KeyOf(std::to_wstring(user.userCode))] =
                    ToUncText(texts::kUserListLockedUntil + LocalTimeText(user.until), kToUnicode);
        });
        for (ReportRow& row : users_->Rows()) {
            row.cells.resize(kState + 1);
            const auto found = locked.find(row.key);
            row.cells[kState] = found == locked.end() ? L"" : found->second;
        }
    }

    void Unlock() {
        const std::optional<ReportRow> row = Selected();
        if (!row)
            return;
        const long code = NullToInteger(_variant_t(row->cells[kCode].c_str()));
        if (const ErrorState error = Trap([&] { UnlockUser(operation_, code); }))
            PlainMessage(ShownText(operation_.database, error.description));
        ReadLocks();
        users_->Refresh();
        Get(L"Lv").Focus();
    }

    void Append(const Statement& statement, Failure failure = Failure::Shown) {
        Recordset rows;
        if (OpenRecordset(database_, rows, statement, nullptr, failure) != 0)
            return;
        for (; !rows.Eof(); rows.MoveNext())
            users_->Rows().push_back(RowOf(rows));
    }

    // Adds the rows that are not shown yet. The statement may return shown ones: the last code
    // counts as 0 when it cannot be read.
    void AppendNew(const Statement& statement, Failure failure) {
        auto& rows = users_->Rows();
        const auto shown = static_cast<std::ptrdiff_t>(rows.size());
        // Rows before a failure stay.
        Trap([&] { Append(statement, failure); });
        const auto isShown = [&](const ReportRow& row) {
            return std::any_of(rows.begin(), rows.begin() + shown,
                               [&](const ReportRow& other) { return other.key == row.key; });
        };
        rows.erase(std::remove_if(rows.begin() + shown, rows.end(), isShown), rows.end());
    }

    void ReadInfo() {
        const Hourglass waiting;
        Append(OwnStatement(kUserListStatement, database_.Style()));
    }

    // A copy: while a question or the editor is open, the rows may change.
    std::optional<ReportRow> Selected() {
        const auto index = static_cast<size_t>(users_->SelectedIndex());
        const auto& rows = users_->Rows();
        return index < rows.size() ? std::optional(rows[index]) : std::nullopt;
    }

    // What is told when the rows cannot be read again.
    Failure Edit(const UserEditorOptions& options) {
        return ShowUserEditor(operation_, options) ? Failure::ShownAfterWrite : Failure::Shown;
    }

    void Add() {
        const long before = LastValue(database_, L"User", L"Code");
        const Failure failure = Edit({.AllowChange = true, .EditMode = false, .OldName = {}});
        const long after = LastValue(database_, L"User", L"Code", failure);
        if (after > before) {
            AppendNew(UsersAfterStatement(before, database_.Style()), failure);
            ReadLocks();
            ShowAllRows();
            users_->Select(static_cast<long>(users_->Rows().size()) - 1);
        }
        Get(L"Lv").Focus();
    }

    void Edit() {
        const std::optional<ReportRow> row = Selected();
        if (!row)
            return;
        const Failure failure =
            Edit({.AllowChange = true, .EditMode = true, .OldName = row->cells[kName]});
        Recordset user;
        OpenRecordset(database_, user, UserWithCodeStatement(row->cells[kCode], database_.Style()),
                      nullptr, failure);
        if (CountRecords(user) > 0)
            if (ReportRow* edited = FindRow(row->key))
                *edited = RowOf(user);
        ReadLocks();
        ShowChangedRows();
        if (rules_)
            SelectAgain(row->key);
        Get(L"Lv").Focus();
    }

    // The row, which may have another place now, or the first one.
    void SelectAgain(const std::wstring& key) {
        users_->SelectPlace(0);
        if (const ReportRow* row = FindRow(key))
            users_->Select(static_cast<long>(row - users_->Rows().data()));
    }

    ReportRow* FindRow(const std::wstring& key) {
        auto& rows = users_->Rows();
        const auto found = std::find_if(rows.begin(), rows.end(),
                                        [&](const ReportRow& row) { return row.key == key; });
        return found == rows.end() ? nullptr : &*found;
    }

    void Delete() {
        const std::optional<ReportRow> row = Selected();
        if (!row)
            return;
        if (NullToDouble(_variant_t(row->cells[kCode].c_str())) == kProtectedUser)
            ShowMsg(texts::kUserListNoDelete, kOkOnly, texts::kNotice);
        else if (users_->Rows().size() == 1)
            ShowMsg(texts::kUserListLastUser, kOkOnly, texts::kNotice);
        else if (ShowMsg(texts::kUserListConfirmDelete, kYesNo, texts::kNotice) == Pressed::Yes &&
                 users_->Rows().size() > 1)
            DeleteRow(*row);
        Get(L"Lv").Focus();
    }

    void DeleteRow(const ReportRow& deleted) {
        const ErrorState error = Trap([&] { Delete(deleted.cells[kName]); });
        if (error) {
            PlainMessage(ShownText(operation_.database, error.description), L"");
            return;
        }
        auto& rows = users_->Rows();
        const long place = users_->SelectedPlace();
        std::erase_if(rows, [&](const ReportRow& row) { return row.key == deleted.key; });
        ShowChangedRows();
        if (users_->ShownCount() == 0)
            ShowAllRows();
        users_->SelectPlace(std::min(place, users_->ShownCount() - 1));
    }

    void Delete(const std::wstring& name) {
        // Sent as it is, the statement could delete other users, or all of them.
        if (MayMeanMore(database_.Style(), {name}))
            throw ComError(E_INVALIDARG, ToUncText(texts::kUserNotWritten, kToUnicode));
        DeleteUser(operation_, name);
    }

    const Operation& operation_;
    const Database& database_;
    const std::optional<SearchRules> rules_;
    std::optional<ReportList> users_;
    // Of the rows as they are; made when the user types.
    std::optional<NameHits> hits_;
};

} // namespace

void ShowUserList(const Operation& operation, HWND owner) {
    UserList form(operation);
    form.SetOwner(owner);
    form.ConfirmByEnter(operation.database.settings.EnterConfirms());
    form.ShowModal();
}

} // namespace vndesk
