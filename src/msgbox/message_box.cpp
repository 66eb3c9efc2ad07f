// SPDX-License-Identifier: MIT
#include "msgbox/message_box.h"

#include <algorithm>
#include <iterator>

#include "comkit/base/module.h"
#include "forms/look/images.h"
#include "forms/window/form_of.h"
#include "msgbox/letter_key.h"
#include "msgbox/text/button_sets.h"
#include "msgbox/text/captions.h"
#include "msgbox/text/return_codes.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// The message is never smaller than this, so that the widest button set fits below it and the icon
// beside it.
constexpr TwipsRect kMessageRect = {840, 600, 2760, 360};
constexpr TwipsRect kIconRect = {180, 480, 480, 480};
constexpr double kStripHeight = 330;

// Controls that lie on top come first. The designed buttons are those of a box whose button number
// names no set.
constexpr ControlSpec kControls[] = {
    Label(L"Message", L"", kMessageRect, kAutoSize),
    Button(L"Cmd1", L"OK", {1302, 1110, 1095, 375}, kDefault | kCancel),
    Button(L"Cmd2", L"", {1302, 1110, 1095, 375}, kHidden),
    Button(L"Cmd3", L"", {1302, 1110, 1095, 375}, kHidden),
    Label(L"label4", L"", {10, 45, 3600, 240}, kEllipsis),
    Label(L"Label5", L"", {0, 0, 3700, kStripHeight}, kBehind),
    Image(L"micon", kIconRect),
    Image(L"stop", kIconRect, kHidden),
    Image(L"q", kIconRect, kHidden),
    Image(L"Ex", kIconRect, kHidden),
    Image(L"Info", kIconRect, kHidden),
};

constexpr FormSpec kForm = {
    .name = L"MessageBox",
    .client = {3700, 1635},
    .border = FormBorder::None,
    .titleOnly = true,
    .controls = kControls,
};

using Name = FormOf<kForm>::Name;

struct IconSource {
    long value;
    Name image;
    WORD systemIcon;
};

// The numbers are the OIC_ identifiers of winuser.h.
constexpr IconSource kIcons[] = {
    {kCritical, L"stop", 32513},
    {kQuestion, L"q", 32514},
    {kExclamation, L"Ex", 32515},
    {kInformation, L"Info", 32516},
};

constexpr Name kButtonNames[] = {L"Cmd1", L"Cmd2", L"Cmd3"};

class MessageForm final : public FormOf<kForm> {
public:
    Pressed RetValue = Pressed::None;

    void SetTexts(const std::wstring& message, const std::wstring& title) {
        FitInto(WorkArea());
        Get(L"Message").SetCaption(message);
        Get(L"label4").SetCaption(title);
        // Tools and screen readers ask the window for the title that the label shows.
        SetWindowTextW(Window(), Get(L"label4").Caption().c_str());
    }

    void SetReadingOrder(bool rightToLeft) {
        Get(L"Message").SetRightToLeft(rightToLeft);
        SetRightToLeft(rightToLeft);
    }

    void SetIcon(long icon) {
        for (const IconSource& source : kIcons)
            if (source.value == icon) {
                Get(source.image).SetIcon(SystemIcon(source.systemIcon));
                Get(L"micon").SetIcon(Get(source.image).Icon());
            }
    }

    // Gives the box the size of its text, with the buttons below it, and shows it in the middle: it
    // was centred before it had its size.
    void Arrange(long buttons) {
        const Control& message = Get(L"Message");
        const double width = message.Left() + message.Width() + 100;
        const double top = message.Top() + message.Height() + 150;
        if (const ButtonSet* set = FindButtonSet(buttons))
            SetAnswers(*set, width);
        for (const Name name : kButtonNames)
            Get(name).SetTop(top);
        Centre(width, top + Get(kButtonNames[0]).Height() + 150);
    }

protected:
    void OnLoad() override {
        RetValue = Pressed::None;
        const COLORREF strip = GetSysColor(COLOR_ACTIVECAPTION);
        Get(L"Label5").SetColors(strip, GetSysColor(COLOR_CAPTIONTEXT));
        Get(L"label4").SetColors(strip, GetSysColor(COLOR_CAPTIONTEXT));
        border_.reset(CreateSolidBrush(strip));
        LoadEmblem();
        Get(L"Cmd1").tag = L"OK";
        for (size_t i = 0; i < std::size(kButtonNames); ++i)
            Get(kButtonNames[i]).onClick = [this, i] { Answered(i); };
        for (const Name name : {Name(L"label4"), Name(L"Label5")})
            Get(name).onMouseDown = [this](int button) { Drag(button); };
    }

    void OnResize() override {
        Control& strip = Get(L"Label5");
        strip.Move({0, 0, Width(), strip.Height()});
        Control& title = Get(L"label4");
        const int space = static_cast<int>(strip.Height() - title.Height());
        title.Move({10, static_cast<double>(space / 2), strip.Width() - 50, title.Height()});
        Repaint(); // the border
    }

    // The border.
    void OnPaint(HDC dc) override {
        const double w = Width();
        const double h = Height();
        // 15 and 20 twips wide, up to the edge: at a high resolution that is more than a pixel.
        for (const TwipsRect& line : {TwipsRect{0, 0, w, 0}, TwipsRect{0, 0, 0, h},
                                      TwipsRect{w - 15, 0, 15, h}, TwipsRect{0, h - 20, w, 20}}) {
            RECT bar = ToPixels(line, Dpi());
            bar.right = std::max(bar.right, bar.left + 1);
            bar.bottom = std::max(bar.bottom, bar.top + 1);
            FillRect(dc, &bar, border_.get());
        }
    }

    bool OnKeyPress(wchar_t character) override { return PressByLetter(character); }

private:
    int IconSize() const { return ToPixels(kIconRect.width, Dpi()); }

    HICON SystemIcon(WORD number) const {
        return static_cast<HICON>(LoadImageW(nullptr, MAKEINTRESOURCEW(number), IMAGE_ICON,
                                             IconSize(), IconSize(), LR_SHARED));
    }

    void LoadEmblem() {
        emblem_.reset(
            static_cast<HICON>(LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(kImageEmblem),
                                          IMAGE_ICON, IconSize(), IconSize(), LR_DEFAULTCOLOR)));
        Get(L"micon").SetIcon(emblem_.get());
    }

    RECT WorkArea() const {
        RECT area;
        if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0))
            area = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        return area;
    }

    // A text wider or higher than the screen must not push the buttons off it.
    void FitInto(const RECT& area) {
        const Control& button = Get(L"Cmd1");
        Get(L"Message")
            .SetLargest(ToTwips(area.right - area.left, Dpi()) - kMessageRect.left - 100,
                        ToTwips(area.bottom - area.top, Dpi()) - kMessageRect.top -
                            button.Height() - 300);
    }

    void SetAnswers(const ButtonSet& set, double formWidth) {
        int count = 0;
        std::array<double, 3> widths = {};
        for (size_t i = 0; i < set.size(); ++i) {
            Control& button = Get(kButtonNames[i]);
            const bool shown = set[i].caption != nullptr;
            if (shown) {
                button.SetCaption(ToUncText(set[i].caption, kToUnicode));
                button.tag = set[i].tag;
                ++count;
            }
            // Escape answers with Cancel, and with the only answer where there is no choice.
            button.isCancel = shown && (button.tag == L"CAN" || &set == FindButtonSet(kOkOnly));
            button.SetVisible(shown);
            widths[i] = button.Width();
        }
        const auto lefts = ButtonLefts(count, formWidth, widths);
        for (int i = 0; i < count; ++i)
            Get(kButtonNames[i]).SetLeft(lefts[static_cast<size_t>(i)]);
    }

    void Answered(size_t index) {
        const std::wstring& tag = Get(kButtonNames[index]).tag;
        RetValue = static_cast<Pressed>(index == 0 ? GetReturn1(tag) : GetReturn(tag, tag));
        Unload();
    }

    void Drag(int button) {
        if (button != 1)
            return;
        ReleaseCapture();
        SendMessageW(Window(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
    }

    UniqueBrush border_;
    UniqueIcon emblem_;
};

} // namespace

Pressed ShowMsg(const std::wstring& message, long buttons, const std::wstring& title, long icon,
                bool rightToLeft) {
    return ShowUnicodeMsg(ToUncText(message, kToUnicode), buttons, ToUncText(title, kToUnicode),
                          icon, rightToLeft);
}

Pressed ShowUnicodeMsg(const std::wstring& message, long buttons, const std::wstring& title,
                       long icon, bool rightToLeft) {
    MessageForm form;
    form.Load();
    form.SetTexts(message, title);
    form.SetReadingOrder(rightToLeft);
    form.SetIcon(icon);
    form.Arrange(buttons);
    form.ShowModal();
    return form.RetValue;
}

} // namespace vndesk
