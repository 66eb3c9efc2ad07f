// SPDX-License-Identifier: MIT
#include "controls/picker/item_picker.h"

#include <array>
#include <optional>
#include <utility>

#include "controls/picker/cls_list_box.h"
#include "controls/picker/found_names.h"
#include "controls/picker/text/captions.h"
#include "controls/picker/text/name_search.h"
#include "data/connect/name_search.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "data/text/captions.h"
#include "forms/keys/keys.h"
#include "comkit/base/upper_case.h"
#include "forms/lists/search_line.h"
#include "forms/look/hourglass.h"
#include "forms/window/form_of.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr ControlSpec kList = ListBox(L"lv1IP", {330, 870, 5640, 4020}, kGrow);
constexpr auto kControls = std::to_array<ControlSpec>({
    Frame(L"FrDetail", L"", {150, 120, 6000, 5280}, kGrow),
    Label(L"Label1", texts::kPickerSearch, {330, 480, 840, 240}, kMnemonic),
    TextBox(L"TxtSelH", {1230, 435, 4740, 330}, kGrowRight),
    // The next tab stop after the search box, for users who go on with Enter.
    Button(L"CmdSel", texts::kPickerChoose, {3450, 5520, 1290, 375}, kDisabled | kConfirms | kMove),
    Button(L"CmdQuit", texts::kPickerQuit, {4860, 5520, 1290, 375}, kCancel | kMove),
    kList,
    Label(L"lblCode", L"", {330, 5010, 5640, 240}, kEllipsis | kGrowRight | kMoveDown),
    // Part of the form's set of controls, without behaviour, so it is not shown.
    ListView(L"Lv1", {330, 870, 5640, 4020}, kHidden),
});
// Where the list may shrink to nothing.
constexpr auto kShrinkingControls =
    WithRow(kControls, L"lv1IP", 0,
            std::to_array<ControlSpec>({NothingFound(texts::kNothingFound, kList)}));

constexpr FormSpec Design(std::span<const ControlSpec> controls) {
    return {.name = L"FmSelHang",
            .caption = texts::kPickerTitle,
            .client = {6300, 6015},
            .border = FormBorder::Sizable,
            .controls = controls};
}
constexpr FormSpec kForm = Design(kControls);
constexpr FormSpec kShrinkingForm = Design(kShrinkingControls);

// WM_TIMER comes when everything is painted and no key waits.
constexpr UINT_PTR kIndexTimer = 1;
constexpr UINT_PTR kFillTimer = 2;

class ItemPicker final : public FormOf<kShrinkingForm> {
public:
    ItemPicker(const Database& database, const std::wstring& asked)
        : FormOf(database.settings.FindsNames() ? kShrinkingForm : kForm), database_(database) {
        if (const auto rules = NameRules(database.settings))
            found_.emplace(*rules, asked);
    }

    Statement SqlText;
    std::wstring SelValue;
    std::wstring searchText;

protected:
    void OnLoad() override {
        Get(L"lv1IP").onClick = [this] { ItemSelected(); };
        Get(L"lv1IP").onDoubleClick = [this] { Choose(); };
        Get(L"TxtSelH").onChange = [this] { SearchChanged(); };
        Get(L"CmdSel").onClick = [this] { Choose(); };
        Get(L"CmdQuit").onClick = [this] { Unload(); };
    }

    void OnPrepared() override {
        items_.SetTListBox(Get(L"lv1IP"));
        ReadInfo(SqlText);
        SelValue = items_.Value();
        Control& search = Get(L"TxtSelH");
        search.SetText(searchText);
        // The focus will select the whole text, and the first letter typed would replace what the
        // list was made for. This comes after the focus.
        PostMessageW(search.Window(), EM_SETSEL, searchText.size(),
                     static_cast<LPARAM>(searchText.size()));
        if (found_)
            ShowFound();
        else if (items_.ListCount() > 0)
            items_.SetListIndex(0);
        else
            Get(L"lblCode").SetCaption(ToUncText(texts::kNothingFound, kToUnicode));
        Get(L"FrDetail").SetCaption(ToUncText(texts::kPickerDetail, kToUnicode));
        if (!found_)
            SetTimer(Window(), kIndexTimer, USER_TIMER_MINIMUM, nullptr);
    }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER && wParam == kIndexTimer) {
            KillTimer(Window(), kIndexTimer);
            names_.Index();
            return 0;
        }
        if (message == WM_TIMER && wParam == kFillTimer) {
            if (!found_->ShowMore(items_))
                KillTimer(Window(), kFillTimer);
            return 0;
        }
        return Form::OnMessage(message, wParam, lParam);
    }

    // Enter moves on like Tab where it does not confirm.
    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    // The list moves while the focus stays in the search box.
    bool OnKeyDown(const Control& control, WPARAM key) override {
        return &control == &Get(L"TxtSelH") && MovesTheList(key, Get(L"lv1IP"));
    }

    void OnUnload() override {
        if (!chosen_)
            SelValue.clear();
    }

private:
    long ReadInfo(const Statement& statement) {
        long count = 0;
        Trap([&] {
            const Hourglass waiting;
            Recordset rows;
            if (OpenRecordset(database_, rows, statement) != 0)
                return;
            if (!rows.Eof())
                Fill(rows);
            count = CountRecords(rows);
            rows.Close();
        });
        return count;
    }

    void Fill(Recordset& rows) {
        const ItemList::Filling filling = items_.Filling();
        items_.Clear();
        names_.Clear();
        for (; !rows.Eof(); rows.MoveNext()) {
            std::wstring name = NullToText(rows.Value(1L));
            if (found_) {
                found_->Add(std::move(name), NullToText(rows.Value(0L)));
                continue;
            }
            items_.AddItem(name);
            names_.Add(UpperCase(std::move(name)));
            items_.SetItemData(items_.NewIndex(), NullToText(rows.Value(0L)));
        }
    }

    // The first item whose name begins with the text, letter case aside.
    long FindString(const std::wstring& text) const { return names_.Find(UpperCase(text)); }

    void ItemSelected() {
        const long index = items_.ListIndex();
        if (items_.ListCount() == 0 || index < 0)
            return;
        SelValue = items_.ItemData(index);
        Get(L"lblCode").SetCaption(ToUncText(texts::kPickerCode, kToUnicode) + SelValue);
        Get(L"CmdSel").SetEnabled(true);
    }

    // The best names that are found by what stands in the search box, and what follows them.
    void ShowFound() {
        found_->Show(items_, Get(L"TxtSelH").Text());
        const bool any = items_.ListCount() > 0;
        vndesk::ShowFound(Get(L"lv1IP"), Get(L"lblNone"), any);
        if (any) {
            items_.SetListIndex(0);
        } else {
            SelValue.clear();
            Get(L"lblCode").SetCaption(L"");
            Get(L"CmdSel").SetEnabled(false);
        }
        SetTimer(Window(), kFillTimer, USER_TIMER_MINIMUM, nullptr);
    }

    // A text that no name begins with leaves the selection where it was.
    void SearchChanged() {
        if (found_) {
            ShowFound();
            return;
        }
        if (const long index = FindString(Get(L"TxtSelH").Text()); index >= 0)
            items_.SetListIndex(index);
    }

    void Choose() {
        chosen_ = true;
        Unload();
    }

    const Database& database_;
    clsListBox items_;
    NameSearch names_;
    // Where the list shrinks, instead.
    std::optional<FoundNames> found_;
    bool chosen_ = false;
};

} // namespace

std::wstring PickItem(const Database& database, const Statement& sqlText,
                      const std::wstring& searchText, const std::wstring& asked) {
    ItemPicker picker(database, asked);
    picker.ConfirmByEnter(database.settings.EnterConfirms());
    picker.SqlText = sqlText;
    picker.searchText = searchText;
    picker.ShowModal();
    return picker.SelValue;
}

} // namespace vndesk
