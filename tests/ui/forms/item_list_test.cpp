// SPDX-License-Identifier: MIT
// The items of real list boxes of a form, by places that no item has.
#include "forms/lists/item_list.h"

#include <gtest/gtest.h>

#include "forms/window/form_of.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr ControlSpec kControls[] = {
    ListBox(L"lstOne", {100, 100, 2000, 1200}),
    ListBox(L"lstMany", {100, 1400, 2000, 1200}, kMultiSelect),
    DropDownList(L"cmbOne", {100, 2700, 2000, 1200}),
};
constexpr FormSpec kForm = {
    .name = L"FrmTest",
    .client = {4000, 3200},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

class TestForm final : public FormOf<kForm> {
public:
    TestForm() { Load(); }
};

class ItemLists : public testing::TestWithParam<TestForm::Name> {
protected:
    ItemLists() : items_(form_.Get(GetParam())) {
        for (const wchar_t* text : {L"Bút", L"Áo", L"Cốc"})
            items_.AddItem(text);
    }

    std::wstring Marks() const {
        std::wstring marks;
        for (long i = 0; i < items_.ListCount(); ++i)
            marks += items_.Selected(i) ? L'1' : L'0';
        return marks;
    }
    std::vector<std::wstring> Texts() const { return ListTexts(form_.Get(GetParam()).Window()); }

    mutable TestForm form_;
    ItemList items_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, ItemLists,
                         testing::Values(TestForm::Name(L"lstOne"), TestForm::Name(L"lstMany"),
                                         TestForm::Name(L"cmbOne")),
                         [](const auto& info) {
                             const std::wstring name = kControls[info.param.index].name;
                             return std::string(name.begin(), name.end());
                         });

TEST_P(ItemLists, IndexMinusOneSelectsNothing) {
    items_.SetListIndex(1);
    EXPECT_EQ(L"010", Marks());
    items_.SetListIndex(-1);
    EXPECT_EQ(L"000", Marks());
    items_.SetListIndex(2);
    EXPECT_EQ(L"001", Marks());
}

TEST_P(ItemLists, TextOfNoItemChangesNothing) {
    items_.SetListIndex(1);
    for (const long place : {-1L, 3L, 100L})
        items_.SetText(place, L"thừa");
    EXPECT_EQ((std::vector<std::wstring>{L"Bút", L"Áo", L"Cốc"}), Texts());
    EXPECT_EQ(L"010", Marks());
    items_.SetText(1, L"Áo dài");
    EXPECT_EQ(L"Áo dài", Texts()[1]);
    EXPECT_EQ(L"010", Marks());
}

} // namespace
} // namespace vndesk::test
