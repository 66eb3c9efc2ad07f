// SPDX-License-Identifier: MIT
// The drop-down list with hidden texts, on a form of the test's own, with real keys and mouse.
#include "controls/combo/window/data_combo.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <memory>

#include "forms/window/form_of.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/text.h"
#include "support/ui_windows.h"
#include "ui/controls/data_combo_host.h"

namespace vndesk::test {
namespace {

constexpr ControlSpec kControls[] = {
    TextBox(L"txtFirst", {100, 100, 2000, 315}),
    DataComboSpec(L"CmbFld", {100, 600, 2000, 900}),
    DataComboSpec(L"cmbLg", {2300, 600, 900, 315}),
    TextBox(L"txtLast", {100, 1100, 2000, 315}),
    Button(L"CmdOk", L"§ång ý", {2300, 1100, 900, 375}, kCancel),
};
constexpr FormSpec kForm = {
    .name = L"FrmTest",
    .caption = L"Thö",
    .client = {4000, 1600},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

class ComboForm : public FormOf<kForm> {
public:
    DataCombo& Combo(Name name = L"CmbFld") { return DataCombo::Of(Get(name).Window()); }

    std::wstring keysSeen;

protected:
    void OnPrepared() override {
        for (const Name name : {Name(L"CmbFld"), Name(L"cmbLg")}) {
            DataCombo& combo = Combo(name);
            for (const auto& [text, value] :
                 {std::pair{L"Họ tên", L"FullName"}, std::pair{L"Ngày sinh", L"BirthDay"},
                  std::pair{L"Địa chỉ", L"Address"}}) {
                combo.AddItem(text);
                combo.SetItemData(combo.NewIndex(), value);
            }
            combo.onClick = [this] { ++clicks; };
        }
        Get(L"CmdOk").onClick = [this] { Unload(); };
    }
    bool OnKeyDown(const vndesk::Control& control, WPARAM) override {
        keysSeen += control.Name() + L" ";
        return false;
    }

public:
    int clicks = 0;

private:
    const DataComboClass windowClass_;
};

class DataComboTest : public testing::Test {
protected:
    void SetUp() override { form_.Load(); }
    DataCombo& Combo() { return form_.Combo(); }

    static HRESULT CodeOf(const std::function<void()>& call) { return ToHresult(call); }

    // Both lists have the same length, read from the windows themselves.
    void ExpectInStep() {
        const HWND shown = FindControl(Combo().Window(), L"Cmb1");
        const HWND hidden = FindControl(Combo().Window(), L"Cmb2");
        EXPECT_EQ(SendMessageW(shown, CB_GETCOUNT, 0, 0), SendMessageW(hidden, CB_GETCOUNT, 0, 0));
        EXPECT_EQ(Combo().ListCount(), SendMessageW(shown, CB_GETCOUNT, 0, 0));
        EXPECT_TRUE(GetWindowLongW(shown, GWL_STYLE) & WS_VISIBLE);
        EXPECT_FALSE(GetWindowLongW(hidden, GWL_STYLE) & WS_VISIBLE);
    }

    ComboForm form_;
};

// --- the list ---

TEST_F(DataComboTest, ValueIsTheHiddenTextOfTheSelection) {
    Combo().SetListIndex(1);
    EXPECT_EQ(L"Ngày sinh", Combo().Text());
    EXPECT_EQ(L"BirthDay", Combo().Value());
    EXPECT_EQ(L"Address", Combo().ItemData(2));
    EXPECT_EQ(L"Địa chỉ", Combo().List(2));
    ExpectInStep();
}

TEST_F(DataComboTest, ValueWithoutASelectionIsEmpty) {
    EXPECT_EQ(-1, Combo().ListIndex());
    EXPECT_EQ(L"", Combo().Value());
    EXPECT_EQ(L"", Combo().Text());
}

TEST_F(DataComboTest, SettingValueSelectsTheItemThatCarriesIt) {
    Combo().SetValue(L"Address");
    EXPECT_EQ(2, Combo().ListIndex());
    EXPECT_EQ(2, Combo().ListIndex1());
    EXPECT_EQ(L"Address", Combo().HiddenText());
    Combo().SetValue(L"birthday");
    EXPECT_EQ(1, Combo().ListIndex()) << "letter case does not count";
    Combo().AddItem(L"Sinh nhật");
    Combo().SetItemData(3, L"birthday");
    Combo().SetValue(L"birthday");
    EXPECT_EQ(3, Combo().ListIndex()) << "unless there is one that is the same";
}

TEST_F(DataComboTest, ValueThatNoItemCarriesClearsTheSelection) {
    Combo().SetListIndex(1);
    Combo().SetValue(L"NoSuchField");
    EXPECT_EQ(-1, Combo().ListIndex());
    EXPECT_EQ(-1, Combo().ListIndex1());
    EXPECT_EQ(L"", Combo().Value());
}

TEST_F(DataComboTest, SettingTextSelectsTheItemThatShowsIt) {
    Combo().SetText(L"Địa chỉ");
    EXPECT_EQ(L"Address", Combo().Value());
    Combo().SetText(L"ĐỊA CHỈ");
    EXPECT_EQ(2, Combo().ListIndex());
    Combo().SetText(L"Quê quán");
    EXPECT_EQ(-1, Combo().ListIndex());
}

TEST_F(DataComboTest, ItemWithoutDataHasTheEmptyValue) {
    Combo().AddItem(L"Mới");
    EXPECT_EQ(3, Combo().NewIndex());
    Combo().SetListIndex(3);
    EXPECT_EQ(L"Mới", Combo().Text());
    EXPECT_EQ(L"", Combo().Value());
    ExpectInStep();
}

TEST_F(DataComboTest, AddingInFrontKeepsDataAndSelectionWithTheirItems) {
    Combo().SetValue(L"BirthDay");
    Combo().AddItem(L"Mã", 0);
    EXPECT_EQ(0, Combo().NewIndex());
    EXPECT_EQ(L"", Combo().ItemData(0));
    EXPECT_EQ(L"FullName", Combo().ItemData(1));
    EXPECT_EQ(2, Combo().ListIndex());
    EXPECT_EQ(2, Combo().ListIndex1());
    EXPECT_EQ(L"BirthDay", Combo().Value());
    ExpectInStep();
}

TEST_F(DataComboTest, RemovingMinusOneChangesNothing) {
    Combo().SetListIndex(1);
    Combo().RemoveItem(-1);
    EXPECT_EQ(3, Combo().ListCount());
    EXPECT_EQ(L"BirthDay", Combo().Value());
}

TEST_F(DataComboTest, RemovingTakesTheDataToo) {
    Combo().SetListIndex(2);
    Combo().RemoveItem(0);
    EXPECT_EQ(L"BirthDay", Combo().ItemData(0));
    EXPECT_EQ(1, Combo().ListIndex());
    EXPECT_EQ(1, Combo().NewIndex()) << "the item added last has moved";
    Combo().RemoveItem(1);
    EXPECT_EQ(-1, Combo().ListIndex());
    EXPECT_EQ(-1, Combo().NewIndex());
    ExpectInStep();
    Combo().Clear();
    EXPECT_EQ(0, Combo().ListCount());
    EXPECT_EQ(L"", Combo().List(0));
    ExpectInStep();
}

TEST_F(DataComboTest, TextsAreReplacedWhereTheyStand) {
    Combo().SetListIndex(1);
    Combo().SetList(1, L"Ngày vào làm");
    Combo().SetItemData(1, L"StartDay");
    EXPECT_EQ(L"Ngày vào làm", Combo().Text());
    EXPECT_EQ(L"StartDay", Combo().Value());
    EXPECT_EQ(L"Địa chỉ", Combo().List(2));
    EXPECT_EQ(L"Address", Combo().ItemData(2));
    ExpectInStep();
}

TEST_F(DataComboTest, WrongIndexesAreClearErrors) {
    EXPECT_EQ(CTL_E_INVALIDPROPERTYVALUE, CodeOf([&] { Combo().SetListIndex(3); }));
    EXPECT_EQ(CTL_E_INVALIDPROPERTYVALUE, CodeOf([&] { Combo().SetListIndex(-2); }));
    EXPECT_EQ(CTL_E_INVALIDPROPERTYVALUE, CodeOf([&] { Combo().SetListIndex1(3); }));
    EXPECT_EQ(CTL_E_INVALIDPROPERTYARRAYINDEX, CodeOf([&] { Combo().SetList(3, L"x"); }));
    EXPECT_EQ(CTL_E_INVALIDPROPERTYARRAYINDEX, CodeOf([&] { Combo().SetItemData(-1, L"x"); }));
    EXPECT_EQ(CTL_E_ILLEGALFUNCTIONCALL, CodeOf([&] { Combo().AddItem(L"x", 4); }));
    EXPECT_EQ(CTL_E_ILLEGALFUNCTIONCALL, CodeOf([&] { Combo().AddItem(L"x", -1); }));
    EXPECT_EQ(CTL_E_ILLEGALFUNCTIONCALL, CodeOf([&] { Combo().RemoveItem(3); }));
    EXPECT_EQ(CTL_E_INVALIDPROPERTYVALUE, CodeOf([&] { Combo().SetBackColor(0x77000000); }));
    EXPECT_EQ(L"", Combo().ItemData(99)) << "reading beyond the list is none";
    ExpectInStep();
    EXPECT_EQ(3, Combo().ListCount());
}

TEST_F(DataComboTest, NoMoreItemsThanIndexesCanCount) {
    Combo().Clear();
    // Straight into the lists, without painting: the control's own way takes its time.
    for (const wchar_t* name : {L"Cmb1", L"Cmb2"}) {
        const HWND list = FindControl(Combo().Window(), name);
        SendMessageW(list, WM_SETREDRAW, FALSE, 0);
        SendMessageW(list, CB_INITSTORAGE, DataCombo::kMaxItems, 100000);
        for (int i = 0; i < DataCombo::kMaxItems - 1; ++i)
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"x"));
        SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    }
    Combo().AddItem(L"Cuối");
    EXPECT_EQ(32766, Combo().NewIndex());
    EXPECT_EQ(CTL_E_OVERFLOW, CodeOf([&] { Combo().AddItem(L"Thừa"); }));
    EXPECT_EQ(32767, Combo().ListCount());
    ExpectInStep();
}

TEST_F(DataComboTest, ClickTellsOfEveryChangeOfTheSelectionOnce) {
    Combo().SetListIndex(0);
    EXPECT_EQ(1, form_.clicks);
    Combo().SetListIndex(0);
    EXPECT_EQ(1, form_.clicks) << "nothing has changed";
    Combo().SetValue(L"Address");
    EXPECT_EQ(2, form_.clicks);
    Combo().SetText(L"Họ tên");
    EXPECT_EQ(3, form_.clicks);
    Combo().AddItem(L"Mã", 0);
    Combo().Clear();
    EXPECT_EQ(3, form_.clicks);
    Combo().onClick = [] { throw ComError(E_FAIL); };
    Combo().AddItem(L"x");
    EXPECT_NO_THROW(Combo().SetListIndex(0));
}

// --- the window ---

TEST_F(DataComboTest, ListFillsTheWidthAndGivesTheHeight) {
    vndesk::Control& control = form_.Get(L"CmbFld");
    const auto expectFilled = [&] {
        RECT outside, inside;
        GetWindowRect(control.Window(), &outside);
        GetWindowRect(FindControl(control.Window(), L"Cmb1"), &inside);
        EXPECT_TRUE(EqualRect(&outside, &inside));
        EXPECT_LT(10, outside.bottom - outside.top);
        EXPECT_EQ(Combo().Height(), outside.bottom - outside.top);
    };
    expectFilled();
    control.SetWidth(2600);
    expectFilled();
    control.Move({100, 600, 2600, 3000});
    expectFilled();
    const int before = Combo().Height();
    control.SetFont({L"Arial", 18});
    EXPECT_LT(before, Combo().Height());
    expectFilled();
}

TEST_F(DataComboTest, IsDisabledAndEnabledWhole) {
    vndesk::Control& control = form_.Get(L"CmbFld");
    const HWND list = FindControl(control.Window(), L"Cmb1");
    control.SetEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(list));
    EXPECT_FALSE(Combo().Enabled());
    control.SetEnabled(true);
    EXPECT_TRUE(Combo().Enabled());
    Combo().SetEnabled(false);
    EXPECT_FALSE(control.Enabled());
}

// --- keys and mouse ---

// Shows the form while a script plays its user.
void Play(ComboForm& form, const std::function<void(HWND)>& script) {
    DialogDriver user([&] {
        const HWND window = WaitForForm(L"FrmTest");
        WaitForFocus(window, L"txtFirst");
        script(window);
        PressKey(VK_ESCAPE);
        WaitForClose(window);
    });
    form.ShowModal();
    user.Finish();
}

HWND ListOf(HWND form, const wchar_t* name) {
    return FindControl(FindControl(form, name), L"Cmb1");
}

TEST_F(DataComboTest, TabWalksThroughAndSkipsTheDisabled) {
    form_.Get(L"cmbLg").SetEnabled(false);
    Play(form_, [&](HWND window) {
        const HWND first = FindControl(window, L"txtFirst"), last = FindControl(window, L"txtLast");
        const HWND list = ListOf(window, L"CmbFld");
        EXPECT_TRUE(TabLeads(window, first, list));
        EXPECT_TRUE(TabLeads(window, list, last));
        EXPECT_TRUE(TabLeads(window, last, list, kShift));
        EXPECT_TRUE(TabLeads(window, list, first, kShift));
    });
    EXPECT_NE(std::wstring::npos, form_.keysSeen.find(L"CmbFld ")) << "the form sees its keys";
}

TEST_F(DataComboTest, ArrowsAndLettersSelect) {
    Play(form_, [&](HWND window) {
        GiveFocus(window, ListOf(window, L"CmbFld"));
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return Combo().Value() == L"FullName"; }));
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return Combo().Value() == L"BirthDay"; }));
        PressKey('H');
        EXPECT_TRUE(WaitUntil([&] { return Combo().Value() == L"FullName"; }));
        EXPECT_TRUE(WaitUntil([&] { return form_.clicks == 3; }));
    });
    EXPECT_EQ(3, form_.clicks);
}

// Where accents are asked for, what is typed without a pause is the beginning of an item.
TEST_F(DataComboTest, LettersAreTheBeginningOfAnItemWithTheAccentsThatAreTyped) {
    Combo().Clear();
    for (const wchar_t* text : {L"Đà Nẵng", L"Da giày", L"Dĩ An", L"Hà Nội", L"Đường Lâm", L"Hoà"})
        Combo().AddItem(text);
    const HWND list = FindControl(Combo().Window(), L"Cmb1");
    const auto type = [&](std::wstring_view letters) {
        for (const wchar_t letter : letters)
            SendMessageW(list, WM_CHAR, letter, 0);
        return Combo().Text();
    };
    const auto anew = [&] {
        // What was typed is forgotten by a list that knows no beginnings.
        Combo().SetAccents(Sensitivity::Sensitive);
        SendMessageW(list, WM_CHAR, VK_ESCAPE, 0);
        Combo().SetAccents(Sensitivity::Smart);
        Combo().SetListIndex(-1);
        form_.clicks = 0;
    };
    anew();
    EXPECT_EQ(L"Đà Nẵng", type(L"d"));
    EXPECT_EQ(L"Da giày", type(L"a")) << "equal accents come first";
    EXPECT_EQ(2, form_.clicks);
    EXPECT_EQ(L"Đà Nẵng", type(L" n"));
    EXPECT_EQ(L"Đà Nẵng", type(L"x")) << "what no item begins with leaves the selection";
    anew();
    EXPECT_EQ(L"Đường Lâm", type(L"dương"));
    anew();
    EXPECT_EQ(L"Hoà", type(L"hòa")) << "the tone has two places";
    anew();
    EXPECT_EQ(L"Đà Nẵng", type(L"đ"));
    EXPECT_EQ(L"Đường Lâm", type(L"đ")) << "one letter goes from item to item";
    EXPECT_EQ(L"Đà Nẵng", type(L"đ"));
    anew();
    // As input methods type: the letter, then another one in its place.
    EXPECT_EQ(L"Đường Lâm", type(L"d\bđu\bư"));
    anew();
    Combo().SetAccents(Sensitivity::Insensitive);
    EXPECT_EQ(L"Hà Nội", type(L"hạ"));
}

TEST_F(DataComboTest, HandlersChangeOrKeepTheLettersOfAnItem) {
    Combo().SetAccents(Sensitivity::Smart);
    Combo().onKeyPress = [](short& character) { character = character == L'x' ? L'd' : 0; };
    const HWND list = FindControl(Combo().Window(), L"Cmb1");
    SendMessageW(list, WM_CHAR, L'n', 0);
    EXPECT_EQ(L"", Combo().Text());
    SendMessageW(list, WM_CHAR, L'x', 0);
    EXPECT_EQ(L"Địa chỉ", Combo().Text());
}

TEST_F(DataComboTest, DeleteClearsTheSelectionAndIsTold) {
    std::vector<std::pair<short, short>> told;
    long indexWhenTold = 99;
    Combo().SetListIndex(1);
    Combo().onKeyDown = [&](short& key, short& shift) {
        told.emplace_back(key, shift);
        indexWhenTold = Combo().ListIndex();
    };
    Play(form_, [&](HWND window) {
        GiveFocus(window, ListOf(window, L"CmbFld"));
        PressKey(VK_DELETE, kShift);
        EXPECT_TRUE(WaitUntil([&] { return told.size() == 2; })) << "Shift itself, then Delete";
        EXPECT_EQ(1, Combo().ListIndex()) << "with Shift it is another key";
        PressKey(VK_DELETE);
        EXPECT_TRUE(WaitUntil([&] { return told.size() == 3; }));
        EXPECT_EQ(-1, Combo().ListIndex());
    });
    EXPECT_EQ(std::make_pair(short{46}, short{0}), told.back());
    EXPECT_EQ(-1, indexWhenTold);
    EXPECT_EQ(std::make_pair(short{46}, short{1}), told.at(1));
    EXPECT_EQ(2, form_.clicks) << "selected, cleared";
}

TEST_F(DataComboTest, HandlersMayChangeKeysAndKeepThem) {
    std::wstring typed;
    int up = 0;
    Combo().onKeyDown = [&](short& key, short&) {
        key = key == VK_UP ? VK_DOWN : key == VK_DOWN ? 0 : key;
    };
    Combo().onKeyPress = [&](short& character) {
        typed += static_cast<wchar_t>(character);
        character = 'N';
    };
    Combo().onKeyUp = [&](short& key, short&) { up += key == VK_UP; };
    Play(form_, [&](HWND window) {
        GiveFocus(window, ListOf(window, L"CmbFld"));
        PressKey(VK_DOWN);
        PressKey(VK_UP);
        EXPECT_TRUE(WaitUntil([&] { return up == 1; }));
        EXPECT_EQ(0, Combo().ListIndex()) << "Down was kept, Up became Down";
        TypeText(L"ờ");
        EXPECT_TRUE(WaitUntil([&] { return Combo().Value() == L"BirthDay"; }));
    });
    EXPECT_EQ(L"ờ", typed);
}

// Opens the list, from whatever state a lost key has left it in.
void Open(HWND list) {
    for (int i = 0; i < 3 && !SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0); ++i) {
        PressKey(VK_F4);
        WaitUntil([&] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; }, 1000);
    }
    ASSERT_TRUE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(DataComboTest, ListOpensAndAnItemIsChosenWithTheMouse) {
    Play(form_, [&](HWND window) {
        const HWND list = FindControl(Combo().Window(), L"Cmb1");
        GiveFocus(window, ListOf(window, L"CmbFld"));
        Open(list);
        COMBOBOXINFO info = {};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetComboBoxInfo(list, &info));
        RECT item = {};
        SendMessageW(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
        MapWindowPoints(info.hwndList, nullptr, reinterpret_cast<POINT*>(&item), 2);
        ClickAt({item.left + 10, (item.top + item.bottom) / 2});
        EXPECT_TRUE(WaitUntil([&] { return Combo().Value() == L"BirthDay"; }));
        EXPECT_TRUE(WaitUntil([&] { return !SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0); }));
    });
    EXPECT_EQ(1, form_.clicks);
}

TEST_F(DataComboTest, WhatIsToldLastIsTheSelectionAfterTheListWasGivenUp) {
    Combo().SetListIndex(0);
    long told = 99;
    Combo().onClick = [&] { told = Combo().ListIndex(); };
    Play(form_, [&](HWND window) {
        const HWND list = FindControl(Combo().Window(), L"Cmb1");
        GiveFocus(window, ListOf(window, L"CmbFld"));
        Open(list);
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return told != 99; }));
        SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
        EXPECT_TRUE(WaitUntil([&] { return told == Combo().ListIndex(); }));
    });
}

TEST_F(DataComboTest, DoubleClickIsTold) {
    int doubleClicks = 0;
    Combo().onDoubleClick = [&] { ++doubleClicks; };
    Play(form_, [&](HWND) {
        const HWND list = FindControl(Combo().Window(), L"Cmb1");
        for (int i = 0; i < 3 && !doubleClicks; ++i) {
            DoubleClickWindow(list);
            WaitUntil([&] { return doubleClicks > 0; }, 1000);
            SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
        }
    });
    EXPECT_LT(0, doubleClicks);
}

} // namespace
} // namespace vndesk::test
