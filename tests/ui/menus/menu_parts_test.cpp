// SPDX-License-Identifier: MIT
// The collections behind drawn menus, and what a window's entry keeps.
#include <gtest/gtest.h>

#include "menus/hook/cool_menu.h"
#include "menus/hook/our_items.h"
#include "menus/state/duplicate_key.h"
#include "menus/state/menu_module.h"
#include "support/leak_probe.h"
#include "ui/menus/menu_host.h"

namespace vndesk::test {
namespace {

HMENU Number(UINT_PTR number) {
    return reinterpret_cast<HMENU>(number);
}

TEST(MenuParts, MenuHeadIsStoredOnce) {
    WndCoolMenu window(nullptr);
    EXPECT_EQ(0, window.CountMenuHeads());
    EXPECT_EQ(nullptr, window.GetMenuHead(0));
    window.AddMenuHead(Number(5));
    window.AddMenuHead(Number(6));
    window.AddMenuHead(Number(5));
    EXPECT_EQ(2, window.CountMenuHeads());
    EXPECT_EQ(Number(5), window.GetMenuHead(0));
    EXPECT_EQ(Number(6), window.GetMenuHead(1));
    EXPECT_EQ(nullptr, window.GetMenuHead(2)) << "the array ends with a zero";
    EXPECT_EQ(nullptr, window.GetMenuHead(3));
    EXPECT_EQ(nullptr, window.GetMenuHead(-1));
    window.AddMenuHead(nullptr);
    EXPECT_EQ(2, window.CountMenuHeads());
}

TEST(MenuParts, OpenPopupIsReadAndWrittenAsText) {
    WndCoolMenu window(nullptr);
    EXPECT_EQ(L"-1", window.MainPopedIndex());
    window.SetMainPopedIndex(L"3");
    EXPECT_EQ(L"3", window.MainPopedIndex());
    window.SetMainPopedIndex(L"-1");
    EXPECT_EQ(L"-1", window.MainPopedIndex());
}

TEST(MenuParts, MissingKeyGivesNothing) {
    CMyItemDatas items;
    EXPECT_EQ(nullptr, items.Item(1));
    CMyItemData& added = items.Add(1);
    EXPECT_EQ(&added, items.Item(1));
    EXPECT_EQ(1, items.Count());
    EXPECT_EQ(nullptr, items.Item(2));
    items.Remove(1);
    EXPECT_EQ(nullptr, items.Item(1));
    EXPECT_EQ(0, items.Count());
    items.Remove(1);
}

TEST(MenuParts, SameKeyTwiceIsAnError) {
    CMyItemDatas items;
    items.Add(1).sMenuText = L"một";
    try {
        items.Add(1);
        ADD_FAILURE() << "no error";
    } catch (const ComError& error) {
        EXPECT_EQ(kDuplicateKey, error.Code());
    }
    EXPECT_EQ(L"một", items.Item(1)->sMenuText);
    items.Add(2);
    int count = 0;
    for (const auto& [key, data] : items)
        count += data != nullptr;
    EXPECT_EQ(2, count);
}

TEST(MenuParts, WindowZeroMakesNothing) {
    EXPECT_TRUE(InstallMenus(nullptr, {}, {}));
    EXPECT_EQ(nullptr, CurrentMenuModule());
}

TEST(MenuParts, LastUninstallReleasesCollectionsAndFonts) {
    const MenuHost host;
    ASSERT_EQ(nullptr, CurrentMenuModule());
    ASSERT_TRUE(InstallMenus(host.Window(), {}, {}));
    UninstallMenus(host.Window());
    const long before = GdiObjects();
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(InstallMenus(host.Window(), {}, {}));
        ASSERT_NE(nullptr, CurrentMenuModule());
        EXPECT_NE(nullptr, CurrentMenuModule()->fonts.Glyphs(SharedFonts::kMark, 12));
        EXPECT_NE(nullptr, CurrentMenuModule()->fonts.Glyphs(SharedFonts::kArrow, 12));
        EXPECT_NE(nullptr, CurrentMenuModule()->fonts.Glyphs(SharedFonts::kSign, 12));
        FindCoolMenu(host.Window())->SetFontSize(12);
        EXPECT_NE(nullptr, FindCoolMenu(host.Window())->MenuFont());
        EXPECT_NE(nullptr, FindCoolMenu(host.Window())->MenuFontSep());
        EXPECT_LT(before, GdiObjects());
        UninstallMenus(host.Window());
        EXPECT_EQ(nullptr, CurrentMenuModule());
        EXPECT_EQ(before, GdiObjects());
    }
}

TEST(MenuParts, ItemDataTellsWhatTheCaptionSaid) {
    const MenuHost host;
    ASSERT_TRUE(InstallMenus(host.Window(), {}, {}));
    const auto data = [&](HMENU menu, UINT position) { return OurDrawnItem(menu, position); };
    const CMyItemData* open = data(host.File(), kOpenAt);
    ASSERT_NE(nullptr, open);
    EXPECT_EQ(L"&Mở…\tCtrl+O", open->sMenuText);
    EXPECT_EQ(L"Mở một hồ sơ có sẵn", open->sMenuHelp);
    EXPECT_EQ(0, open->iButton);
    EXPECT_FALSE(open->bTrueSub || open->bMainMenu || open->bAsMark || open->bAsCheck);
    EXPECT_TRUE(data(host.File(), kRecentAt)->bTrueSub);
    EXPECT_TRUE(data(host.Bar(), 0)->bMainMenu);
    EXPECT_TRUE(data(host.Bar(), 0)->bTrueSub);
    EXPECT_FALSE(data(host.Bar(), 2)->bTrueSub);
    EXPECT_TRUE(data(host.File(), kLargeAt)->bAsMark);
    EXPECT_TRUE(data(host.File(), kGridAt)->bAsCheck);
    EXPECT_EQ(static_cast<UINT>(MFT_RADIOCHECK), data(host.File(), kSmallAt)->fType);
    const auto window = FindCoolMenu(host.Window());
    EXPECT_TRUE(window->HasMenuHead(host.Bar()));
    EXPECT_TRUE(window->HasMenuHead(host.Recent()));
    EXPECT_EQ(WndCoolMenu::kAnyMenu, window->SCMainMenu);
    UninstallMenus(host.Window());
}

TEST(MenuParts, FrameMenuIsRememberedWhenTheWindowMoves) {
    const MenuHost host;
    ASSERT_TRUE(InstallMenus(host.Window(), {}, {}));
    SetWindowPos(host.Window(), nullptr, 0, 0, 530, 430, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(reinterpret_cast<LONG_PTR>(host.Bar()), FindCoolMenu(host.Window())->SCMainMenu);
    UninstallMenus(host.Window());
}

} // namespace
} // namespace vndesk::test
