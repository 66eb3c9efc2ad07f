// SPDX-License-Identifier: MIT
#include "security/group_manager.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/connect/failure.h"
#include "data/connect/name_search.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/transaction.h"
#include "data/connect/values.h"
#include "data/lists/list_box.h"
#include "data/text/captions.h"
#include "forms/keys/keys.h"
#include "forms/lists/found_items.h"
#include "forms/lists/item_list.h"
#include "forms/lists/search_line.h"
#include "forms/look/hourglass.h"
#include "forms/window/form_of.h"
#include "msgbox/message_box.h"
#include "security/group_changes.h"
#include "security/permission_form.h"
#include "security/text/captions.h"
#include "security/text/group_statements.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr auto kControls = std::to_array<ControlSpec>({
    Frame(L"FrDetail", texts::kGroupManagerGroups, {150, 120, 3600, 5070}, kGrowDown),
    ListBox(L"Lv1", {300, 420, 3300, 4140}, kMultiSelect | kEnterGoesOn | kGrowDown),
    Button(L"CmdDelete", texts::kGroupManagerDelete, {300, 4665, 1560, 375}, kMoveDown),
    Button(L"CmdPms", texts::kGroupManagerRights, {2040, 4665, 1560, 375}, kMoveDown),
    Frame(L"Frame1", texts::kGroupManagerDetail, {3900, 120, 4650, 1890}, kGrowRight),
    Label(L"Label1", texts::kGroupManagerName, {4050, 465, 1110, 240}, kMnemonic),
    TextBox(L"txtName", {5220, 420, 3180, 330}, kGrowRight),
    Label(L"Label2", texts::kGroupManagerDescription, {4050, 885, 1110, 240}, kMnemonic),
    TextBox(L"TxtDesc", {5220, 840, 3180, 330}, kGrowRight),
    // The next tab stop after the last box, for users who go on with Enter.
    Button(L"CmdWrite", texts::kGroupManagerWrite, {5220, 1410, 1530, 375}, kConfirms | kMoveRight),
    Button(L"CmdAdd", texts::kGroupAdd, {6870, 1410, 1530, 375}, kMoveRight),
    Frame(L"Frame2", L"", {3900, 2100, 4650, 3090}, kGrow),
    Label(L"lblDsUs", texts::kGroupManagerUsers, {4050, 2340, 4350, 240}, kMnemonic | kGrowRight),
    ListBox(L"lvUser", {4050, 2610, 4350, 2430}, kGrow),
    Button(L"CmdExit", texts::kGroupManagerExit, {7260, 5310, 1290, 375}, kCancel | kMove),
});
// Where the list shrinks to what the user types. The letter of the frame still leads to the list.
constexpr auto kSearchControls =
    WithSearchLine(kControls, L"Lv1", L"FrDetail", {texts::kListSearch, texts::kNothingFound});

constexpr FormSpec Design(std::span<const ControlSpec> controls) {
    return {.name = L"FmGrp",
            .caption = texts::kGroupManagerTitle,
            .client = {8700, 5805},
            .border = FormBorder::Sizable,
            .controls = controls};
}
constexpr FormSpec kForm = Design(kControls);
constexpr FormSpec kSearchForm = Design(kSearchControls);

constexpr wchar_t kSaveErrorTitle[] = L"Save Error";
constexpr wchar_t kDeleteTitle[] = L"Delete";

class GroupManager final : public FormOf<kSearchForm> {
public:
    explicit GroupManager(const Operation& operation)
        : FormOf(operation.database.settings.FindsNames() ? kSearchForm : kForm),
          operation_(operation), database_(operation.database),
          rules_(NameRules(database_.settings)) {}

protected:
    void OnLoad() override {
        groups_.emplace(Get(L"Lv1"));
        members_.emplace(Get(L"lvUser"));
        TieClicks<GroupManager>({{L"Lv1", &GroupManager::GroupClicked},
                                 {L"CmdAdd", &GroupManager::ToggleAdding},
                                 {L"CmdWrite", &GroupManager::Write},
                                 {L"CmdDelete", &GroupManager::Delete},
                                 {L"CmdPms", &GroupManager::ShowRights},
                                 {L"CmdExit", &GroupManager::Unload}});
        Get(L"txtName").onChange = [this] { CheckWrite(); };
        if (rules_)
            Get(L"TxtFind").onChange = [this] { SearchChanged(); };
    }

    void OnPrepared() override {
        // Frames are not among the controls whose captions preparation converts.
        for (const Name frame : {Name(L"FrDetail"), Name(L"Frame1")})
            Get(frame).SetCaption(ToUncText(Get(frame).Caption(), kToUnicode));
        Trap([&] { ReadInfo(AllGroups()); });
        ViewInit();
        CheckWrite();
    }

    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    bool OnKeyDown(const Control& control, WPARAM key) override {
        if (rules_ && &control == &Get(L"TxtFind"))
            return MovesTheList(key, Get(L"Lv1"));
        if (&control != &Get(L"Lv1") || !IsDeleteAlone(key))
            return false;
        Delete();
        return true;
    }

private:
    static std::wstring ItemText(const std::wstring& name, const std::wstring& description) {
        return name + L"-" + description;
    }

    void ReadInfo(const Statement& source) {
        const Hourglass waiting;
        Recordset rows;
        if (OpenRecordset(database_, rows, source) != 0 || CountRecords(rows) == 0)
            return;
        const ItemList::Filling filling = groups_->Filling();
        groups_->Clear();
        for (; !rows.Eof(); rows.MoveNext())
            AddListItem(*groups_,
                        ItemText(NullToText(rows.Value(L"Name")), NullToText(rows.Value(L"Des"))),
                        NullToInteger(rows.Value(0L)));
    }

    Statement AllGroups() const {
        return StatementWriter(database_.Style()) << WholeTable{tableName_};
    }

    void ViewInit() {
        if (groups_->ListCount() > 0)
            groups_->SetListIndex(0);
        GroupClicked();
    }

    void ViewUser(long code) {
        Trap([&] {
            const Hourglass waiting;
            const ItemList::Filling filling(*members_);
            members_->Clear();
            Recordset rows;
            if (OpenRecordset(database_, rows, GroupMembersStatement(code, database_.Style())) != 0)
                return;
            for (; !rows.Eof(); rows.MoveNext())
                members_->AddItem(NullToText(rows.Value(L"Name")));
        });
    }

    void ViewInfo(long code) {
        std::wstring name, description;
        Trap([&] {
            Recordset group;
            OpenRecordset(database_, group, GroupStatement(tableName_, code, database_.Style()));
            name = NullToText(group.Value(L"Name"));
            description = NullToText(group.Value(L"Des"));
        });
        // Empty when they cannot be read: another group's details must not be written to this one.
        Get(L"txtName").SetText(name);
        Get(L"TxtDesc").SetText(description);
    }

    // The details of a new group: its name is the number after the largest name.
    void AddRecord(Failure failure = Failure::Shown) {
        const long long largest = LastValue(database_, L"Groups", L"Name", failure);
        Get(L"txtName").SetText(std::to_wstring(largest + 1));
        Get(L"TxtDesc").SetText(L"");
    }

    // The groups that are found by the line above them; the first one is shown unless it is
    // already. The details stay where none is.
    void SearchChanged() {
        const std::wstring typed = Get(L"TxtFind").Text();
        groups_->Find(typed, *rules_);
        const bool any = groups_->ListCount() > 0;
        ShowFound(Get(L"Lv1"), Get(L"lblNone"), any || typed.empty());
        if (!any)
            return;
        const long shown = FindItemByData(*groups_, curCode_);
        groups_->SetListIndex(typed.empty() ? std::max(shown, 0L) : 0);
        if (SelectedItemData(*groups_) != curCode_)
            GroupClicked();
    }

    void ClearSearch() {
        if (rules_)
            Get(L"TxtFind").SetText(L"");
    }

    void GroupClicked() {
        if (groups_->IsEmpty()) {
            curCode_ = 0;
            members_->Clear();
            AddRecord();
            return;
        }
        // Where none is found, the one that is shown stays.
        curCode_ = SelectedItemData(*groups_).value_or(curCode_);
        ViewInfo(curCode_);
        ViewUser(curCode_);
    }

    void ToggleAdding() {
        browseMode_ = !browseMode_;
        Get(L"CmdAdd").SetCaption(
            ToUncText(browseMode_ ? texts::kGroupAdd : texts::kGroupCancelAdding, kToUnicode));
        SetFrameEnabled(Get(L"FrDetail"), browseMode_);
        if (browseMode_) {
            GroupClicked();
        } else {
            AddRecord();
            Get(L"txtName").Focus();
        }
    }

    // The error of the statement; none on success.
    ErrorState WriteData(long code, const std::wstring& name, const std::wstring& description) {
        const ValueStyle style = database_.Style();
        return Trap([&] {
            // Sent as it is, the statement could change other groups, or all of them.
            if (MayMeanMore(style, {WithoutPairs(name)}, DoubleQuotes(description)))
                throw ComError(E_INVALIDARG);
            if (code == 0)
                AddGroup(operation_, tableName_, {name, description});
            else
                EditGroup(operation_, tableName_, code, {name, description});
        });
    }

    void Write() {
        const std::wstring name = Get(L"txtName").Text();
        const std::wstring description = Get(L"TxtDesc").Text();
        if (const ErrorState error = WriteData(browseMode_ ? curCode_ : 0, name, description))
            ShowMsg(error.code == kAnswerLost ? texts::kAnswerLost
                    : browseMode_             ? texts::kGroupNotWritten
                                              : texts::kGroupNotAdded,
                    kOkOnly, kSaveErrorTitle);
        else if (!browseMode_)
            Added(name, description);
        else if (groups_->IsEmpty())
            AddedFirst(name, description);
        else
            Renamed(ItemText(name, description));
        Get(L"txtName").Focus();
    }

    void Renamed(const std::wstring& text) {
        if (const long item = ShownItem(); item >= 0)
            SetListText(*groups_, text, item);
        else
            groups_->Rename(curCode_, text);
    }

    // The item of the group in the detail fields: Control and the arrows move the list's own
    // current item away from it.
    long ShownItem() {
        const long current = groups_->ListIndex();
        return groups_->ItemData(current) == curCode_ ? current
                                                      : FindItemByData(*groups_, curCode_);
    }

    void Added(const std::wstring& name, const std::wstring& description) {
        AddListItem(*groups_, ItemText(name, description), NewCode());
        AddRecord(Failure::ShownAfterWrite);
    }

    // Written without the add button: where there is no group, the details are those of a new one.
    // It is shown from now on, and what is written next changes it: its code must be the right one.
    void AddedFirst(const std::wstring& name, const std::wstring& description) {
        AddListItem(*groups_, ItemText(name, description),
                    LastValue(database_, L"Groups", L"Code", Failure::Ignored));
        groups_->SetListIndex(0);
        curCode_ = groups_->ItemData(0);
    }

    // Most engines refuse the doubled brackets of the statement as it always was, which gives 0:
    // the code then comes when the form opens again. The group has been added, so the error is not
    // shown.
    long NewCode() {
        const std::wstring table = database_.Style().KeepsTexts() ? L"Groups" : tableName_;
        return LastValue(database_, table, L"Code", Failure::Ignored);
    }

    void Delete() {
        if (ShowMsg(texts::kGroupConfirmDelete, kYesNo, kDeleteTitle) != Pressed::Yes)
            return;
        const long before = groups_->ListCount();
        long place = 0;
        while (place < before && !groups_->Selected(place))
            ++place;
        const std::wstring codes = TakeSelectedItems(*groups_);
        const long taken = before - groups_->ListCount();
        // Nobody looks for what has been deleted.
        if (groups_->ListCount() == 0)
            ClearSearch();
        const long left = groups_->ListCount();
        // The next group moves into the place of the first one that went.
        if (taken > 0 && left > 0)
            groups_->SetListIndex(std::min(place, left - 1));
        GroupClicked();
        (left > 0 ? Get(L"Lv1") : Get(L"txtName")).Focus();
        if (codes.empty())
            return;
        const ErrorState error = Trap([&] { DeleteGroups(operation_, tableName_, codes); });
        if (error && (database_.settings.Audit || database_.settings.TellsLostAnswers())) {
            TellNotDeleted(error);
            return;
        }
        ShowMsg(std::to_wstring(taken) + texts::kGroupsDeleted, kOkOnly, kDeleteTitle);
    }

    // Where every change has its record, or is told to be lost, one that was not made is told.
    void TellNotDeleted(const ErrorState& error) {
        PlainMessage(ShownText(operation_.database, error.description));
        ClearSearch();
        Trap([&] { ReadInfo(AllGroups()); });
        ViewInit();
    }

    void ShowRights() {
        if (const ErrorState error = Trap([&] { ShowPermissionForm(operation_, curCode_); }))
            PlainMessage(ShownText(operation_.database, error.description));
    }

    void CheckWrite() { Get(L"CmdWrite").SetEnabled(!Get(L"txtName").Text().empty()); }

    const Operation& operation_;
    const Database& database_;
    const std::wstring tableName_ = L"[Groups]";
    long curCode_ = 0;
    bool browseMode_ = true;
    const std::optional<SearchRules> rules_;
    std::optional<FoundItems> groups_;
    std::optional<ItemList> members_;
};

} // namespace

void ShowGroupManager(const Operation& operation, HWND owner) {
    GroupManager form(operation);
    form.SetOwner(owner);
    form.ConfirmByEnter(operation.database.settings.EnterConfirms());
    form.ShowModal();
}

} // namespace vndesk
