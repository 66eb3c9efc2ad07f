// SPDX-License-Identifier: MIT
// The message box as hosts see it: through the registered class, with real keys.
#include "support/forms/host.h"

#include <algorithm>

#include "support/keys.h"
#include "support/late_bound.h"
#include "support/screenshot.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

HWND Box() {
    return WaitForForm(L"MessageBox");
}

// Presses a button with the mouse.
std::function<void()> Clicking(const wchar_t* button) {
    return [button] { ClickWindow(Control(Box(), button)); };
}

std::function<void()> Pressing(WORD key, unsigned modifiers = kNoModifier) {
    return [key, modifiers] {
        const HWND box = Box();
        WaitForFocus(box, L"Cmd1");
        PressKey(key, modifiers);
    };
}

std::function<void()> Typing(const wchar_t* text) {
    return [text] {
        const HWND box = Box();
        WaitForFocus(box, L"Cmd1");
        TypeText(text);
    };
}

RECT RectIn(HWND form, const wchar_t* control) {
    RECT rect;
    GetWindowRect(Control(form, control), &rect);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

int ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

double Twips(int pixels) {
    return pixels * 1440.0 / ScreenDpi();
}

struct SetCase {
    const char* name;
    long buttons;
    const wchar_t* button;
    const wchar_t* caption;
    const wchar_t* result;
};

class MessageBoxAnswer : public testing::TestWithParam<SetCase> {};

TEST_P(MessageBoxAnswer, HasItsCaptionAndGivesItsResult) {
    const SetCase& wanted = GetParam();
    std::wstring caption;
    const std::wstring pressed = PlayMessage({.buttons = wanted.buttons}, [&] {
        caption = TextOf(Box(), wanted.button);
        ClickWindow(Control(Box(), wanted.button));
    });
    EXPECT_EQ(wanted.caption, caption);
    EXPECT_EQ(wanted.result, pressed);
}

INSTANTIATE_TEST_SUITE_P(
    EverySet, MessageBoxAnswer,
    testing::Values(
        SetCase{"OkOnlyOk", vbOKOnly, L"Cmd1", L"Đồ&ng ý", L"1"},
        SetCase{"OkCancelOk", vbOKCancel, L"Cmd1", L"Đồ&ng ý", L"1"},
        SetCase{"OkCancelCancel", vbOKCancel, L"Cmd2", L"&Bỏ qua", L"2"},
        SetCase{"AbortRetryIgnoreAbort", vbAbortRetryIgnore, L"Cmd1", L"Bỏ &dở", L"3"},
        SetCase{"AbortRetryIgnoreRetry", vbAbortRetryIgnore, L"Cmd2", L"&Thử lại", L"4"},
        SetCase{"AbortRetryIgnoreIgnore", vbAbortRetryIgnore, L"Cmd3", L"&Bác bỏ", L"5"},
        SetCase{"YesNoCancelYes", vbYesNoCancel, L"Cmd1", L"&Có", L"6"},
        SetCase{"YesNoCancelNo", vbYesNoCancel, L"Cmd2", L"&Không", L"0"},
        SetCase{"YesNoCancelCancel", vbYesNoCancel, L"Cmd3", L"&Bỏ qua", L"2"},
        SetCase{"YesNoYes", vbYesNo, L"Cmd1", L"&Có", L"6"},
        SetCase{"YesNoNo", vbYesNo, L"Cmd2", L"&Không", L"0"},
        SetCase{"RetryCancelRetry", vbRetryCancel, L"Cmd1", L"&Thử lại", L"4"},
        SetCase{"RetryCancelCancel", vbRetryCancel, L"Cmd2", L"&Bỏ qua", L"2"}),
    [](const auto& info) { return info.param.name; });

TEST(MsgBox, ShowsOnlyTheButtonsOfItsSet) {
    struct {
        long buttons;
        bool second, third;
    } const sets[] = {{vbOKOnly, false, false},         {vbOKCancel, true, false},
                      {vbAbortRetryIgnore, true, true}, {vbYesNoCancel, true, true},
                      {vbYesNo, true, false},           {vbRetryCancel, true, false}};
    for (const auto& set : sets)
        PlayMessage({.buttons = set.buttons}, [&] {
            EXPECT_TRUE(IsShown(Box(), L"Cmd1")) << set.buttons;
            EXPECT_EQ(set.second, IsShown(Box(), L"Cmd2")) << set.buttons;
            EXPECT_EQ(set.third, IsShown(Box(), L"Cmd3")) << set.buttons;
            ClickWindow(Control(Box(), L"Cmd1"));
        });
}

TEST(MsgBox, EmptyTitleShowsNoticeAndIsReplacedInTheCallersVariable) {
    std::wstring title;
    std::wstring after;
    PlayMessage(
        {.title = L""},
        [&] {
            title = TextOf(Box(), L"label4");
            ClickWindow(Control(Box(), L"Cmd1"));
        },
        &after);
    EXPECT_EQ(L"Thông báo", title);
    EXPECT_EQ(L"Th«ng b¸o", after);
}

TEST(MsgBox, TitleAndMessageAreShownInUnicode) {
    std::wstring title;
    std::wstring text;
    PlayMessage({.text = L"MËt khÈu kh«ng hîp lÖ", .title = L"Ng\u00ADêi sö dông"}, [&] {
        title = TextOf(Box(), L"label4");
        text = TextOf(Box(), L"Message");
        ClickWindow(Control(Box(), L"Cmd1"));
    });
    EXPECT_EQ(L"Người sử dụng", title);
    EXPECT_EQ(L"Mật khẩu không hợp lệ", text);
}

TEST(MsgBox, AltF4ReturnsNothing) {
    EXPECT_EQ(L"", PlayMessage({.buttons = vbYesNo}, Pressing(VK_F4, kAlt)));
}

TEST(MsgBox, TypedCPressesYes) {
    EXPECT_EQ(L"6", PlayMessage({.buttons = vbYesNo}, Typing(L"c")));
}

TEST(MsgBox, TypedKPressesNo) {
    EXPECT_EQ(L"0", PlayMessage({.buttons = vbYesNo}, Typing(L"k")));
}

TEST(MsgBox, AltLetterPressesTheButton) {
    EXPECT_EQ(L"4", PlayMessage({.buttons = vbAbortRetryIgnore}, Pressing('T', kAlt)));
}

TEST(MsgBox, OtherLettersLeaveTheBoxOpen) {
    EXPECT_EQ(L"6", PlayMessage({.buttons = vbYesNo}, [] {
                  const HWND box = Box();
                  WaitForFocus(box, L"Cmd1");
                  TypeText(L"x");
                  Sleep(300);
                  EXPECT_TRUE(IsWindow(box));
                  TypeText(L"c");
              }));
}

TEST(MsgBox, EnterPressesTheFocusedButton) {
    EXPECT_EQ(L"1", PlayMessage({.buttons = vbOKCancel}, Pressing(VK_RETURN)));
    EXPECT_EQ(L"2", PlayMessage({.buttons = vbOKCancel}, [] {
                  const HWND box = Box();
                  WaitForFocus(box, L"Cmd1");
                  PressKey(VK_TAB);
                  WaitForFocus(box, L"Cmd2");
                  PressKey(VK_RETURN);
              }));
}

TEST(MsgBox, SpacePressesTheFocusedButton) {
    EXPECT_EQ(L"6", PlayMessage({.buttons = vbYesNo}, Pressing(VK_SPACE)));
}

TEST(MsgBox, EscapePressesCancelWhereThereIsOne) {
    EXPECT_EQ(L"2", PlayMessage({.buttons = vbOKCancel}, Pressing(VK_ESCAPE)));
    EXPECT_EQ(L"2", PlayMessage({.buttons = vbYesNoCancel}, Pressing(VK_ESCAPE)));
    EXPECT_EQ(L"1", PlayMessage({.buttons = vbOKOnly}, Pressing(VK_ESCAPE)));
}

TEST(MsgBox, EscapeIsNoAnswerToYesOrNo) {
    EXPECT_EQ(L"0", PlayMessage({.buttons = vbYesNo}, [] {
                  const HWND box = Box();
                  WaitForFocus(box, L"Cmd1");
                  PressKey(VK_ESCAPE);
                  Sleep(300);
                  EXPECT_TRUE(IsWindow(box));
                  ClickWindow(Control(box, L"Cmd2"));
              }));
}

TEST(MsgBox, TabGoesFromLeftToRight) {
    PlayMessage({.buttons = vbAbortRetryIgnore}, [] {
        const HWND box = Box();
        for (const wchar_t* button : {L"Cmd1", L"Cmd2", L"Cmd3", L"Cmd1"}) {
            WaitForFocus(box, button);
            PressKey(VK_TAB);
        }
        ClickWindow(Control(box, L"Cmd1"));
    });
}

HICON IconIn(HWND form, const wchar_t* image) {
    return reinterpret_cast<HICON>(SendMessageW(Control(form, image), STM_GETICON, 0, 0));
}

TEST(MsgBox, EachIconHasItsOwnPicture) {
    struct {
        long icon;
        const wchar_t* source;
    } const icons[] = {{vbCritical, L"stop"},
                       {vbQuestion, L"q"},
                       {vbExclamation, L"Ex"},
                       {vbInformation, L"Info"}};
    std::vector<HICON> seen;
    for (const auto& icon : icons)
        PlayMessage({.icon = icon.icon}, [&] {
            EXPECT_NE(nullptr, IconIn(Box(), L"micon"));
            EXPECT_EQ(IconIn(Box(), icon.source), IconIn(Box(), L"micon")) << icon.icon;
            seen.push_back(IconIn(Box(), L"micon"));
            ClickWindow(Control(Box(), L"Cmd1"));
        });
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(seen.end(), std::unique(seen.begin(), seen.end())) << "two icons share a picture";
}

TEST(MsgBox, IconZeroKeepsTheDesignedPicture) {
    PlayMessage({.icon = 0}, [] {
        const HICON shown = IconIn(Box(), L"micon");
        EXPECT_NE(nullptr, shown);
        for (const wchar_t* source : {L"stop", L"q", L"Ex", L"Info"})
            EXPECT_NE(IconIn(Box(), source), shown);
        ClickWindow(Control(Box(), L"Cmd1"));
    });
}

TEST(MsgBox, UnknownButtonsKeepTheDesignedOnes) {
    for (const long buttons : {-1L, 6L}) {
        const std::wstring pressed = PlayMessage({.buttons = buttons}, [] {
            EXPECT_EQ(L"OK", TextOf(Box(), L"Cmd1"));
            EXPECT_FALSE(IsShown(Box(), L"Cmd2"));
            ClickWindow(Control(Box(), L"Cmd1"));
        });
        EXPECT_EQ(L"1", pressed);
    }
}

TEST(MsgBox, EscapePressesTheOnlyButtonOfUnknownButtons) {
    for (const long buttons : {-1L, 6L})
        EXPECT_EQ(L"1", PlayMessage({.buttons = buttons}, Pressing(VK_ESCAPE))) << buttons;
}

TEST(MsgBox, SizeAndButtonsFollowTheMessage) {
    for (const std::wstring& text :
         {std::wstring(L"Ng¾n"), std::wstring(90, L'x'), std::wstring(L"a\r\nb\r\nc\r\nd\r\ne")})
        for (const long buttons : {0L, 1L, 2L})
            PlayMessage({.text = text, .buttons = buttons}, [&] {
                const HWND box = Box();
                RECT outer;
                GetWindowRect(box, &outer);
                const RECT message = RectIn(box, L"Message");
                const RECT first = RectIn(box, L"Cmd1");
                const double width = Twips(outer.right - outer.left);
                const double button = Twips(first.right - first.left);
                constexpr double kPixel = 15;
                EXPECT_NEAR(width, Twips(message.right) + 100, 2 * kPixel);
                EXPECT_NEAR(Twips(first.top), Twips(message.bottom) + 150, kPixel);
                EXPECT_NEAR(Twips(outer.bottom - outer.top), Twips(first.bottom) + 150, kPixel);
                if (buttons == 0) {
                    EXPECT_NEAR(Twips(first.left), (width - button) / 2, kPixel);
                }
                if (buttons == 1) {
                    EXPECT_NEAR(Twips(first.left), (width - 2 * button) / 2 - 50, kPixel);
                    EXPECT_NEAR(Twips(RectIn(box, L"Cmd2").left), Twips(first.right) + 100, kPixel);
                }
                if (buttons == 2) {
                    EXPECT_NEAR(Twips(first.left), (width - 3 * button) / 2 - 50, kPixel);
                    EXPECT_NEAR(Twips(RectIn(box, L"Cmd2").left), Twips(first.right) + 50, kPixel);
                    EXPECT_NEAR(Twips(RectIn(box, L"Cmd3").left),
                                Twips(RectIn(box, L"Cmd2").right) + 50, kPixel);
                }
                ClickWindow(Control(box, L"Cmd1"));
            });
}

RECT BoxSize(const std::wstring& text) {
    RECT size = {};
    PlayMessage({.text = text}, [&] {
        GetWindowRect(Box(), &size);
        OffsetRect(&size, -size.left, -size.top);
        ClickWindow(Control(Box(), L"Cmd1"));
    });
    return size;
}

TEST(MsgBox, LongLineWidensAndManyLinesHeighten) {
    const RECT plain = BoxSize(L"Ng¾n");
    const RECT wide = BoxSize(std::wstring(90, L'x'));
    const RECT high = BoxSize(L"1\r\n2\r\n3\r\n4\r\n5\r\n6");
    EXPECT_GT(wide.right, plain.right + 100);
    EXPECT_EQ(plain.bottom, wide.bottom);
    EXPECT_GT(high.bottom, plain.bottom + 20);
    EXPECT_EQ(plain.right, high.right);
}

TEST(MsgBox, TextBeyondTheScreenKeepsTheButtonsInSight) {
    std::wstring many;
    for (int i = 0; i < 300; ++i)
        many += L"dßng\r\n";
    for (const std::wstring& text : {std::wstring(3000, L'x'), many})
        PlayMessage({.text = text}, [] {
            RECT box;
            GetWindowRect(Box(), &box);
            EXPECT_GE(box.left, 0);
            EXPECT_GE(box.top, 0);
            EXPECT_LE(box.right, GetSystemMetrics(SM_CXSCREEN));
            EXPECT_LE(box.bottom, GetSystemMetrics(SM_CYSCREEN));
            ClickWindow(Control(Box(), L"Cmd1"));
        });
}

TEST(MsgBox, StandsInTheMiddleOfTheScreen) {
    PlayMessage({.text = std::wstring(60, L'x')}, [] {
        RECT box;
        GetWindowRect(Box(), &box);
        EXPECT_NEAR(box.left + box.right, GetSystemMetrics(SM_CXSCREEN), 3);
        EXPECT_NEAR(box.top + box.bottom, GetSystemMetrics(SM_CYSCREEN), 3);
        ClickWindow(Control(Box(), L"Cmd1"));
    });
}

TEST(MsgBox, AmpersandInAMessageIsShown) {
    PlayMessage({.text = L"Thu & Chi"}, [] {
        const HWND label = Control(Box(), L"Message");
        EXPECT_EQ(L"Thu & Chi", TextOf(label));
        EXPECT_TRUE(GetWindowLongPtrW(label, GWL_STYLE) & SS_NOPREFIX);
        ClickWindow(Control(Box(), L"Cmd1"));
    });
}

TEST(MsgBox, RightToLeftMirrorsTheMessage) {
    for (const bool rightToLeft : {false, true})
        PlayMessage({.rightToLeft = rightToLeft}, [&] {
            const LONG_PTR label = GetWindowLongPtrW(Control(Box(), L"Message"), GWL_EXSTYLE);
            const LONG_PTR form = GetWindowLongPtrW(Box(), GWL_EXSTYLE);
            EXPECT_EQ(rightToLeft, (label & WS_EX_RTLREADING) != 0);
            EXPECT_EQ(rightToLeft, (form & WS_EX_RTLREADING) != 0);
            ClickWindow(Control(Box(), L"Cmd1"));
        });
}

TEST(MsgBox, AnyNumberButZeroIsRightToLeftFromLateBoundHostsOnly) {
    bool rightToLeft = false;
    const auto look = [&] {
        rightToLeft =
            (GetWindowLongPtrW(Control(Box(), L"Message"), GWL_EXSTYLE) & WS_EX_RTLREADING) != 0;
        ClickWindow(Control(Box(), L"Cmd1"));
    };
    DialogDriver late(look);
    LateBound::Create(L"VnDesk.clsLogon").Call(L"MgBox", {L"abc", 0L, L"t", 64L, 1L});
    late.Finish();
    EXPECT_TRUE(rightToLeft);
    _bstr_t text(L"abc"), title(L"t"), pressed;
    DialogDriver early(look);
    EXPECT_SUCCEEDED(CreateLogon()->MgBox(&text.GetBSTR(), vbOKOnly, &title.GetBSTR(), vbQuestion,
                                          VARIANT_BOOL{1}, pressed.GetAddress()));
    early.Finish();
    EXPECT_FALSE(rightToLeft);
}

// Drags what lies at a point of the box. On a busy machine a press may come before the box has been
// painted and a release may overtake the drag: then the button is let go and the drag begun anew.
bool DragBox(HWND box, POINT inBox, POINT by) {
    const auto place = [=] {
        RECT now = {};
        GetWindowRect(box, &now);
        return POINT{now.left, now.top};
    };
    const auto beingMoved = [=] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(GetWindowThreadProcessId(box, nullptr), &info) &&
               (info.flags & GUI_INMOVESIZE) != 0;
    };
    for (int attempt = 0; attempt < 10; ++attempt) {
        const POINT before = place();
        MoveMouseTo({before.x + inBox.x, before.y + inBox.y});
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        if (WaitUntil(beingMoved, 1000))
            SetCursorPos(before.x + inBox.x + by.x, before.y + inBox.y + by.y);
        const bool moved = WaitUntil(
            [&] {
                mouse_event(MOUSEEVENTF_MOVE, 0, 0, 0, 0);
                return place().x == before.x + by.x && place().y == before.y + by.y;
            },
            1000);
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        WaitUntil([&] { return !beingMoved(); });
        if (moved)
            return true;
    }
    return false;
}

TEST(MsgBox, TitleStripDragsTheBox) {
    for (const wchar_t* handle : {L"label4", L"Label5"})
        PlayMessage({}, [&] {
            const HWND box = Box();
            // The title lies on the strip: its right end is the strip alone.
            const bool strip = wcscmp(handle, L"Label5") == 0;
            const LONG x = strip ? RectIn(box, handle).right - 2 : 30;
            EXPECT_TRUE(DragBox(box, {x, 10}, {50, 30}))
                << "dragging by " << ToUtf8(handle) << " did not move the box";
            ClickWindow(Control(box, L"Cmd1"));
        });
}

TEST(MsgBox, StripHasTheActiveCaptionColour) {
    PlayMessage({}, [] {
        const HWND box = Box();
        RECT rect;
        GetWindowRect(box, &rect);
        Sleep(100);
        const HDC screen = GetDC(nullptr);
        const COLORREF seen = GetPixel(screen, rect.right - 6, rect.top + 4);
        ReleaseDC(nullptr, screen);
        EXPECT_EQ(GetSysColor(COLOR_ACTIVECAPTION), seen);
        ClickWindow(Control(box, L"Cmd1"));
    });
}

TEST(MsgBox, BorderLiesOnTheOutermostPixels) {
    PlayMessage({}, [] {
        const HWND box = Box();
        WaitForFocus(box, L"Cmd1");
        RECT rect;
        GetWindowRect(box, &rect);
        const LONG middle = (rect.left + rect.right) / 2;
        const LONG half = (rect.top + rect.bottom) / 2;
        const POINT edges[] = {{rect.left, half},
                               {rect.right - 1, half},
                               {middle, rect.top},
                               {middle, rect.bottom - 1}};
        const HDC screen = GetDC(nullptr);
        for (const POINT& edge : edges)
            EXPECT_TRUE(WaitUntil([&] {
                return GetPixel(screen, edge.x, edge.y) == GetSysColor(COLOR_ACTIVECAPTION);
            })) << edge.x - rect.left
                << "," << edge.y - rect.top;
        ReleaseDC(nullptr, screen);
        ClickWindow(Control(box, L"Cmd1"));
    });
}

TEST(MsgBox, WorksWithoutAnyConnection) {
    EXPECT_EQ(L"1", PlayMessage({.buttons = vbOKCancel}, Clicking(L"Cmd1")));
}

struct Picture {
    const wchar_t* file;
    Message message;
};

TEST(MsgBox, PicturesOfEverySetAndIcon) {
    const Picture pictures[] = {
        {L"message-ok", {L"§· l\u00ADu xong d÷ liÖu.", vbOKOnly, L"", vbInformation}},
        {L"message-ok-cancel", {L"B¹n cã muèn l\u00ADu l¹i kh«ng?", vbOKCancel, L"", vbQuestion}},
        {L"message-abort-retry-ignore",
         {L"Kh«ng ®äc ®\u00ADîc tÖp d÷ liÖu.", vbAbortRetryIgnore, L"", vbCritical}},
        {L"message-yes-no-cancel",
         {L"L\u00ADu thay ®æi tr\u00ADíc khi tho¸t?", vbYesNoCancel, L"", vbExclamation}},
        {L"message-yes-no",
         {L"B¹n ch¾c ch¾n xo¸ ng\u00ADêi sö dông nµy", vbYesNo, L"", vbQuestion}},
        {L"message-retry-cancel",
         {L"M¸y in ch\u00ADa s½n sµng.", vbRetryCancel, L"", vbExclamation}},
        {L"message-no-icon",
         {L"MËt khÈu hoÆc ng\u00ADêi sö dông kh«ng hîp lÖ ", vbOKOnly, L"Login", 0}},
        {L"message-long-line",
         {L"B¹n kh«ng thÓ xo¸ ng\u00ADêi sö dông cßn l¹i cuèi cïng cña ch\u00AD¬ng tr×nh, h·y thªm "
          L"mét ng\u00ADêi kh¸c tr\u00ADíc.",
          vbOKOnly, L"", vbExclamation}},
        {L"message-many-lines",
         {L"Kh«ng thÓ ghi d÷ liÖu vµo b¶ng:\r\n\r\n1. B¶ng ®ang ®\u00ADîc më bëi m¸y kh¸c.\r\n2. "
          L"Ng\u00ADêi sö dông kh«ng "
          L"cã quyÒn ghi.\r\n3. §Üa ®· ®Çy.",
          vbRetryCancel, L"", vbCritical}},
        {L"message-right-to-left",
         {L"Dßng thø nhÊt\r\nDßng thø hai dµi h¬n", vbYesNo, L"", vbQuestion, true}},
    };
    for (const Picture& picture : pictures)
        PlayMessage(picture.message, [&] {
            const HWND box = Box();
            WaitForFocus(box, L"Cmd1");
            Sleep(200);
            EXPECT_NE(L"", SaveWindow(box, picture.file));
            ClickWindow(Control(box, L"Cmd1"));
        });
}

} // namespace
} // namespace vndesk::test
