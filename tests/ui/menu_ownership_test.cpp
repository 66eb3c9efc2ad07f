// SPDX-License-Identifier: MIT
// Which items are drawn and which stay their host's: whatever numbers a host keeps in its items,
// and whatever it does to items that are drawn, it gets back what it had.
#include "menu_canvas.h"

#include "menus/cool_menu.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr UINT kDrawnByHost = 700;
constexpr wchar_t kSaveCaption[] = L"&Lưu\tCtrl+Shift+S|Ghi hồ sơ vào đĩa|2";

bool IsDrawn(HMENU menu, UINT position) {
    return (TypeOf(menu, position) & MFT_OWNERDRAW) != 0;
}

void OpenPopup(HWND window, HMENU popup) {
    SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
}

void OpenBar(const MenuHost& host) {
    SendMessageW(host.Window(), WM_INITMENU, reinterpret_cast<WPARAM>(host.Bar()), 0);
}

MENUITEMINFOW Info(UINT mask) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

void SetData(HMENU menu, UINT position, ULONG_PTR data) {
    MENUITEMINFOW info = Info(MIIM_DATA);
    info.dwItemData = data;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

void SetType(HMENU menu, UINT position, UINT type) {
    MENUITEMINFOW info = Info(MIIM_FTYPE);
    info.fType = type;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

void SetId(HMENU menu, UINT position, UINT id) {
    MENUITEMINFOW info = Info(MIIM_ID);
    info.wID = id;
    ASSERT_TRUE(SetMenuItemInfoW(menu, position, TRUE, &info));
}

void Insert(HMENU menu, UINT position, UINT type, UINT id, ULONG_PTR data, const wchar_t* text,
            HMENU submenu = nullptr) {
    MENUITEMINFOW info = Info(MIIM_FTYPE | MIIM_ID | MIIM_DATA | (text ? MIIM_STRING : 0u) |
                              (submenu ? MIIM_SUBMENU : 0u));
    info.fType = type;
    info.wID = id;
    info.dwItemData = data;
    info.dwTypeData = const_cast<wchar_t*>(text);
    info.hSubMenu = submenu;
    ASSERT_TRUE(InsertMenuItemW(menu, position, TRUE, &info));
}

UINT Count(HMENU menu) {
    return static_cast<UINT>(GetMenuItemCount(menu));
}

// All that a host can read of an item.
struct ReadItem {
    ReadItem(HMENU menu, UINT position) {
        info.dwTypeData = text;
        info.cch = 256;
        EXPECT_TRUE(GetMenuItemInfoW(menu, position, TRUE, &info));
    }
    ReadItem(const ReadItem&) = delete;
    ReadItem& operator=(const ReadItem&) = delete;
    void InsertInto(HMENU menu, UINT position) const {
        EXPECT_TRUE(InsertMenuItemW(menu, position, TRUE, &info));
    }

    wchar_t text[256] = L"";
    MENUITEMINFOW info =
        Info(MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_DATA | MIIM_STRING);
};

void Move(HMENU from, UINT position, HMENU to, UINT place) {
    const ReadItem item(from, position);
    ASSERT_TRUE(RemoveMenu(from, position, MF_BYPOSITION));
    item.InsertInto(to, place);
}

LRESULT TypeLetter(const MenuHost& host, HMENU menu, wchar_t letter) {
    return SendMessageW(host.Window(), WM_MENUCHAR, MAKEWPARAM(letter, MF_POPUP),
                        reinterpret_cast<LPARAM>(menu));
}

// Whether the library draws an item as the platform would have it draw it.
bool Draws(const MenuHost& host, HMENU menu, UINT position) {
    const Canvas canvas(120, 20);
    DRAWITEMSTRUCT drawn = {};
    drawn.CtlType = ODT_MENU;
    drawn.itemID = IdOf(menu, position);
    drawn.hwndItem = reinterpret_cast<HWND>(menu);
    drawn.hDC = canvas.Dc();
    drawn.rcItem = canvas.All();
    drawn.itemData = DataOf(menu, position);
    SendMessageW(host.Window(), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn));
    return canvas.Count(Canvas::kUnpainted) == 0;
}

bool Measures(const MenuHost& host, HMENU menu, UINT position) {
    MEASUREITEMSTRUCT measured = {};
    measured.CtlType = ODT_MENU;
    measured.itemID = IdOf(menu, position);
    measured.itemData = DataOf(menu, position);
    SendMessageW(host.Window(), WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured));
    return measured.itemWidth > 0 && measured.itemHeight > 0;
}

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

TEST(MenuOwnership, ChangedItemOfTheBarIsDrawnAtOnce) {
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

TEST(MenuOwnership, MovedItemIsDrawnAndGivenBack) {
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

TEST(MenuOwnership, ItemThatIsPutBackLaterIsKnownAgain) {
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

TEST(MenuOwnership, CopyOfAnItemIsDrawnLikeIt) {
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

TEST(MenuOwnership, DataThatTheHostCarriesFromADrawnItemToAnotherIsItsOwn) {
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

TEST(MenuOwnership, NextNumberInAnItemOfTheHostIsItsData) {
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
