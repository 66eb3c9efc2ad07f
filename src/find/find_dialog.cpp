// SPDX-License-Identifier: MIT
#include "find/find_dialog.h"

#include <commctrl.h>

#include <optional>

#include "controls/combo/window/data_combo.h"
#include "controls/picker/item_picker.h"
#include "data/connect/engine.h"
#include "data/connect/failure.h"
#include "data/connect/name_search.h"
#include "data/connect/plain_message.h"
#include "find/field_info.h"
#include "find/fill_combo.h"
#include "find/text/captions.h"
#include "find/text/catalogue.h"
#include "find/text/condition.h"
#include "find/text/parameterized_condition.h"
#include "forms/keys/keys.h"
#include "forms/keys/tab_stroke.h"
#include "forms/window/form_of.h"
#include "msgbox/message_box.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// Each line reads as a sentence: how it joins the one above, the field, the operator, the value.
// Enter goes along it, and from the value of a complete line to the next one.
constexpr double kLineHeight = 435;
constexpr double LineTop(int line) {
    return 420 + line * kLineHeight;
}
constexpr ControlSpec Join(const wchar_t* name, int line) {
    return DataComboSpec(name, {180, LineTop(line), 1080, 330}, kEnterGoesOn);
}
constexpr ControlSpec Field(const wchar_t* name, int line) {
    return DataComboSpec(name, {1380, LineTop(line), 2760, 330}, kEnterGoesOn);
}
constexpr ControlSpec Predicate(const wchar_t* name, int line) {
    return DataComboSpec(name, {4260, LineTop(line), 2040, 330}, kEnterGoesOn);
}
constexpr ControlSpec Value(const wchar_t* name, int line) {
    return TextBox(name, {6420, LineTop(line), 2760, 330}, kEnterGoesOn);
}

constexpr ControlSpec kControls[] = {
    Label(L"lblFirst", texts::kFindFirst, {180, LineTop(0) + 45, 1080, 240}),
    Label(L"Label1", texts::kFindField, {1380, 150, 2760, 240}, kMnemonic),
    Field(L"CmbFld(0)", 0),
    Label(L"Label2", texts::kFindOperator, {4260, 150, 2040, 240}, kMnemonic),
    Predicate(L"CmbPredicate(0)", 0),
    Label(L"Label3", texts::kFindValue, {6420, 150, 2760, 240}, kMnemonic),
    Value(L"MskValue(0)", 0),
    Join(L"cmbLg(1)", 1),
    Field(L"CmbFld(1)", 1),
    Predicate(L"CmbPredicate(1)", 1),
    Value(L"MskValue(1)", 1),
    Join(L"cmbLg(2)", 2),
    Field(L"CmbFld(2)", 2),
    Predicate(L"CmbPredicate(2)", 2),
    Value(L"MskValue(2)", 2),
    Join(L"cmbLg(3)", 3),
    Field(L"CmbFld(3)", 3),
    Predicate(L"CmbPredicate(3)", 3),
    Value(L"MskValue(3)", 3),
    Label(L"lblResult", texts::kFindResult, {180, 2235, 9000, 240}, kMnemonic),
    TextBox(L"TxtResult", {180, 2505, 9000, 1125}, kMultiLine | kReadOnly),
    Frame(L"FrCmd", L"", {4530, 3690, 4650, 690}),
    Button(L"CmdOk", texts::kFindOk, {4680, 3855, 1350, 375}, kConfirms),
    Button(L"CmdCancel", texts::kFindCancel, {6180, 3855, 1350, 375}, kCancel),
    Button(L"CmdHelp", texts::kFindHelp, {7680, 3855, 1350, 375}),
};

constexpr FormSpec kForm = {
    .name = L"FrmFind",
    .caption = texts::kFindTitle,
    .client = {9360, 4530},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

constexpr long kFirst = 0;
constexpr long kLines = kConditionLines;

std::wstring Shown(const wchar_t* text) {
    return ToUncText(text, kToUnicode);
}

// The name of a control in a row of them, without its place.
std::wstring RowName(const Control& control) {
    return control.Name().substr(0, control.Name().find(L'('));
}

class FindForm final : public FormOf<kForm> {
public:
    FindForm(const Database& database, const std::wstring& table)
        : database_(database), table_(table) {}

    SearchCondition condition;

protected:
    void OnLoad() override {
        TieClicks<FindForm>({{L"CmdOk", &FindForm::Confirm},
                             {L"CmdCancel", &FindForm::Cancel},
                             {L"CmdHelp", &FindForm::Help}});
    }

    void OnPrepared() override {
        ReadData();
        info_ = ReadFieldInfo(database_, FieldInfoStatement(table_, database_.Style()),
                              kCatalogueOrder);
        for (long i = kFirst; i < kLines; ++i)
            Listen(i);
        condition = {};
        Get(L"CmdOk").SetEnabled(true);
        for (long i = kFirst + 1; i < kLines; ++i)
            SetLineEnabled(i, false);
        // A table without fields leaves nothing to confirm.
        if (Fields(kFirst).ListCount() > 0)
            Fields(kFirst).SetListIndex(0);
        else
            Get(L"CmdOk").SetEnabled(false);
    }

    // Enter moves on like Tab where it does not confirm.
    bool OnKeyPress(wchar_t character) override { return EnterAsTab(character); }

    bool OnKeyDown(const Control& control, WPARAM key) override {
        if (key == VK_F10) {
            PlainMessage(RowName(control));
            return true;
        }
        for (long i = kFirst; key == VK_F2 && i < kLines; ++i)
            if (&control == &ValueBox(i)) {
                // A failed look-up leaves the line as it is.
                Trap([&] { LookUp(i); });
                return true;
            }
        return false;
    }

private:
    struct LineNames {
        Name field, predicate, value;
        std::optional<Name> join;
    };
    static constexpr LineNames kNames[kLines] = {
        {L"CmbFld(0)", L"CmbPredicate(0)", L"MskValue(0)", std::nullopt},
        {L"CmbFld(1)", L"CmbPredicate(1)", L"MskValue(1)", Name(L"cmbLg(1)")},
        {L"CmbFld(2)", L"CmbPredicate(2)", L"MskValue(2)", Name(L"cmbLg(2)")},
        {L"CmbFld(3)", L"CmbPredicate(3)", L"MskValue(3)", Name(L"cmbLg(3)")},
    };

    DataCombo& Combo(Name name) { return DataCombo::Of(Get(name).Window()); }
    DataCombo& Fields(long line) { return Combo(kNames[line].field); }
    DataCombo& Predicates(long line) { return Combo(kNames[line].predicate); }
    DataCombo& Joins(long line) { return Combo(kNames[line].join.value()); }
    Control& ValueBox(long line) { return Get(kNames[line].value); }

    void ReadData() {
        DataCombo& fields = Fields(kFirst);
        FillCombo(database_, fields, FieldListStatement(table_, database_.Style()),
                  kCatalogueOrder);
        for (long i = kFirst + 1; i < kLines; ++i) {
            AddValue(Joins(i), Shown(texts::kFindAnd), L"and");
            AddValue(Joins(i), Shown(texts::kFindOr), L"or");
            Joins(i).SetListIndex(0);
            for (long field = 0; field < fields.ListCount(); ++field)
                AddValue(Fields(i), fields.List(field), fields.ItemData(field));
        }
    }

    static void AddValue(DataCombo& combo, const std::wstring& text, const std::wstring& value) {
        combo.AddItem(text);
        combo.SetItemData(combo.NewIndex(), value);
    }

    void Listen(long line) {
        for (DataCombo* combo : {&Fields(line), &Predicates(line)})
            combo->SetAccents(static_cast<Sensitivity>(database_.settings.Accents));
        Fields(line).onClick = [this, line] { Reporting([&] { FieldChanged(line); }); };
        const auto changed = [this] { Reporting([this] { Refresh(); }); };
        Predicates(line).onClick = changed;
        ValueBox(line).onChange = changed;
        if (line > kFirst)
            Joins(line).onClick = [this] { Reporting([this] { SetEnable(); }); };
    }

    // An error ends the step, and the form goes on.
    template <class Step> void Reporting(Step step) {
        if (const ErrorState error = Trap(step))
            PlainMessage(ShownText(database_, error.description));
    }

    long FieldType(long field) { return info_.FieldType.at(static_cast<size_t>(field)); }

    ConditionLine Line(long line) {
        DataCombo& fields = Fields(line);
        DataCombo& predicates = Predicates(line);
        ConditionLine filled;
        filled.fieldIndex = fields.ListIndex();
        filled.fieldType = filled.fieldIndex < 0 ? 0 : FieldType(filled.fieldIndex);
        filled.fieldName = fields.Value();
        filled.fieldText = fields.Text();
        filled.operatorIndex = predicates.ListIndex();
        filled.operatorName = predicates.Value();
        filled.operatorText = predicates.Text();
        filled.value = ValueBox(line).Text();
        filled.enabled = fields.Enabled();
        if (line > kFirst) {
            filled.joinName = Joins(line).Value();
            filled.joinText = Joins(line).Text();
        }
        return filled;
    }

    ConditionLines Lines() {
        ConditionLines lines;
        for (long i = kFirst; i < kLines; ++i)
            lines[static_cast<size_t>(i)] = Line(i);
        return lines;
    }

    void FieldChanged(long line) {
        ChkVisible(line);
        Refresh();
    }

    void Refresh() {
        Get(L"CmdOk").SetEnabled(CheckSql(Line(kFirst)));
        SetEnable();
    }

    void ChkVisible(long line) {
        const long field = Fields(line).ListIndex();
        ShowCue(line, field);
        if (field >= 0)
            FillCombo(database_, Predicates(line),
                      OperatorListStatement(FieldType(field), database_.Style()), L"");
    }

    const wchar_t* CueFor(long field) {
        if (field < 0)
            return L"";
        if (!info_.FieldRelation.at(static_cast<size_t>(field)).empty())
            return texts::kFindCueRelation;
        return FieldType(field) == kFieldDate ? texts::kFindCueDate : L"";
    }

    // What an empty box asks for.
    void ShowCue(long line, long field) {
        const HWND box = ValueBox(line).Window();
        SendMessageW(box, EM_SETCUEBANNER, TRUE,
                     reinterpret_cast<LPARAM>(Shown(CueFor(field)).c_str()));
        InvalidateRect(box, nullptr, TRUE);
    }

    // A line can be filled in when the one above is complete.
    void SetEnable() {
        for (long i = kFirst + 1; i < kLines; ++i)
            SetLineEnabled(i, CheckSql(Line(i - 1)));
        Get(L"TxtResult").SetText(GetDis(Lines()));
    }

    void SetLineEnabled(long line, bool enabled) {
        for (DataCombo* combo : {&Joins(line), &Fields(line), &Predicates(line)})
            combo->SetEnabled(enabled);
        ValueBox(line).SetEnabled(enabled);
    }

    void LookUp(long line) {
        const long field = Fields(line).ListIndex();
        const std::wstring& relation = info_.FieldRelation.at(static_cast<size_t>(field));
        if (relation.empty())
            return;
        Control& box = ValueBox(line);
        const std::wstring typed = box.Text();
        const std::wstring picked = PickItem(
            database_,
            LookUpStatement(relation, typed, database_.Style(), NamePattern(database_, typed)),
            typed, typed);
        if (picked.empty())
            return;
        box.SetText(picked);
        moveOn_.emplace(Window());
        moveOn_->SendAfterClosing();
    }

    void Confirm() {
        Reporting([this] {
            const ConditionLines lines = Lines();
            condition = {GetRes(lines, database_.Style()),
                         GetParameterized(lines, EngineOf(database_), database_.Dialect())};
            Unload();
        });
    }

    void Cancel() {
        condition = {};
        Unload();
    }

    void Help() { ShowMsg(texts::kFindHelpText, kOkOnly, texts::kFindHelpTitle, kInformation); }

    const Database& database_;
    const std::wstring table_;
    FieldInfo info_;
    std::optional<TabStroke> moveOn_;
};

} // namespace

SearchCondition ShowFindDialog(const Database& database, const std::wstring& table, HWND owner) {
    const DataComboClass comboClass;
    FindForm form(database, table);
    form.SetOwner(owner);
    form.ConfirmByEnter(database.settings.EnterConfirms());
    form.ShowModal();
    return form.condition;
}

} // namespace vndesk
