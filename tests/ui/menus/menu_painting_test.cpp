// SPDX-License-Identifier: MIT
// Menu items drawn into a bitmap: sizes, places and colours for each state.
#include "ui/menus/menu_canvas.h"

#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kWidth = 240;
constexpr int kHeight = 22;
// Places of a popup item at 96 dpi.
constexpr int kImageColumn = 20;
constexpr int kTextLeft = 24;

constexpr COLORREF kFolder = RGB(236, 190, 84);
constexpr COLORREF kPaper = RGB(250, 250, 250);

COLORREF System(int color) {
    return GetSysColor(color);
}

bool IsGray(COLORREF color) {
    return GetRValue(color) == GetGValue(color) && GetGValue(color) == GetBValue(color);
}

// Colours of the system for the length of a test.
class Scheme {
public:
    struct Entry {
        INT element;
        COLORREF color;
    };

    explicit Scheme(std::vector<Entry> entries) : entries_(std::move(entries)) {
        for (Entry& entry : entries_) {
            const COLORREF before = GetSysColor(entry.element);
            SetSysColors(1, &entry.element, &entry.color);
            entry.color = before;
        }
    }
    ~Scheme() {
        for (const Entry& entry : entries_)
            SetSysColors(1, &entry.element, &entry.color);
    }
    Scheme(const Scheme&) = delete;
    Scheme& operator=(const Scheme&) = delete;

private:
    std::vector<Entry> entries_;
};

// Each colour is its own, so that it tells what was drawn with it.
std::vector<Scheme::Entry> LightColors() {
    return {{COLOR_MENU, RGB(240, 240, 240)},          {COLOR_MENUBAR, RGB(236, 236, 236)},
            {COLOR_MENUTEXT, RGB(10, 10, 10)},         {COLOR_HIGHLIGHT, RGB(0, 80, 170)},
            {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 250)}, {COLOR_GRAYTEXT, RGB(130, 130, 130)},
            {COLOR_WINDOW, RGB(255, 255, 255)},        {COLOR_WINDOWTEXT, RGB(0, 0, 0)},
            {COLOR_3DHILIGHT, RGB(254, 254, 254)},     {COLOR_3DLIGHT, RGB(225, 225, 225)},
            {COLOR_BTNSHADOW, RGB(160, 160, 160)}};
}

std::vector<Scheme::Entry> HighContrastColors() {
    return {{COLOR_MENU, RGB(0, 0, 0)},           {COLOR_MENUBAR, RGB(0, 0, 0)},
            {COLOR_MENUTEXT, RGB(255, 255, 255)}, {COLOR_HIGHLIGHT, RGB(0, 255, 0)},
            {COLOR_HIGHLIGHTTEXT, RGB(0, 0, 0)},  {COLOR_GRAYTEXT, RGB(0, 255, 255)},
            {COLOR_WINDOW, RGB(0, 0, 0)},         {COLOR_WINDOWTEXT, RGB(255, 255, 255)}};
}

class MenuPaintingTest : public testing::Test {
protected:
    void SetUp() override {
        const HDC screen = GetDC(nullptr);
        const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        if (dpi != 96)
            GTEST_SKIP() << "the places are those of 96 dpi";
    }

    std::unique_ptr<Canvas> Paint(HMENU menu, UINT position, UINT state = 0, int width = kWidth,
                                  int height = kHeight) {
        auto canvas = std::make_unique<Canvas>(width, height);
        PaintItem(host, menu, position, state, *canvas);
        EXPECT_EQ(0, canvas->Count(Canvas::kUnpainted)) << "every pixel is painted";
        return canvas;
    }
    std::unique_ptr<Canvas> Paint(UINT position, UINT state = 0) {
        return Paint(host.File(), position, state);
    }
    void Set(HRESULT (STDMETHODCALLTYPE ICoolMenu::*member)(long, VARIANT, VARIANT_BOOL*),
             bool value) {
        VARIANT_BOOL result;
        EXPECT_SUCCEEDED((menu.operator->()->*member)(host.Handle(), _variant_t(value), &result));
    }
    void Set(HRESULT (STDMETHODCALLTYPE ICoolMenu::*member)(long, VARIANT, long*), long value) {
        long result;
        EXPECT_SUCCEEDED((menu.operator->()->*member)(host.Handle(), _variant_t(value), &result));
    }
    static RECT ImageColumn() { return {0, 0, kImageColumn, kHeight}; }
    static RECT RestOfItem() { return {kImageColumn + 1, 0, kWidth, kHeight}; }

    const Scheme colors{LightColors()};
    const Pictures pictures;
    const MenuHost host;
    const InstalledMenu menu{host, InstalledMenu::Missing(), pictures.Handle()};
};

// --- sizes ---

// The width of a text in the menu font of 8 points.
SIZE TextSize(const wchar_t* text, int points, bool bold = false) {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    metrics.lfMenuFont.lfHeight = -MulDiv(points, 96, 72);
    metrics.lfMenuFont.lfWidth = 0;
    if (bold)
        metrics.lfMenuFont.lfWeight = FW_BOLD;
    const HDC screen = GetDC(nullptr);
    const HFONT font = CreateFontIndirectW(&metrics.lfMenuFont);
    const HGDIOBJ before = SelectObject(screen, font);
    RECT box = {};
    DrawTextW(screen, text, -1, &box, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(screen, before);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    return {box.right, box.bottom};
}

TEST_F(MenuPaintingTest, PopupItemIsAsWideAsItsTextAndTwoImageColumns) {
    const SIZE size = MeasureItem(host, host.File(), kToolsAt);
    EXPECT_EQ(TextSize(L"Thanh &công cụ", 8).cx + 4 + 1 + 2 * (16 + 2) -
                  (GetSystemMetrics(SM_CXMENUCHECK) - 1),
              size.cx);
    EXPECT_EQ(std::max<long>(TextSize(L"Thanh &công cụ", 8).cy, GetSystemMetrics(SM_CYMENU)),
              size.cy);
}

TEST_F(MenuPaintingTest, MenuBarItemIsAsWideAsItsText) {
    const SIZE size = MeasureItem(host, host.Bar(), 1);
    EXPECT_EQ(TextSize(L"T&rợ giúp", 8).cx, size.cx);
}

TEST_F(MenuPaintingTest, DefaultItemIsMeasuredInBold) {
    const int gap = 16;
    const int shortcuts = TextSize(L"Ctrl+Shift+S", 8, true).cx;
    EXPECT_EQ(TextSize(L"&Mở…", 8, true).cx + gap + shortcuts + 41 -
                  (GetSystemMetrics(SM_CXMENUCHECK) - 1),
              MeasureItem(host, host.File(), kOpenAt).cx);
}

TEST_F(MenuPaintingTest, ItemsGrowWithTheFont) {
    SIZE before = MeasureItem(host, host.File(), kToolsAt);
    for (const int points : {12, 20, 36}) {
        Set(&ICoolMenu::FontSize, points);
        const SIZE size = MeasureItem(host, host.File(), kToolsAt);
        EXPECT_LT(before.cx, size.cx) << points;
        EXPECT_EQ(
            std::max<long>(TextSize(L"Thanh &công cụ", points).cy, GetSystemMetrics(SM_CYMENU)),
            size.cy)
            << points;
        const auto canvas = Paint(host.File(), kToolsAt, 0, 400, size.cy);
        EXPECT_LT(0, canvas->Count(canvas->Columns(kTextLeft, 400), System(COLOR_MENUTEXT)))
            << points;
        before = size;
    }
}

TEST_F(MenuPaintingTest, SeparatorsAreMeasured) {
    EXPECT_EQ(GetSystemMetrics(SM_CYMENU), MeasureItem(host, host.File(), kFirstLine).cy);
    EXPECT_LT(TextSize(L"Hiển thị", 7).cx, MeasureItem(host, host.File(), kViewTitle).cx);
}

// --- texts ---

TEST_F(MenuPaintingTest, NormalItem) {
    const auto canvas = Paint(kExitAt);
    for (const int x : {0, kWidth - 1})
        for (const int y : {0, kHeight - 1})
            EXPECT_EQ(System(COLOR_MENU), canvas->At(x, y));
    EXPECT_EQ(0, canvas->Count(System(COLOR_HIGHLIGHT)));
    EXPECT_LT(0, canvas->Count(RestOfItem(), System(COLOR_MENUTEXT)));
    const RECT images = ImageColumn();
    EXPECT_EQ(kImageColumn * kHeight, canvas->Count(images, System(COLOR_MENU))) << "no image";
}

TEST_F(MenuPaintingTest, SelectedItemIsFilledAllOver) {
    const auto canvas = Paint(kExitAt, ODS_SELECTED);
    for (const int x : {0, kWidth - 1})
        for (const int y : {0, kHeight - 1})
            EXPECT_EQ(System(COLOR_HIGHLIGHT), canvas->At(x, y));
    EXPECT_LT(0, canvas->Count(System(COLOR_HIGHLIGHTTEXT)));
    EXPECT_EQ(0, canvas->Count(System(COLOR_MENU)));
}

TEST_F(MenuPaintingTest, SelectionLeavesTheImageColumnWithoutFullSelect) {
    Set(&ICoolMenu::FullSelect, false);
    const auto canvas = Paint(kExitAt, ODS_SELECTED);
    EXPECT_EQ(0, canvas->Count(ImageColumn(), System(COLOR_HIGHLIGHT)));
    EXPECT_EQ(System(COLOR_HIGHLIGHT), canvas->At(kImageColumn + 1, 0));
    EXPECT_EQ(System(COLOR_HIGHLIGHT), canvas->At(kWidth - 1, kHeight - 1));
}

TEST_F(MenuPaintingTest, DisabledTextIsGray) {
    const auto canvas = Paint(kExitAt, ODS_GRAYED | ODS_DISABLED);
    EXPECT_LT(0, canvas->Count(System(COLOR_GRAYTEXT)));
    EXPECT_EQ(0, canvas->Count(System(COLOR_MENUTEXT)));
    const auto selected = Paint(kExitAt, ODS_GRAYED | ODS_SELECTED);
    EXPECT_EQ(System(COLOR_HIGHLIGHT), selected->At(0, 0));
    EXPECT_LT(0, selected->Count(System(COLOR_GRAYTEXT)));
}

TEST_F(MenuPaintingTest, HostsColoursAreUsed) {
    Set(&ICoolMenu::ForeColor, RGB(160, 0, 0));
    Set(&ICoolMenu::SelectColor, RGB(0, 90, 0));
    EXPECT_LT(0, Paint(kExitAt)->Count(RGB(160, 0, 0)));
    const auto selected = Paint(kExitAt, ODS_SELECTED);
    EXPECT_EQ(RGB(0, 90, 0), selected->At(0, 0));
    EXPECT_LT(0, selected->Count(System(COLOR_HIGHLIGHTTEXT)));
    EXPECT_EQ(0, Paint(kExitAt, ODS_GRAYED)->Count(RGB(160, 0, 0)));
    Set(&ICoolMenu::SelectColor, static_cast<long>(0x80000000 | COLOR_WINDOWTEXT));
    EXPECT_EQ(System(COLOR_WINDOWTEXT), Paint(kExitAt, ODS_SELECTED)->At(0, 0))
        << "the number of a system colour";
}

TEST_F(MenuPaintingTest, ShortcutsBeginAtOneColumn) {
    // The leftmost pixel right of the text's end, for both items.
    const auto left = [&](UINT position) {
        const auto canvas = Paint(position);
        int found = kWidth;
        // From the right: skip the shortcut, stop at the gap before it.
        int empty = 0;
        for (int x = kWidth - 20; x > kTextLeft && empty < 12; --x) {
            const bool ink =
                canvas->Count(canvas->Columns(x, x + 1), System(COLOR_MENU)) < canvas->Height();
            if (ink)
                found = x;
            empty = ink || found == kWidth ? 0 : empty + 1;
        }
        return found;
    };
    EXPECT_NEAR(left(kSaveAt), left(kPrintAt), 1);
    EXPECT_LT(kWidth / 3, left(kSaveAt));
}

TEST_F(MenuPaintingTest, DefaultItemIsBold) {
    const auto ink = [&](const Canvas& canvas) {
        return canvas.Count(RestOfItem(),
                            [](COLORREF color) { return color != System(COLOR_MENU); });
    };
    EXPECT_LT(ink(*Paint(kExitAt)), ink(*Paint(kExitAt, ODS_DEFAULT)));
    const auto bold = ink(*Paint(kOpenAt));
    SetMenuDefaultItem(host.File(), static_cast<UINT>(-1), FALSE);
    EXPECT_LT(ink(*Paint(kOpenAt)), bold) << "though the platform did not say it";
}

TEST_F(MenuPaintingTest, MnemonicsAreUnderlinedUnlessTheSystemHidesThem) {
    const auto shown = Paint(kExitAt), hidden = Paint(kExitAt, ODS_NOACCEL);
    EXPECT_FALSE(*shown == *hidden);
    EXPECT_TRUE(*hidden == *Paint(kExitAt, ODS_NOACCEL));
}

// --- marks ---

TEST_F(MenuPaintingTest, CheckedItemHasABoxInWindowColours) {
    const auto canvas = Paint(kGridAt, ODS_CHECKED);
    EXPECT_LT(30, canvas->Count(ImageColumn(), System(COLOR_WINDOW)));
    EXPECT_LT(30, canvas->Count(ImageColumn(), System(COLOR_WINDOWTEXT)));
    EXPECT_EQ(0, canvas->Count(RestOfItem(), System(COLOR_WINDOW)));
}

TEST_F(MenuPaintingTest, UncheckedCheckItemHasAnEmptyBox) {
    const auto empty = Paint(kSquaresAt), full = Paint(kSquaresAt, ODS_CHECKED);
    EXPECT_LT(full->Count(ImageColumn(), System(COLOR_WINDOW)),
              empty->Count(ImageColumn(), System(COLOR_WINDOW)));
    EXPECT_EQ(0, Paint(kExitAt)->Count(ImageColumn(), System(COLOR_WINDOW))) << "no check item";
}

TEST_F(MenuPaintingTest, PlainMarksHaveNoBox) {
    Set(&ICoolMenu::ComplexChecks, false);
    const auto canvas = Paint(kGridAt, ODS_CHECKED);
    EXPECT_EQ(0, canvas->Count(ImageColumn(), System(COLOR_WINDOW)));
    EXPECT_LT(5, canvas->Count(ImageColumn(), System(COLOR_MENUTEXT)));
    const auto selected = Paint(kGridAt, ODS_CHECKED | ODS_SELECTED);
    EXPECT_LT(5, selected->Count(ImageColumn(), System(COLOR_HIGHLIGHTTEXT)));
    const auto unchecked = Paint(kGridAt);
    EXPECT_EQ(kImageColumn * kHeight, unchecked->Count(ImageColumn(), System(COLOR_MENU)));
}

TEST_F(MenuPaintingTest, RadioMarkIsRound) {
    const auto radio = Paint(kLargeAt, ODS_CHECKED), check = Paint(kGridAt, ODS_CHECKED);
    // The box is 13 pixels in the middle of the column: its corner.
    EXPECT_EQ(System(COLOR_WINDOWTEXT), check->At(3, 4));
    EXPECT_EQ(System(COLOR_MENU), radio->At(3, 4));
    EXPECT_LT(30, radio->Count(ImageColumn(), System(COLOR_WINDOW)));
    const auto empty = Paint(kSmallAt);
    EXPECT_LT(radio->Count(ImageColumn(), System(COLOR_WINDOW)),
              empty->Count(ImageColumn(), System(COLOR_WINDOW)));
}

TEST_F(MenuPaintingTest, DisabledMarkIsGray) {
    const auto canvas = Paint(kGridAt, ODS_CHECKED | ODS_GRAYED);
    EXPECT_LT(10, canvas->Count(ImageColumn(), System(COLOR_GRAYTEXT)));
    EXPECT_EQ(0, canvas->Count(ImageColumn(), System(COLOR_WINDOWTEXT)));
}

// --- pictures ---

TEST_F(MenuPaintingTest, PictureStandsInTheMiddleOfItsColumn) {
    const auto canvas = Paint(kOpenAt);
    // The folder's own lines begin at (1,3) of 16: at (2,3) in the item.
    EXPECT_LT(80, canvas->Count({2, 3, 18, 19}, kFolder));
    EXPECT_EQ(canvas->Count(kFolder), canvas->Count({2, 3, 18, 19}, kFolder));
    EXPECT_EQ(System(COLOR_MENU), canvas->At(2, 3)) << "its ground is transparent";
    EXPECT_EQ(System(COLOR_HIGHLIGHT), Paint(kOpenAt, ODS_SELECTED)->At(2, 3));
}

TEST_F(MenuPaintingTest, DisabledPictureFades) {
    const auto color = Paint(kPrintAt, ODS_GRAYED);
    EXPECT_EQ(0, color->Count(ImageColumn(), RGB(60, 190, 90)));
    EXPECT_LT(0, color->Count(ImageColumn(), [](COLORREF pixel) { return !IsGray(pixel); }))
        << "a trace of colour";
    Set(&ICoolMenu::ColorEmbossed, false);
    const auto gray = Paint(kPrintAt, ODS_GRAYED);
    EXPECT_LT(
        20, gray->Count(ImageColumn(), [](COLORREF pixel) { return pixel != System(COLOR_MENU); }));
    EXPECT_EQ(0, gray->Count(ImageColumn(), [](COLORREF pixel) { return !IsGray(pixel); }));
    EXPECT_LT(0, Paint(kPrintAt)->Count(ImageColumn(), kPaper)) << "enabled it is itself";
}

TEST_F(MenuPaintingTest, CheckedPictureIsSunkenAndHasAMarkOfItsOwn) {
    const auto plain = Paint(kToolsAt), checked = Paint(kToolsAt, ODS_CHECKED);
    const COLORREF metal = RGB(90, 100, 110);
    EXPECT_LT(0, checked->Count(ImageColumn(), metal)) << "the picture is still seen";
    // The frame: 20 pixels square in the middle of 22.
    EXPECT_EQ(System(COLOR_BTNSHADOW), checked->At(0, 1));
    EXPECT_EQ(System(COLOR_MENU), plain->At(0, 1));
    // The mark on a ground of its own in the lower right corner.
    const RECT corner = {10, 11, 20, 21};
    EXPECT_LT(10, checked->Count(corner, System(COLOR_WINDOW)));
    EXPECT_LT(10, checked->Count(corner, System(COLOR_WINDOWTEXT)));
    const auto selected = Paint(kToolsAt, ODS_CHECKED | ODS_SELECTED);
    EXPECT_LT(10, selected->Count(corner, System(COLOR_WINDOWTEXT)));
}

TEST_F(MenuPaintingTest, SelectedPictureIsRaisedWithoutFullSelect) {
    Set(&ICoolMenu::FullSelect, false);
    EXPECT_EQ(System(COLOR_3DHILIGHT), Paint(kOpenAt, ODS_SELECTED)->At(0, 1));
    EXPECT_EQ(System(COLOR_MENU), Paint(kOpenAt)->At(0, 1));
    EXPECT_EQ(System(COLOR_MENU), Paint(kPrintAt, ODS_SELECTED | ODS_GRAYED)->At(0, 1));
}

TEST_F(MenuPaintingTest, SelectedPictureIsRaisedWithFullSelectToo) {
    const auto canvas = Paint(kOpenAt, ODS_SELECTED);
    EXPECT_EQ(System(COLOR_3DHILIGHT), canvas->At(0, 1));
    EXPECT_EQ(System(COLOR_BTNSHADOW), canvas->At(kImageColumn - 1, kHeight - 2));
    EXPECT_EQ(System(COLOR_HIGHLIGHT), canvas->At(kImageColumn + 1, 1));
    EXPECT_EQ(System(COLOR_HIGHLIGHT), Paint(kPrintAt, ODS_SELECTED | ODS_GRAYED)->At(0, 1));
}

TEST(MenuPictures, ObjectWithAnImageListIsAskedForIt) {
    // An object of its own kind with the one property that is used.
    class ListObject : public IDispatch {
    public:
        explicit ListObject(HIMAGELIST list) : list(list) {}
        STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
            *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
            return *object ? S_OK : E_NOINTERFACE;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
        STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references); }
        STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
        STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
        STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
            *ids = 7;
            return lstrcmpiW(names[0], L"hImageList") == 0 ? S_OK : DISP_E_UNKNOWNNAME;
        }
        STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                            EXCEPINFO*, UINT*) override {
            if (id != 7 || !(flags & DISPATCH_PROPERTYGET))
                return DISP_E_MEMBERNOTFOUND;
            result->vt = sizeof(void*) == 8 ? VT_I8 : VT_I4;
            result->llVal = reinterpret_cast<LONG_PTR>(list);
            return S_OK;
        }
        HIMAGELIST list;
        int references = 1;
    };
    const Pictures pictures;
    const MenuHost host;
    ListObject object(nullptr);
    {
        const InstalledMenu menu(host, InstalledMenu::Missing(),
                                 _variant_t(static_cast<IDispatch*>(&object)));
        EXPECT_LT(1, object.references);
        const Canvas before(kWidth, kHeight);
        PaintItem(host, host.File(), kOpenAt, 0, before);
        EXPECT_EQ(0, before.Count(kFolder)) << "an image list that is not made yet";
        object.list = pictures.List();
        const Canvas canvas(kWidth, kHeight);
        PaintItem(host, host.File(), kOpenAt, 0, canvas);
        EXPECT_LT(80, canvas.Count(kFolder));
    }
    EXPECT_EQ(1, object.references);
}

TEST(MenuPictures, WrongNumberIsNoImageList) {
    const MenuHost host;
    for (const long number : {0L, 1L, -1L, 0x1234L}) {
        const InstalledMenu menu(host, InstalledMenu::Missing(), _variant_t(number));
        const Canvas canvas(kWidth, kHeight);
        PaintItem(host, host.File(), kOpenAt, 0, canvas);
        EXPECT_EQ(0, canvas.Count(Canvas::kUnpainted));
    }
}

// --- separators and arrows ---

TEST_F(MenuPaintingTest, SeparatorIsALineInTheMiddle) {
    const auto canvas = Paint(kFirstLine);
    const int line = kHeight / 2 - 1;
    for (const int x : {0, kWidth / 2, kWidth - 1}) {
        EXPECT_EQ(System(COLOR_BTNSHADOW), canvas->At(x, line));
        EXPECT_EQ(System(COLOR_3DHILIGHT), canvas->At(x, line + 1));
    }
    EXPECT_EQ(kWidth * (kHeight - 2), canvas->Count(System(COLOR_MENU)));
    EXPECT_TRUE(*canvas == *Paint(kFirstLine, ODS_SELECTED | ODS_GRAYED)) << "never selected";
}

TEST_F(MenuPaintingTest, SeparatorShowsItsCaptionEmbossedInTheMiddle) {
    const auto canvas = Paint(kViewTitle);
    const int line = kHeight / 2 - 1;
    EXPECT_EQ(System(COLOR_BTNSHADOW), canvas->At(0, line));
    EXPECT_EQ(System(COLOR_BTNSHADOW), canvas->At(kWidth - 1, line));
    const RECT middle = {kWidth / 2 - 30, 0, kWidth / 2 + 30, kHeight};
    EXPECT_LT(20, canvas->Count(middle, System(COLOR_BTNSHADOW)));
    EXPECT_LT(20, canvas->Count(middle, System(COLOR_3DLIGHT)));
    int gap = 0;
    for (int x = 0; x < kWidth; ++x)
        gap += canvas->Count(canvas->Columns(x, x + 1), System(COLOR_MENU)) == kHeight;
    EXPECT_LT(2, gap) << "the line keeps away from the caption";
}

TEST_F(MenuPaintingTest, SubmenuHasAnArrowAtItsEnd) {
    const auto canvas = Paint(kRecentAt);
    const RECT end = canvas->Columns(kWidth - 14, kWidth);
    EXPECT_LT(5, canvas->Count(end, System(COLOR_MENUTEXT)));
    EXPECT_EQ(0,
              Paint(kExitAt)->Count(canvas->Columns(kWidth - 14, kWidth), System(COLOR_MENUTEXT)));
    EXPECT_LT(5, Paint(kRecentAt, ODS_SELECTED)->Count(end, System(COLOR_HIGHLIGHTTEXT)));
}

TEST_F(MenuPaintingTest, PlatformCannotDrawOverTheItem) {
    const Canvas canvas(kWidth, kHeight);
    SetTextColor(canvas.Dc(), RGB(9, 8, 7));
    const HGDIOBJ font = GetCurrentObject(canvas.Dc(), OBJ_FONT);
    PaintItem(host, host.File(), kRecentAt, 0, canvas);
    EXPECT_FALSE(PtVisible(canvas.Dc(), kWidth - 5, kHeight / 2));
    EXPECT_FALSE(PtVisible(canvas.Dc(), 0, 0));
    EXPECT_EQ(RGB(9, 8, 7), GetTextColor(canvas.Dc())) << "else the context is as it was";
    EXPECT_EQ(font, GetCurrentObject(canvas.Dc(), OBJ_FONT));
}

// --- right to left ---

TEST_F(MenuPaintingTest, RightToLeftIsMirrored) {
    Set(&ICoolMenu::RightToLeft, true);
    const auto picture = Paint(kOpenAt);
    EXPECT_LT(80, picture->Count(picture->Columns(kWidth - 18, kWidth - 2), kFolder));
    EXPECT_EQ(0, picture->Count(picture->Columns(0, kWidth / 2), kFolder));
    const auto submenu = Paint(kRecentAt);
    EXPECT_LT(5, submenu->Count(submenu->Columns(0, 14), System(COLOR_MENUTEXT)));
    EXPECT_EQ(0, submenu->Count(submenu->Columns(kWidth - 14, kWidth), System(COLOR_MENUTEXT)));
    const auto text = Paint(kExitAt);
    EXPECT_LT(
        0, text->Count(text->Columns(kWidth / 2, kWidth - kImageColumn), System(COLOR_MENUTEXT)));
    const auto mark = Paint(kGridAt, ODS_CHECKED);
    EXPECT_LT(30, mark->Count(mark->Columns(kWidth - kImageColumn, kWidth), System(COLOR_WINDOW)));
    Set(&ICoolMenu::FullSelect, false);
    const auto selected = Paint(kExitAt, ODS_SELECTED);
    EXPECT_EQ(System(COLOR_MENU), selected->At(kWidth - 1, 0));
    EXPECT_EQ(System(COLOR_HIGHLIGHT), selected->At(0, 0));
}

// --- the menu bar ---

TEST_F(MenuPaintingTest, MenuBarItem) {
    BOOL flat = FALSE;
    SystemParametersInfoW(SPI_GETFLATMENU, 0, &flat, 0);
    const COLORREF ground = System(flat ? COLOR_MENUBAR : COLOR_MENU);
    const auto normal = Paint(host.Bar(), 0, 0, 60, 20);
    EXPECT_EQ(ground, normal->At(0, 0));
    EXPECT_LT(0, normal->Count(System(COLOR_MENUTEXT)));
    const auto open = Paint(host.Bar(), 0, ODS_SELECTED, 60, 20);
    EXPECT_EQ(System(COLOR_HIGHLIGHT), open->At(0, 0));
    const auto hovered = Paint(host.Bar(), 0, ODS_HOTLIGHT, 60, 20);
    EXPECT_EQ(System(COLOR_3DHILIGHT), hovered->At(0, 0));
    EXPECT_EQ(System(COLOR_BTNSHADOW), hovered->At(59, 10));
    const auto disabled = Paint(host.Bar(), 0, ODS_HOTLIGHT | ODS_GRAYED, 60, 20);
    EXPECT_EQ(ground, disabled->At(0, 0)) << "what cannot be opened does not light up";
}

TEST_F(MenuPaintingTest, MenuBarOfAnInactiveWindowKeepsItsColour) {
    EXPECT_TRUE(*Paint(host.Bar(), 0, 0, 60, 20) == *Paint(host.Bar(), 0, ODS_INACTIVE, 60, 20));
    Set(&ICoolMenu::ForeColor, RGB(160, 0, 0));
    const auto inactive = Paint(host.Bar(), 0, ODS_INACTIVE, 60, 20);
    EXPECT_LT(0, inactive->Count(RGB(160, 0, 0)));
    EXPECT_EQ(0, inactive->Count(System(COLOR_GRAYTEXT)));
}

TEST_F(MenuPaintingTest, HighFontIsMadeToFitTheMenuBar) {
    Set(&ICoolMenu::FontSize, 30);
    const auto canvas = Paint(host.Bar(), 0, 0, 120, 20);
    const auto ink = [](COLORREF color) { return color != System(COLOR_MENUBAR); };
    EXPECT_EQ(0, canvas->Count({0, 0, 120, 1}, ink)) << "not cut off above";
    EXPECT_LT(0, canvas->Count(canvas->All(), ink));
    EXPECT_EQ(0, canvas->Count({0, 19, 120, 20}, ink)) << "nor below";
}

// --- colours of the system ---

TEST_F(MenuPaintingTest, HighContrastSchemeIsFollowedUnlessTheHostSetColours) {
    const Scheme dark{HighContrastColors()};
    const auto normal = Paint(kExitAt);
    EXPECT_EQ(RGB(0, 0, 0), normal->At(0, 0));
    EXPECT_LT(0, normal->Count(RGB(255, 255, 255))) << "not black on black";
    const auto selected = Paint(kExitAt, ODS_SELECTED);
    EXPECT_EQ(RGB(0, 255, 0), selected->At(0, 0)) << "the highlight of now, not of the start";
    EXPECT_LT(0, selected->Count(RGB(0, 0, 0)));
    EXPECT_LT(0, Paint(kExitAt, ODS_GRAYED)->Count(RGB(0, 255, 255)));
    EXPECT_LT(30, Paint(kGridAt, ODS_CHECKED)->Count(ImageColumn(), RGB(255, 255, 255)));
    EXPECT_LT(0, Paint(host.Bar(), 0, 0, 60, 20)->Count(RGB(255, 255, 255)));
    Set(&ICoolMenu::ForeColor, RGB(255, 255, 0));
    EXPECT_LT(0, Paint(kExitAt)->Count(RGB(255, 255, 0)));
}

} // namespace
} // namespace vndesk::test
