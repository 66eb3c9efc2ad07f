// SPDX-License-Identifier: MIT
// Which items are drawn and which stay their host's: whatever numbers a host keeps in its items,
// and whatever it does to items that are drawn, it gets back what it had.
#include "ui/menus/menu_edits.h"

#include "menus/hook/cool_menu.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr UINT kDrawnByHost = 700;

// --- numbers of the host ---

TEST(MenuOwnership, SmallNumbersInEqualItemsAreToldApart) {
    const MenuHost host;
    // More of them than the library can have given numbers to items.
    for (UINT number = 0; number < 60; ++number) {
        const HMENU popup = CreatePopupMenu();
        Insert(popup, 0, MFT_STRING, 0, number, (L"Trong " + std::to_wstring(number)).c_str());
        Insert(host.File(), Count(host.File()), MFT_STRING, 0, number,
               (L"Số " + std::to_wstring(number) + L"|Giúp " + std::to_wstring(number)).c_str(),
               popup);
    }
    const MenuLines before = Describe(host.Bar());
    std::vector<std::wstring> told;
    ASSERT_TRUE(InstallMenus(host.Window(),
                             [&](const std::wstring& text, const std::wstring& help, bool) {
                                 told.push_back(text + L"/" + help);
                             },
                             {}));
    for (int round = 0; round < 2; ++round) {
        OpenBar(host);
        OpenPopup(host.Window(), host.File());
        for (UINT number = 0; number < 60; ++number) {
            const UINT position = kExitAt + 1 + number;
            const std::wstring digits = std::to_wstring(number);
            told.clear();
            SendMessageW(host.Window(), WM_MENUSELECT, MAKEWPARAM(position, MF_POPUP),
                         reinterpret_cast<LPARAM>(host.File()));
            EXPECT_EQ(std::vector<std::wstring>{L"Số " + digits + L"/Giúp " + digits}, told);
            EXPECT_TRUE(Draws(host, host.File(), position)) << number;
        }
    }
    UninstallMenus(host.Window());
    EXPECT_EQ(before, Describe(host.Bar()));
}

TEST(MenuOwnership, ItemsOfSmallNumbersThatTheHostDrawsStayItsOwn) {
    MenuHost host;
    const auto first = Count(host.File());
    for (UINT number = 0; number < 40; ++number)
        Insert(host.File(), first + number, MFT_OWNERDRAW, number % 2 ? 0 : kDrawnByHost + number,
               number, nullptr);
    const MenuLines before = Describe(host.Bar());
    InstalledMenu menu(host);
    OpenBar(host);
    OpenPopup(host.Window(), host.File());
    for (UINT number = 0; number < 40; ++number) {
        const int measured = host.Seen(WM_MEASUREITEM), drawn = host.Seen(WM_DRAWITEM);
        EXPECT_FALSE(Measures(host, host.File(), first + number)) << number;
        EXPECT_FALSE(Draws(host, host.File(), first + number)) << number;
        EXPECT_EQ(measured + 1, host.Seen(WM_MEASUREITEM));
        EXPECT_EQ(drawn + 1, host.Seen(WM_DRAWITEM));
    }
    EXPECT_EQ(MAKELRESULT(kExitAt, MNC_EXECUTE), TypeLetter(host, host.File(), L'h'));
    EXPECT_EQ(MAKELRESULT(kGridAt, MNC_EXECUTE), TypeLetter(host, host.File(), L'đ'));
    menu.Uninstall();
    EXPECT_EQ(before, Describe(host.Bar()));
}

TEST(MenuOwnership, CopiesOfOurNumbersStayTheHosts) {
    MenuHost host;
    const InstalledMenu menu(host);
    const HMENU help = GetSubMenu(host.Bar(), 1);
    const ULONG_PTR number = DataOf(host.File(), kSaveAt);
    Insert(host.File(), 0, MFT_OWNERDRAW, kDrawnByHost, number, nullptr);
    Insert(help, 0, MFT_OWNERDRAW, kDrawnByHost, number, nullptr);
    for (int round = 0; round < 2; ++round) {
        for (const HMENU popup : {host.File(), help}) {
            EXPECT_FALSE(Measures(host, popup, 0));
            EXPECT_FALSE(Draws(host, popup, 0));
            EXPECT_EQ(number, DataOf(popup, 0));
            OpenPopup(host.Window(), popup);
        }
        EXPECT_TRUE(Draws(host, host.File(), kSaveAt + 1));
        EXPECT_EQ(L"&Lưu\tCtrl+Shift+S", CaptionOf(host.File(), kSaveAt + 1));
    }
}

TEST(MenuOwnership, CopyWithOurCommandDoesNotTakeThePlaceOfOurs) {
    MenuHost host;
    InstalledMenu menu(host);
    const ULONG_PTR number = DataOf(host.File(), kSaveAt);
    Insert(host.File(), 0, MFT_OWNERDRAW, kSave, number, nullptr);
    OpenPopup(host.Window(), host.File());
    EXPECT_EQ(number, DataOf(host.File(), 0));
    EXPECT_EQ(number, DataOf(host.File(), kSaveAt + 1));
    menu.Uninstall();
    EXPECT_TRUE(IsDrawn(host.File(), 0)) << "by its host, as before";
    EXPECT_EQ(number, DataOf(host.File(), 0));
    EXPECT_EQ(kSaveCaption, CaptionOf(host.File(), kSaveAt + 1));
    EXPECT_EQ(7000u + kSave, DataOf(host.File(), kSaveAt + 1));
}

TEST(MenuOwnership, MenuBelowAnItemOfTheHostIsTheHosts) {
    const MenuHost host;
    const HMENU popup = CreatePopupMenu(), deeper = CreatePopupMenu();
    Insert(deeper, 0, MFT_STRING, 711, 5, L"Sâu");
    Insert(popup, 0, MFT_STRING, 710, 4, L"Trong|x", deeper);
    Insert(host.File(), 0, MFT_OWNERDRAW, kDrawnByHost, 3, nullptr, popup);
    const MenuLines before = Describe(popup);
    const InstalledMenu menu(host);
    OpenBar(host);
    OpenPopup(host.Window(), popup);
    EXPECT_EQ(before, Describe(popup));
}

// --- bitmaps ---

TEST(MenuOwnership, ItemOfABitmapAloneIsLeftAlone) {
    const MenuHost host;
    const HBITMAP bitmap = CreateBitmap(16, 16, 1, 1, nullptr);
    MENUITEMINFOW info = Info(MIIM_ID | MIIM_DATA | MIIM_BITMAP);
    info.wID = 720;
    info.dwItemData = 6;
    info.hbmpItem = bitmap;
    ASSERT_TRUE(InsertMenuItemW(host.File(), 0, TRUE, &info));
    const MenuLines before = Describe(host.Bar());
    {
        const InstalledMenu menu(host);
        OpenPopup(host.Window(), host.File());
        EXPECT_FALSE(IsDrawn(host.File(), 0));
        EXPECT_EQ(6u, DataOf(host.File(), 0));
        EXPECT_TRUE(IsDrawn(host.File(), 1));
    }
    EXPECT_EQ(before, Describe(host.Bar()));
    DeleteMenu(host.File(), 0, MF_BYPOSITION);
    DeleteObject(bitmap);
}

TEST(MenuOwnership, ItemThatBecomesABitmapIsGivenBack) {
    const MenuHost host;
    const HBITMAP bitmap = CreateBitmap(16, 16, 1, 1, nullptr);
    {
        const InstalledMenu menu(host);
        ModifyMenuW(host.File(), kSaveAt, MF_BYPOSITION | MF_BITMAP, kSave,
                    reinterpret_cast<LPCWSTR>(bitmap));
        OpenPopup(host.Window(), host.File());
        EXPECT_FALSE(IsDrawn(host.File(), kSaveAt));
        EXPECT_EQ(7000u + kSave, DataOf(host.File(), kSaveAt)) << "the host's own again";
    }
    EXPECT_EQ(7000u + kSave, DataOf(host.File(), kSaveAt));
    DeleteMenu(host.File(), kSaveAt, MF_BYPOSITION);
    DeleteObject(bitmap);
}

// --- popups of two windows ---

class SharedPopup : public testing::Test {
protected:
    SharedPopup() {
        Insert(shared, 0, MFT_STRING, 730, 8, L"Chung|Của hai cửa sổ");
        for (const MenuHost* host : {&first, &second})
            AppendMenuW(host->Bar(), MF_POPUP, reinterpret_cast<UINT_PTR>(shared), L"Chung");
        before = Describe(shared);
    }
    // Both bars must not destroy it.
    ~SharedPopup() override { RemoveMenu(second.Bar(), 3, MF_BYPOSITION); }
    void Close(const MenuHost& host) const {
        SendMessageW(host.Window(), WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(shared), 0);
    }

    const MenuHost first, second;
    const HMENU shared = CreatePopupMenu();
    MenuLines before;
};

TEST_F(SharedPopup, IsGivenBackWithEitherWindow) {
    for (const bool firstGoes : {true, false}) {
        const MenuHost& goes = firstGoes ? first : second;
        const MenuHost& stays = firstGoes ? second : first;
        InstalledMenu one(first), two(second);
        OpenPopup(goes.Window(), shared);
        OpenPopup(stays.Window(), shared);
        (firstGoes ? one : two).Uninstall();
        EXPECT_EQ(before, Describe(shared)) << firstGoes;
        // The other window draws it when it opens it, and only then.
        OpenBar(stays);
        EXPECT_EQ(before, Describe(shared));
        OpenPopup(stays.Window(), shared);
        EXPECT_TRUE(IsDrawn(shared, 0));
        EXPECT_TRUE(Measures(stays, shared, 0));
        EXPECT_TRUE(Draws(stays, shared, 0));
        Close(stays);
        EXPECT_EQ(before, Describe(shared));
        (firstGoes ? two : one).Uninstall();
        EXPECT_EQ(before, Describe(shared));
    }
}

TEST_F(SharedPopup, IsDrawnForBothWhileBothAreInstalled) {
    InstalledMenu one(first);
    {
        const InstalledMenu two(second);
        for (const MenuHost* host : {&first, &second, &first}) {
            OpenPopup(host->Window(), shared);
            EXPECT_TRUE(Measures(*host, shared, 0));
            EXPECT_TRUE(Draws(*host, shared, 0));
            Close(*host);
            EXPECT_TRUE(IsDrawn(shared, 0));
        }
    }
    const InstalledMenu again(second);
    EXPECT_TRUE(IsDrawn(shared, 0));
    OpenPopup(first.Window(), shared);
    Close(first);
    EXPECT_TRUE(IsDrawn(shared, 0));
}

// --- time ---

TEST(MenuOwnership, ManySubmenusOpenInLinearTime) {
    const MenuHost host;
    for (UINT i = 0; i < 600; ++i) {
        const HMENU popup = CreatePopupMenu();
        for (UINT j = 0; j < 20; ++j)
            AppendMenuW(popup, MF_STRING, 1000 + i * 20 + j,
                        (L"Mục " + std::to_wstring(j) + L"\tCtrl+X").c_str());
        AppendMenuW(host.File(), MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"Nhóm");
    }
    const InstalledMenu menu(host);
    ULONGLONG fastest = ~0ULL;
    for (int i = 0; i < 3; ++i) {
        const ULONGLONG start = GetTickCount64();
        OpenBar(host);
        fastest = std::min(fastest, GetTickCount64() - start);
    }
    EXPECT_GT(700u, fastest); // it took seconds when each menu looked at all items
}

TEST(MenuOwnership, LargePopupOpensInLinearTimeWhateverItsHostDidToIt) {
    const MenuHost host;
    constexpr UINT kItems = 3000;
    const auto fill = [&] {
        while (DeleteMenu(host.Recent(), 0, MF_BYPOSITION)) {
        }
        for (UINT i = 0; i < kItems; ++i)
            AppendMenuW(host.Recent(), MF_STRING, 1000 + i, (L"Mục " + std::to_wstring(i)).c_str());
    };
    const auto each = [&](void (*change)(HMENU, UINT)) {
        for (UINT i = 0; i < Count(host.Recent()); ++i)
            change(host.Recent(), i);
    };
    fill();
    InstalledMenu menu(host);
    const auto expectQuick = [&](const char* after) {
        const ULONGLONG start = GetTickCount64();
        OpenPopup(host.Window(), host.Recent());
        EXPECT_GT(700u, GetTickCount64() - start) << after;
        for (const UINT position : {0u, kItems / 2, kItems - 1})
            EXPECT_TRUE(IsDrawn(host.Recent(), position)) << after;
    };
    fill();
    expectQuick("built anew");
    each([](HMENU popup, UINT position) { SetId(popup, position, 9000 + position); });
    expectQuick("other commands");
    each([](HMENU popup, UINT position) { SetData(popup, position, position); });
    expectQuick("data of its own");
    Insert(host.Recent(), 0, MFT_STRING, 1, 0, L"Đầu");
    expectQuick("one more at the head");
    menu.Uninstall();
    for (const UINT i : {0u, 1u, kItems / 2, kItems - 1}) {
        EXPECT_EQ(i, DataOf(host.Recent(), i + 1));
        EXPECT_EQ(9000 + i, IdOf(host.Recent(), i + 1));
        EXPECT_FALSE(IsDrawn(host.Recent(), i + 1));
    }
}

} // namespace
} // namespace vndesk::test
