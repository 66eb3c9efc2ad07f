// SPDX-License-Identifier: MIT
#include "security/permission_form.h"

#include <stdexcept>
#include <vector>

#include "data/connect/failure.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/lists/list_box.h"
#include "forms/keys/keys.h"
#include "forms/lists/check_list.h"
#include "forms/lists/item_list.h"
#include "forms/window/form_of.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/group_changes.h"
#include "security/text/captions.h"
#include "security/text/permissions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr ControlSpec kControls[] = {
    Label(L"LblTitle", texts::kPermissionGroupIs, {180, 150, 6900, 255}, kEllipsis | kGrowRight),
    Label(L"lblBars", texts::kPermissionBars, {180, 510, 2400, 240}, kMnemonic),
    ListBox(L"LstMenuBar", {180, 780, 2400, 3300}, kGrowDown),
    Label(L"lblCommands", texts::kPermissionCommands, {2700, 510, 4380, 240}, kMnemonic),
    CheckListBox(L"LstSubMenu", {2700, 780, 4380, 3300}, kGrow),
    Button(L"CmdOk", texts::kPermissionOk, {4380, 4230, 1290, 375}, kConfirms | kMove),
    Button(L"Command1", texts::kPermissionCancel, {5790, 4230, 1290, 375}, kCancel | kMove),
};

constexpr FormSpec kForm = {
    .name = L"FrPms",
    .caption = texts::kPermissionFormTitle,
    .client = {7260, 4785},
    .border = FormBorder::Sizable,
    .controls = kControls,
};

// Code, name and description stand before the masks.
constexpr long kFirstMaskColumn = 3;

class PermissionForm final : public FormOf<kForm> {
public:
    PermissionForm(const Operation& operation, long groupCode)
        : operation_(operation), database_(operation.database), groupCode_(groupCode) {}

protected:
    void OnLoad() override {
        bars_.emplace(Get(L"LstMenuBar"));
        commands_.emplace(Get(L"LstSubMenu"), [this] { CommandTicked(); });
        Get(L"LstMenuBar").onClick = [this] { Reporting([this] { ShowBar(); }); };
        Get(L"CmdOk").onClick = [this] { Confirm(); };
        Get(L"Command1").onClick = [this] { Unload(); };
    }

    void OnPrepared() override {
        ReadInf(StatementWriter(database_.Style()) << WholeTable{L"Menu"},
                [this](const std::wstring& text, long id) { AddListItem(*bars_, text, id); });
        if (bars_->ListCount() == 0)
            return;
        pms_.assign(static_cast<size_t>(bars_->ListCount()) + 1, 0);
        bool known = false;
        // Rights that could not be read would be written back as none.
        if (const ErrorState error = Trap([&] { known = ReadPms(pms_); }))
            PlainMessage(ShownText(operation_.database, error.description));
        read_ = pms_;
        Get(L"CmdOk").SetEnabled(known);
        // The first bar is selected, so that the keyboard can be used at once.
        bars_->SetListIndex(0);
        Reporting([this] { ShowBar(); });
    }

    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    void OnResize() override {
        if (commands_)
            commands_->FitColumn();
    }

private:
    // A bar with too many commands is reported, and the form stays open.
    template <class Step> void Reporting(Step step) {
        if (const ErrorState error = Trap(step))
            PlainMessage(ShownText(operation_.database, error.description));
    }

    template <class AddItem> void ReadInf(const Statement& source, AddItem addItem) {
        Recordset rows;
        if (OpenRecordset(database_, rows, source) != 0)
            return;
        for (; !rows.Eof(); rows.MoveNext())
            addItem(NullToText(rows.Value(L"Desc")), NullToInteger(rows.Value(L"ID")));
    }

    // False when the rights cannot be read; the user has seen the error.
    bool ReadPms(std::vector<long>& masks) {
        Recordset group;
        if (OpenRecordset(database_, group, GroupRightsStatement(groupCode_, database_.Style())) !=
            0)
            return false;
        // A group that is gone has no rights, and none are written.
        if (group.Eof())
            return true;
        Get(L"LblTitle")
            .SetCaption(ToUncText(texts::kPermissionGroupIs, kToUnicode) +
                        NullToText(group.Value(L"Name")) + L"-" + NullToText(group.Value(L"Des")));
        // Nothing is granted in a bar without a column.
        const long columns = group.FieldCount();
        for (size_t k = 0; k + 1 < masks.size(); ++k)
            if (const long column = kFirstMaskColumn + static_cast<long>(k); column < columns)
                masks[k] = NullToInteger(group.Value(column));
        return true;
    }

    // What has been written meanwhile by another program would be lost.
    bool MayOverwrite() {
        if (!database_.settings.Audit)
            return true;
        std::vector<long> now(pms_.size(), 0);
        if (!ReadPms(now))
            return false;
        if (now == read_)
            return true;
        if (ShowMsg(texts::kPermissionChanged, kYesNo, texts::kNotice) != Pressed::Yes)
            return false;
        read_ = now;
        return true;
    }

    void ShowBar() {
        const long index = bars_->ListIndex();
        if (index < 0)
            return;
        // First, because a tick on a command left from before would count for the bar chosen now.
        commands_->Clear();
        const long id = bars_->ItemData(index);
        if (id != static_cast<short>(id))
            throw std::overflow_error("menu bar numbers have 16 bits");
        ReadCommands(static_cast<short>(id));
        commands_->SelectFirst();
        for (long i = 0; i < commands_->Count(); ++i)
            commands_->SetChecked(i, IsGranted(Mask(index), static_cast<size_t>(i)));
    }

    // All of a bar's commands or none: each tick makes the bar's mask anew from the commands shown.
    void ReadCommands(short barId) {
        try {
            ReadInf(
                MenuCommandsStatement(barId, database_.Style()),
                [this](const std::wstring& text, long code) { commands_->AddItem(text, code); });
        } catch (...) {
            commands_->Clear();
            throw;
        }
    }

    long& Mask(long bar) { return pms_.at(static_cast<size_t>(bar)); }

    void CommandTicked() {
        Reporting([this] {
            std::vector<bool> ticked(static_cast<size_t>(commands_->Count()));
            for (size_t i = 0; i < ticked.size(); ++i)
                ticked[i] = commands_->Checked(static_cast<long>(i));
            Mask(bars_->ListIndex()) = MaskOf(ticked);
        });
    }

    void Confirm() {
        Recordset groups;
        if (OpenRecordset(database_, groups,
                          StatementWriter(database_.Style()) << WholeTable{L"Groups"}) != 0)
            return;
        try {
            if (!MayOverwrite())
                return;
            std::vector<std::wstring> columns;
            for (long k = 0; k < bars_->ListCount(); ++k)
                columns.push_back(groups.FieldName(kFirstMaskColumn + k));
            WriteRights(operation_, groupCode_, {columns, read_}, {columns, pms_});
            Unload();
        } catch (...) {
            Fail();
        }
    }

    const Operation& operation_;
    const Database& database_;
    const long groupCode_;
    // One mask a bar, and a spare one.
    std::vector<long> pms_;
    std::vector<long> read_; // as the database had them
    std::optional<ItemList> bars_;
    std::optional<CheckList> commands_;
};

} // namespace

void ShowPermissionForm(const Operation& operation, long groupCode) {
    PermissionForm form(operation, groupCode);
    form.ConfirmByEnter(operation.database.settings.EnterConfirms());
    form.ShowModal();
}

} // namespace vndesk
