// SPDX-License-Identifier: MIT
// The list-box wrapper on a real list of a form: texts as item data, look-up, changes noticed.
#include "controls/picker/cls_list_box.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "forms/window/form_of.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr ControlSpec kControls[] = {
    TextBox(L"txtBefore", {100, 100, 2000, 330}),
    ListBox(L"lstItems", {100, 600, 2000, 1800}),
    Button(L"cmdClose", L"X", {100, 2500, 1200, 375}, kCancel),
};
constexpr FormSpec kForm = {
    .name = L"FrmTest",
    .client = {4000, 3000},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

class TestForm final : public FormOf<kForm> {
public:
    TestForm() { Load(); }

protected:
    void OnLoad() override {
        Get(L"cmdClose").onClick = [this] { Unload(); };
    }
};

using Texts = std::vector<std::wstring>;

class ListBoxWrapper : public testing::Test {
protected:
    ListBoxWrapper() { items_.SetTListBox(form_.Get(L"lstItems")); }

    void Fill(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> items) {
        for (const auto& [text, data] : items) {
            items_.AddItem(text);
            items_.SetItemData(items_.NewIndex(), data);
        }
    }
    void FillThree() { Fill({{L"Bút", L"b1"}, {L"Áo", L"Đ2"}, {L"Cốc", L"c3"}}); }

    Texts ShownTexts() const {
        Texts texts;
        for (long i = 0; i < items_.ListCount(); ++i)
            texts.push_back(items_.List(i));
        return texts;
    }
    Texts Data() const {
        Texts data;
        for (long i = 0; i < items_.ListCount(); ++i)
            data.push_back(items_.ItemData(i));
        return data;
    }

    TestForm form_;
    clsListBox items_;
};

TEST(FindString, GivesThePlaceOfTheFirstEqualEntryInAnyLetterCase) {
    const Texts entries = {L"ab", L"ABC", L"abc", L"Đ2"};
    EXPECT_EQ(clsListBox::FindString(entries, L"abc"), 1);
    EXPECT_EQ(clsListBox::FindString(entries, L"đ2"), 3);
}

TEST(FindString, ComparesWholeTexts) {
    const Texts entries = {L"ab", L"abc", L""};
    EXPECT_EQ(clsListBox::FindString(entries, L"a"), -1);
    EXPECT_EQ(clsListBox::FindString(entries, L"abcd"), -1);
    EXPECT_EQ(clsListBox::FindString(entries, L"bc"), -1);
    EXPECT_EQ(clsListBox::FindString(entries, L""), 2);
}

TEST(FindString, FindsNothingInAnEmptyCollection) {
    EXPECT_EQ(clsListBox::FindString({}, L"a"), -1);
    EXPECT_EQ(clsListBox::FindString({}, L""), -1);
}

TEST_F(ListBoxWrapper, ValueIsTheDataOfTheSelectedItem) {
    FillThree();
    EXPECT_EQ(items_.Value(), L"") << "nothing is selected yet";
    items_.SetListIndex(2);
    EXPECT_EQ(items_.Value(), L"c3");
    EXPECT_EQ(items_.Text(), L"Cốc");
}

TEST_F(ListBoxWrapper, SettingValueInAnotherLetterCaseSelectsTheItem) {
    FillThree();
    items_.SetValue(L"đ2");
    EXPECT_EQ(items_.ListIndex(), 1);
    items_.SetValue(L"B1");
    EXPECT_EQ(items_.ListIndex(), 0);
}

TEST_F(ListBoxWrapper, SettingAValueThatNoItemCarriesClearsTheSelection) {
    FillThree();
    items_.SetListIndex(1);
    items_.SetValue(L"Áo");
    EXPECT_EQ(items_.ListIndex(), -1) << "texts are not searched";
    EXPECT_EQ(items_.Value(), L"");
}

TEST_F(ListBoxWrapper, SettingTextSelectsTheItemThatShowsIt) {
    FillThree();
    items_.SetText(L"Áo");
    EXPECT_EQ(items_.ListIndex(), 1);
    items_.SetText(L"không có");
    EXPECT_EQ(items_.ListIndex(), 1);
}

TEST_F(ListBoxWrapper, SettingItemDataReplacesTheEntry) {
    FillThree();
    items_.SetItemData(2, L"moi");
    EXPECT_EQ(Data(), (Texts{L"b1", L"Đ2", L"moi"}));
    EXPECT_EQ(items_.ListCount(), 3);
    items_.SetItemData(0, L"dau");
    EXPECT_EQ(Data(), (Texts{L"dau", L"Đ2", L"moi"}));
}

TEST_F(ListBoxWrapper, AddedItemHasEmptyDataUntilItIsSet) {
    items_.AddItem(L"Bút");
    EXPECT_EQ(items_.NewIndex(), 0);
    EXPECT_EQ(items_.ItemData(0), L"");
}

TEST_F(ListBoxWrapper, ItemAddedInFrontLeavesDataWithTheirItems) {
    FillThree();
    items_.AddItem(L"Đèn", 0);
    EXPECT_EQ(items_.NewIndex(), 0);
    EXPECT_EQ(ShownTexts(), (Texts{L"Đèn", L"Bút", L"Áo", L"Cốc"}));
    EXPECT_EQ(Data(), (Texts{L"", L"b1", L"Đ2", L"c3"}));
    items_.AddItem(L"Ghế", 2);
    EXPECT_EQ(Data(), (Texts{L"", L"b1", L"", L"Đ2", L"c3"}));
    items_.AddItem(L"Hộp", 5);
    EXPECT_EQ(items_.NewIndex(), 5);
    EXPECT_EQ(items_.ItemData(5), L"");
}

TEST_F(ListBoxWrapper, IndexBeyondTheEndIsRefusedAndAddsNothing) {
    FillThree();
    EXPECT_THROW(items_.AddItem(L"Đèn", 4), std::invalid_argument);
    EXPECT_THROW(items_.AddItem(L"Đèn", -2), std::invalid_argument);
    EXPECT_EQ(Data(), (Texts{L"b1", L"Đ2", L"c3"}));
}

TEST_F(ListBoxWrapper, RemovingTakesItemAndData) {
    FillThree();
    items_.RemoveItem(1);
    EXPECT_EQ(ShownTexts(), (Texts{L"Bút", L"Cốc"}));
    EXPECT_EQ(Data(), (Texts{L"b1", L"c3"}));
}

TEST_F(ListBoxWrapper, RemovingANegativeIndexChangesNothing) {
    FillThree();
    items_.RemoveItem(-1);
    EXPECT_EQ(ShownTexts(), (Texts{L"Bút", L"Áo", L"Cốc"}));
    EXPECT_EQ(Data(), (Texts{L"b1", L"Đ2", L"c3"}));
}

TEST_F(ListBoxWrapper, ClearingEmptiesBoth) {
    FillThree();
    items_.Clear();
    EXPECT_EQ(items_.ListCount(), 0);
    EXPECT_THROW(items_.ItemData(0), std::out_of_range);
    Fill({{L"Ghế", L"g"}});
    EXPECT_EQ(Data(), Texts{L"g"});
}

TEST_F(ListBoxWrapper, ListGivesAndSetsTheShownText) {
    FillThree();
    items_.SetList(1, L"Mũ");
    EXPECT_EQ(ShownTexts(), (Texts{L"Bút", L"Mũ", L"Cốc"}));
    EXPECT_EQ(items_.ItemData(1), L"Đ2");
}

TEST_F(ListBoxWrapper, ItemsThatTheListHadBeforeGetEmptyData) {
    FillThree();
    clsListBox second;
    second.SetTListBox(form_.Get(L"lstItems"));
    EXPECT_EQ(second.ItemData(2), L"");
}

TEST_F(ListBoxWrapper, DataComeLastWhereTheFormHasAddedItemsItself) {
    const HWND list = form_.Get(L"lstItems").Window();
    for (const wchar_t* text : {L"Bút", L"Áo"})
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    items_.AddItem(L"Cốc");
    EXPECT_EQ(items_.NewIndex(), 2);
    EXPECT_EQ(items_.ItemData(0), L"");
    EXPECT_THROW(items_.ItemData(1), std::out_of_range);
}

TEST_F(ListBoxWrapper, ProgramSelectingTellsTheClickHandler) {
    FillThree();
    int clicks = 0;
    form_.Get(L"lstItems").onClick = [&] { ++clicks; };
    items_.SetListIndex(2);
    EXPECT_EQ(clicks, 1);
}

// Walks into the list, lets the script change something there, and walks out again.
class ListBoxChange : public ListBoxWrapper {
protected:
    int Changes(std::function<void(HWND list)> inTheList) {
        int changes = 0;
        items_.Change = [&] { ++changes; };
        DialogDriver user([&] {
            const HWND form = WaitForForm(L"FrmTest");
            WaitForFocus(form, L"txtBefore");
            PressKey(VK_TAB);
            WaitForFocus(form, L"lstItems");
            inTheList(Control(form, L"lstItems"));
            PressKey(VK_TAB);
            WaitForFocus(form, L"cmdClose");
            PressKey(VK_ESCAPE);
        });
        form_.ShowModal();
        user.Finish();
        return changes;
    }
};

TEST_F(ListBoxChange, AnotherTextWhenTheFocusLeavesIsAChange) {
    FillThree();
    items_.SetListIndex(0);
    EXPECT_EQ(Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
              }),
              1);
}

TEST_F(ListBoxChange, SameTextIsNoChange) {
    FillThree();
    items_.SetListIndex(0);
    EXPECT_EQ(Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
                  PressKey(VK_UP);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 0; }));
              }),
              0);
}

TEST_F(ListBoxChange, LetterCaseAloneIsNoChange) {
    Fill({{L"Đèn", L"1"}, {L"ĐÈN", L"2"}});
    items_.SetListIndex(0);
    EXPECT_EQ(Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
              }),
              0);
}

} // namespace
} // namespace vndesk::test
