// SPDX-License-Identifier: MIT
// Whatever a host does to items that are drawn, they stay drawn and it gets back what it had.
#include "ui/menus/menu_edits.h"

#include "support/text.h"

namespace vndesk::test {
namespace {

// --- what a host does to an item ---

// Each does something to the item at the place, and has it be at the end as it should be.
struct Change {
    const char* name;
    void (*change)(HMENU menu, UINT position);
    UINT type, id;
    ULONG_PTR data;
    const wchar_t* caption;
};
void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

const Change kChanges[] = {
    {"ModifyMenu",
     [](HMENU menu, UINT position) {
         ModifyMenuW(menu, position, MF_BYPOSITION | MF_STRING, kSave, L"&Ghi|x");
     },
     MFT_STRING, kSave, 7000 + kSave, L"&Ghi|x"},
    {"ModifyMenuToAnotherCommand",
     [](HMENU menu, UINT position) {
         ModifyMenuW(menu, position, MF_BYPOSITION | MF_STRING, 444, L"&Ghi|x");
     },
     MFT_STRING, 444, 7000 + kSave, L"&Ghi|x"},
    {"SetType", [](HMENU menu, UINT position) { SetType(menu, position, MFT_STRING); }, MFT_STRING,
     kSave, 7000 + kSave, kSaveCaption},
    {"SetRadioType", [](HMENU menu, UINT position) { SetType(menu, position, MFT_RADIOCHECK); },
     MFT_RADIOCHECK, kSave, 7000 + kSave, kSaveCaption},
    {"AddRadioType",
     [](HMENU menu, UINT position) {
         SetType(menu, position, TypeOf(menu, position) | MFT_RADIOCHECK);
     },
     MFT_RADIOCHECK, kSave, 7000 + kSave, kSaveCaption},
    {"SetId", [](HMENU menu, UINT position) { SetId(menu, position, 444); }, MFT_STRING, 444,
     7000 + kSave, kSaveCaption},
    {"SetIdToAnothers", [](HMENU menu, UINT position) { SetId(menu, position, kExit); }, MFT_STRING,
     kExit, 7000 + kSave, kSaveCaption},
    {"SetTypeAndId",
     [](HMENU menu, UINT position) {
         SetType(menu, position, MFT_STRING);
         SetId(menu, position, 444);
     },
     MFT_STRING, 444, 7000 + kSave, kSaveCaption},
    {"SetData", [](HMENU menu, UINT position) { SetData(menu, position, 99); }, MFT_STRING, kSave,
     99, kSaveCaption},
    {"SetDataToZero", [](HMENU menu, UINT position) { SetData(menu, position, 0); }, MFT_STRING,
     kSave, 0, kSaveCaption},
    {"SetTypeAndData",
     [](HMENU menu, UINT position) {
         SetType(menu, position, MFT_STRING);
         SetData(menu, position, 99);
     },
     MFT_STRING, kSave, 99, kSaveCaption},
    {"Separator", [](HMENU menu, UINT position) { SetType(menu, position, MFT_SEPARATOR); },
     MFT_SEPARATOR, kSave, 7000 + kSave, kSaveCaption},
};

class MenuItemChange : public testing::TestWithParam<Change> {
protected:
    static void ExpectAsWanted(HMENU menu, UINT position) {
        const Change& wanted = GetParam();
        EXPECT_EQ(wanted.type, TypeOf(menu, position));
        EXPECT_EQ(wanted.id, IdOf(menu, position));
        EXPECT_EQ(wanted.data, DataOf(menu, position));
        if (!(wanted.type & MFT_SEPARATOR)) {
            EXPECT_EQ(wanted.caption, CaptionOf(menu, position));
        }
    }
    const MenuHost host;
};
INSTANTIATE_TEST_SUITE_P(Changes, MenuItemChange, testing::ValuesIn(kChanges),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(MenuItemChange, HostHasItsItemBackAtOnce) {
    InstalledMenu menu(host);
    GetParam().change(host.File(), kSaveAt);
    menu.Uninstall();
    ExpectAsWanted(host.File(), kSaveAt);
}

TEST_P(MenuItemChange, HostHasItsItemBackAfterThePopupWasOpen) {
    InstalledMenu menu(host);
    GetParam().change(host.File(), kSaveAt);
    for (int i = 0; i < 2; ++i) {
        OpenPopup(host.Window(), host.File());
        EXPECT_TRUE(IsDrawn(host.File(), kSaveAt));
        EXPECT_TRUE(Measures(host, host.File(), kSaveAt));
        EXPECT_TRUE(Draws(host, host.File(), kSaveAt));
    }
    menu.Uninstall();
    ExpectAsWanted(host.File(), kSaveAt);
}

TEST_P(MenuItemChange, ItemIsFollowedWhereOthersCameBeforeIt) {
    InstalledMenu menu(host);
    GetParam().change(host.File(), kSaveAt);
    Insert(host.File(), 0, MFT_STRING, 800, 801, L"Mới");
    OpenPopup(host.Window(), host.File());
    EXPECT_TRUE(Draws(host, host.File(), kSaveAt + 1));
    menu.Uninstall();
    ExpectAsWanted(host.File(), kSaveAt + 1);
    EXPECT_EQ(801u, DataOf(host.File(), 0));
}

TEST(MenuChanges, ChangedItemOfTheBarIsDrawnAtOnce) {
    for (const bool data : {false, true}) {
        const MenuHost host;
        InstalledMenu menu(host);
        if (data)
            SetData(host.Bar(), 2, 99);
        else
            SetId(host.Bar(), 2, 444);
        EXPECT_TRUE(Measures(host, host.Bar(), 2)) << data;
        EXPECT_TRUE(Draws(host, host.Bar(), 2)) << data;
        menu.Uninstall();
        EXPECT_FALSE(IsDrawn(host.Bar(), 2));
        EXPECT_EQ(data ? 99u : 7000u + kExit, DataOf(host.Bar(), 2));
    }
}

// --- items that move ---

TEST(MenuChanges, MovedItemIsDrawnAndGivenBack) {
    for (const bool opened : {false, true}) {
        const MenuHost host;
        InstalledMenu menu(host);
        const HMENU file = host.File(), help = GetSubMenu(host.Bar(), 1);
        const HMENU fresh = CreatePopupMenu();
        Insert(host.Bar(), 3, MFT_STRING, 83, 0, L"Mới", fresh);
        Move(file, kSaveAt, help, 0);
        Move(file, kOpenAt, host.Bar(), 0);
        Move(file, Count(file) - 1, fresh, 0); // the last: Thoát
        for (int i = opened ? 0 : 2; i < 2; ++i) {
            EXPECT_TRUE(Measures(host, host.Bar(), 0));
            EXPECT_TRUE(Draws(host, host.Bar(), 0));
            OpenBar(host);
            for (const HMENU popup : {file, help, fresh})
                OpenPopup(host.Window(), popup);
            for (const HMENU moved : {help, host.Bar(), fresh}) {
                EXPECT_TRUE(IsDrawn(moved, 0));
                EXPECT_TRUE(Measures(host, moved, 0));
                EXPECT_TRUE(Draws(host, moved, 0));
            }
        }
        menu.Uninstall();
        EXPECT_EQ(kSaveCaption, CaptionOf(help, 0));
        EXPECT_EQ(7000u + kSave, DataOf(help, 0));
        EXPECT_EQ(L"&Mở…\tCtrl+O|Mở một hồ sơ có sẵn|1", CaptionOf(host.Bar(), 0));
        EXPECT_EQ(7000u + kOpen, DataOf(host.Bar(), 0));
        EXPECT_EQ(L"T&hoát\tAlt+F4|Kết thúc chương trình", CaptionOf(fresh, 0));
        for (const HMENU moved : {help, host.Bar(), fresh})
            EXPECT_FALSE(IsDrawn(moved, 0)) << opened;
    }
}

TEST(MenuChanges, ItemThatIsPutBackLaterIsKnownAgain) {
    const MenuHost host;
    const MenuLines before = Describe(host.Bar());
    InstalledMenu menu(host);
    const ReadItem item(host.File(), kSaveAt);
    ASSERT_TRUE(RemoveMenu(host.File(), kSaveAt, MF_BYPOSITION));
    OpenBar(host);
    OpenPopup(host.Window(), host.File());
    item.InsertInto(host.File(), kSaveAt);
    OpenPopup(host.Window(), host.File());
    EXPECT_TRUE(Draws(host, host.File(), kSaveAt));
    menu.Uninstall();
    EXPECT_EQ(before, Describe(host.Bar()));
}

TEST(MenuChanges, CopyOfAnItemIsDrawnLikeIt) {
    const MenuHost host;
    InstalledMenu menu(host);
    const HMENU help = GetSubMenu(host.Bar(), 1);
    const ReadItem item(host.File(), kSaveAt);
    item.InsertInto(help, 0);
    OpenPopup(host.Window(), help);
    EXPECT_TRUE(Draws(host, help, 0));
    EXPECT_TRUE(Draws(host, host.File(), kSaveAt));
    EXPECT_NE(DataOf(help, 0), DataOf(host.File(), kSaveAt));
    menu.Uninstall();
    for (const auto& [popup, position] :
         {std::pair(help, 0u), std::pair(host.File(), static_cast<UINT>(kSaveAt))}) {
        EXPECT_EQ(kSaveCaption, CaptionOf(popup, position));
        EXPECT_EQ(7000u + kSave, DataOf(popup, position));
        EXPECT_FALSE(IsDrawn(popup, position));
    }
}

TEST(MenuChanges, DataThatTheHostCarriesFromADrawnItemToAnotherIsItsOwn) {
    const MenuHost host;
    InstalledMenu menu(host);
    const HMENU help = GetSubMenu(host.Bar(), 1);
    // As a host gives its own data to a new item, and to one that is drawn already.
    Insert(help, 0, MFT_STRING, 740, DataOf(host.File(), kSaveAt), L"Như Lưu");
    SetData(host.File(), kExitAt, DataOf(host.File(), kSaveAt));
    for (int i = 0; i < 2; ++i)
        for (const HMENU popup : {help, host.File()})
            OpenPopup(host.Window(), popup);
    EXPECT_TRUE(Draws(host, help, 0));
    menu.Uninstall();
    EXPECT_EQ(7000u + kSave, DataOf(help, 0));
    EXPECT_EQ(L"Như Lưu", CaptionOf(help, 0));
    EXPECT_EQ(7000u + kSave, DataOf(host.File(), kExitAt));
    EXPECT_EQ(7000u + kSave, DataOf(host.File(), kSaveAt));
}

TEST(MenuChanges, NextNumberInAnItemOfTheHostIsItsData) {
    const MenuHost host;
    InstalledMenu menu(host);
    Insert(host.File(), 0, MFT_STRING, 750, 7, L"Một");
    OpenPopup(host.Window(), host.File());
    const ULONG_PTR next = DataOf(host.File(), 0) + 1;
    Insert(host.File(), 0, MFT_STRING, 751, next, L"Hai");
    OpenPopup(host.Window(), host.File());
    EXPECT_TRUE(Draws(host, host.File(), 0));
    EXPECT_TRUE(Draws(host, host.File(), 1));
    menu.Uninstall();
    EXPECT_EQ(next, DataOf(host.File(), 0));
    EXPECT_EQ(7u, DataOf(host.File(), 1));
}

} // namespace
} // namespace vndesk::test
