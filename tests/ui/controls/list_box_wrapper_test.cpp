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
    EXPECT_EQ(1, clsListBox::FindString(entries, L"abc"));
    EXPECT_EQ(3, clsListBox::FindString(entries, L"đ2"));
}

TEST(FindString, ComparesWholeTexts) {
    const Texts entries = {L"ab", L"abc", L""};
    EXPECT_EQ(-1, clsListBox::FindString(entries, L"a"));
    EXPECT_EQ(-1, clsListBox::FindString(entries, L"abcd"));
    EXPECT_EQ(-1, clsListBox::FindString(entries, L"bc"));
    EXPECT_EQ(2, clsListBox::FindString(entries, L""));
}

TEST(FindString, FindsNothingInAnEmptyCollection) {
    EXPECT_EQ(-1, clsListBox::FindString({}, L"a"));
    EXPECT_EQ(-1, clsListBox::FindString({}, L""));
}

TEST_F(ListBoxWrapper, ValueIsTheDataOfTheSelectedItem) {
    FillThree();
    EXPECT_EQ(L"", items_.Value()) << "nothing is selected yet";
    items_.SetListIndex(2);
    EXPECT_EQ(L"c3", items_.Value());
    EXPECT_EQ(L"Cốc", items_.Text());
}

TEST_F(ListBoxWrapper, SettingValueInAnotherLetterCaseSelectsTheItem) {
    FillThree();
    items_.SetValue(L"đ2");
    EXPECT_EQ(1, items_.ListIndex());
    items_.SetValue(L"B1");
    EXPECT_EQ(0, items_.ListIndex());
}

TEST_F(ListBoxWrapper, SettingAValueThatNoItemCarriesClearsTheSelection) {
    FillThree();
    items_.SetListIndex(1);
    items_.SetValue(L"Áo");
    EXPECT_EQ(-1, items_.ListIndex()) << "texts are not searched";
    EXPECT_EQ(L"", items_.Value());
}

TEST_F(ListBoxWrapper, SettingTextSelectsTheItemThatShowsIt) {
    FillThree();
    items_.SetText(L"Áo");
    EXPECT_EQ(1, items_.ListIndex());
    items_.SetText(L"không có");
    EXPECT_EQ(1, items_.ListIndex());
}

TEST_F(ListBoxWrapper, SettingItemDataReplacesTheEntry) {
    FillThree();
    items_.SetItemData(2, L"moi");
    EXPECT_EQ((Texts{L"b1", L"Đ2", L"moi"}), Data());
    EXPECT_EQ(3, items_.ListCount());
    items_.SetItemData(0, L"dau");
    EXPECT_EQ((Texts{L"dau", L"Đ2", L"moi"}), Data());
}

TEST_F(ListBoxWrapper, AddedItemHasEmptyDataUntilItIsSet) {
    items_.AddItem(L"Bút");
    EXPECT_EQ(0, items_.NewIndex());
    EXPECT_EQ(L"", items_.ItemData(0));
}

TEST_F(ListBoxWrapper, ItemAddedInFrontLeavesDataWithTheirItems) {
    FillThree();
    items_.AddItem(L"Đèn", 0);
    EXPECT_EQ(0, items_.NewIndex());
    EXPECT_EQ((Texts{L"Đèn", L"Bút", L"Áo", L"Cốc"}), ShownTexts());
    EXPECT_EQ((Texts{L"", L"b1", L"Đ2", L"c3"}), Data());
    items_.AddItem(L"Ghế", 2);
    EXPECT_EQ((Texts{L"", L"b1", L"", L"Đ2", L"c3"}), Data());
    items_.AddItem(L"Hộp", 5);
    EXPECT_EQ(5, items_.NewIndex());
    EXPECT_EQ(L"", items_.ItemData(5));
}

TEST_F(ListBoxWrapper, IndexBeyondTheEndIsRefusedAndAddsNothing) {
    FillThree();
    EXPECT_THROW(items_.AddItem(L"Đèn", 4), std::invalid_argument);
    EXPECT_THROW(items_.AddItem(L"Đèn", -2), std::invalid_argument);
    EXPECT_EQ((Texts{L"b1", L"Đ2", L"c3"}), Data());
}

TEST_F(ListBoxWrapper, RemovingTakesItemAndData) {
    FillThree();
    items_.RemoveItem(1);
    EXPECT_EQ((Texts{L"Bút", L"Cốc"}), ShownTexts());
    EXPECT_EQ((Texts{L"b1", L"c3"}), Data());
}

TEST_F(ListBoxWrapper, RemovingANegativeIndexChangesNothing) {
    FillThree();
    items_.RemoveItem(-1);
    EXPECT_EQ((Texts{L"Bút", L"Áo", L"Cốc"}), ShownTexts());
    EXPECT_EQ((Texts{L"b1", L"Đ2", L"c3"}), Data());
}

TEST_F(ListBoxWrapper, ClearingEmptiesBoth) {
    FillThree();
    items_.Clear();
    EXPECT_EQ(0, items_.ListCount());
    EXPECT_THROW(items_.ItemData(0), std::out_of_range);
    Fill({{L"Ghế", L"g"}});
    EXPECT_EQ(Texts{L"g"}, Data());
}

TEST_F(ListBoxWrapper, ListGivesAndSetsTheShownText) {
    FillThree();
    items_.SetList(1, L"Mũ");
    EXPECT_EQ((Texts{L"Bút", L"Mũ", L"Cốc"}), ShownTexts());
    EXPECT_EQ(L"Đ2", items_.ItemData(1));
}

TEST_F(ListBoxWrapper, ItemsThatTheListHadBeforeGetEmptyData) {
    FillThree();
    clsListBox second;
    second.SetTListBox(form_.Get(L"lstItems"));
    EXPECT_EQ(L"", second.ItemData(2));
}

TEST_F(ListBoxWrapper, DataComeLastWhereTheFormHasAddedItemsItself) {
    const HWND list = form_.Get(L"lstItems").Window();
    for (const wchar_t* text : {L"Bút", L"Áo"})
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    items_.AddItem(L"Cốc");
    EXPECT_EQ(2, items_.NewIndex());
    EXPECT_EQ(L"", items_.ItemData(0));
    EXPECT_THROW(items_.ItemData(1), std::out_of_range);
}

TEST_F(ListBoxWrapper, ProgramSelectingTellsTheClickHandler) {
    FillThree();
    int clicks = 0;
    form_.Get(L"lstItems").onClick = [&] { ++clicks; };
    items_.SetListIndex(2);
    EXPECT_EQ(1, clicks);
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
    EXPECT_EQ(1, Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
              }));
}

TEST_F(ListBoxChange, SameTextIsNoChange) {
    FillThree();
    items_.SetListIndex(0);
    EXPECT_EQ(0, Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
                  PressKey(VK_UP);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 0; }));
              }));
}

TEST_F(ListBoxChange, LetterCaseAloneIsNoChange) {
    Fill({{L"Đèn", L"1"}, {L"ĐÈN", L"2"}});
    items_.SetListIndex(0);
    EXPECT_EQ(0, Changes([](HWND list) {
                  PressKey(VK_DOWN);
                  EXPECT_TRUE(WaitUntil([&] { return ListSelection(list) == 1; }));
              }));
}

} // namespace
} // namespace vndesk::test
