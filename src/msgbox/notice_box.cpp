// SPDX-License-Identifier: MIT
#include "msgbox/notice_box.h"

#include <algorithm>

#include "comkit/base/module.h"
#include "forms/look/device_context.h"
#include "forms/window/form_of.h"
#include "msgbox/clipboard.h"
#include "msgbox/letter_key.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "msgbox/text/notice_text.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr double kMargin = 240;
constexpr double kIconSize = 480;
constexpr double kTextBesideIcon = 960;
constexpr double kTextWidth = 5700; // at most
constexpr double kLeastWidth = 3600;
constexpr double kLine = 285;
constexpr double kButtonWidth = 1200; // at least
constexpr double kButtonHeight = 375;
constexpr double kBetweenButtons = 120;
constexpr double kAroundCaption = 360;
constexpr double kDetailsHeight = 1680;
constexpr double kDetailsWidth = 6300; // at least

// Where they stand is decided when their texts are known.
constexpr TwipsRect kAnywhere = {kMargin, kMargin, kButtonWidth, kButtonHeight};
constexpr ControlSpec kControls[] = {
    Image(L"Icon", {kMargin, kMargin, kIconSize, kIconSize}),
    Label(L"Heading", L"", {kMargin, kMargin, 300, kLine}, kAutoSize | kHidden),
    Label(L"Message", L"", {kMargin, kMargin, 300, kLine}, kAutoSize),
    CheckBox(L"Check", L"", {kMargin, kMargin, kTextWidth, kLine}, kHidden),
    Button(L"Cmd1", L"", kAnywhere, kHidden),
    Button(L"Cmd2", L"", kAnywhere, kHidden),
    Button(L"Cmd3", L"", kAnywhere, kHidden),
    Button(L"CmdDetails", texts::kMsgDetails, kAnywhere, kHidden),
    Label(L"LblDetails", texts::kMsgDetailsText, {kMargin, kMargin, kTextWidth, kLine}, kHidden),
    TextBox(L"TxtDetails", {kMargin, kMargin, kTextWidth, kDetailsHeight},
            kMultiLine | kReadOnly | kHidden),
};

constexpr FormSpec kForm = {
    .name = L"NoticeBox",
    .client = {kLeastWidth, 1635},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

constexpr COLORREF kHeadingColor = RGB(0, 51, 153);
constexpr UINT_PTR kSecond = 1;

// The numbers are the OIC_ identifiers of winuser.h.
WORD SystemIconOf(long icon) {
    switch (icon) {
    case kCritical:
        return 32513;
    case kQuestion:
        return 32514;
    case kExclamation:
        return 32515;
    case kInformation:
        return 32516;
    default:
        return 0;
    }
}

class NoticeForm final : public FormOf<kForm> {
public:
    explicit NoticeForm(Notice& notice)
        : notice_(notice), answers_(AnswersOf(notice.buttons)),
          default_(DefaultAmong(answers_, notice.defaultButton)),
          wayOut_(WayOutAmong(answers_, notice.cancelButton)), seconds_(notice.timeoutSeconds) {}

    NoticeAnswer answer = NoticeAnswer::None;

protected:
    void OnLoad() override {
        for (size_t i = 0; i < answers_.size(); ++i)
            Get(kButtons[i]).onClick = [this, i] { Close(answers_[i]); };
        Get(L"CmdDetails").onClick = [this] { ToggleDetails(); };
    }

    void OnPrepared() override {
        if (const WORD icon = SystemIconOf(notice_.icon)) {
            const int size = ToPixels(kIconSize, Dpi());
            Get(L"Icon").SetIcon(static_cast<HICON>(
                LoadImageW(nullptr, MAKEINTRESOURCEW(icon), IMAGE_ICON, size, size, LR_SHARED)));
            MessageBeep(static_cast<UINT>(notice_.icon));
        }
        SetTexts();
        SetButtons();
        Arrange();
        if (wayOut_ == NoticeAnswer::None)
            EnableMenuItem(GetSystemMenu(Window(), FALSE), SC_CLOSE, MF_GRAYED);
        if (seconds_ > 0)
            SetTimer(Window(), kSecond, 1000, nullptr);
    }

    const Control* FirstControl() override { return &ButtonOf(default_); }

    bool OnKeyPress(wchar_t character) override { return PressByLetter(character); }

    // Ctrl+C, unless the user has marked something in the details.
    bool OnKeyDown(const Control& control, WPARAM key) override {
        if (key != L'C' || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_MENU) < 0)
            return false;
        DWORD from = 0, to = 0;
        if (&control == &Get(L"TxtDetails"))
            SendMessageW(control.Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                         reinterpret_cast<LPARAM>(&to));
        if (from != to)
            return false;
        CopyToClipboard(Window(),
                        NoticeText(notice_.title, {notice_.heading, notice_.text, notice_.details},
                                   Captions()));
        return true;
    }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER && wParam == kSecond) {
            if (--seconds_ > 0)
                SetTitle();
            else
                Close(default_);
            return 0;
        }
        if (message == WM_CLOSE) {
            if (wayOut_ != NoticeAnswer::None)
                Close(wayOut_);
            return 0;
        }
        return Form::OnMessage(message, wParam, lParam);
    }

private:
    static constexpr Name kButtons[] = {L"Cmd1", L"Cmd2", L"Cmd3"};

    Control& ButtonOf(NoticeAnswer answer) {
        const auto place = std::ranges::find(answers_, answer) - answers_.begin();
        return Get(kButtons[place]);
    }

    std::wstring CaptionFor(NoticeAnswer answer) const {
        const std::wstring& own = notice_.captions[static_cast<size_t>(answer)];
        return own.empty() ? CaptionOf(answer) : own;
    }

    std::vector<std::wstring> Captions() const {
        std::vector<std::wstring> captions;
        for (const NoticeAnswer each : answers_)
            captions.push_back(CaptionFor(each));
        return captions;
    }

    void SetTitle() {
        std::wstring title = notice_.title;
        if (seconds_ > 0)
            title += L" (" + std::to_wstring(seconds_) + L")";
        SetWindowTextW(Window(), title.c_str());
    }

    void SetTexts() {
        SetTitle();
        // A text higher than the screen must not push the buttons off it.
        RECT area = WorkArea();
        const double mostHeight = ToTwips(area.bottom - area.top, Dpi()) - 2400;
        Control& heading = Get(L"Heading");
        heading.SetFont({kHouseFont, 11.5});
        heading.SetColors(GetSysColor(COLOR_BTNFACE), kHeadingColor);
        heading.SetLargest(kTextWidth, mostHeight / 3);
        heading.SetCaption(notice_.heading);
        heading.SetVisible(!notice_.heading.empty());
        Control& message = Get(L"Message");
        message.SetLargest(kTextWidth, mostHeight * 2 / 3);
        message.SetCaption(notice_.text);
        Control& check = Get(L"Check");
        check.SetCaption(notice_.checkText);
        check.SetVisible(!notice_.checkText.empty());
        SendMessageW(check.Window(), BM_SETCHECK, notice_.checked ? BST_CHECKED : BST_UNCHECKED, 0);
        Get(L"CmdDetails").SetVisible(!notice_.details.empty());
        Get(L"TxtDetails").SetText(WithLineBreaks(notice_.details));
    }

    void SetButtons() {
        for (size_t i = 0; i < answers_.size(); ++i) {
            Control& button = Get(kButtons[i]);
            button.SetCaption(CaptionFor(answers_[i]));
            button.SetWidth(std::max(kButtonWidth, WidthOfText(button) + kAroundCaption));
            button.SetVisible(true);
            button.isCancel = answers_[i] == wayOut_;
        }
        SendMessageW(Window(), DM_SETDEFID,
                     static_cast<WPARAM>(GetDlgCtrlID(ButtonOf(default_).Window())), 0);
    }

    double WidthOfText(const Control& control) const {
        RECT box = {};
        const std::wstring text = control.Caption();
        const HDC dc = GetDC(control.Window());
        {
            const Selected font(
                dc, reinterpret_cast<HGDIOBJ>(SendMessageW(control.Window(), WM_GETFONT, 0, 0)));
            DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box, DT_CALCRECT);
        }
        ReleaseDC(control.Window(), dc);
        return ToTwips(box.right, Dpi());
    }

    // From above: heading, text, check box, buttons, details.
    void Arrange() {
        const double left = SystemIconOf(notice_.icon) ? kTextBesideIcon : kMargin;
        double top = kMargin;
        double width = kLeastWidth;
        for (const Name name : {Name(L"Heading"), Name(L"Message")}) {
            Control& label = Get(name);
            if (label.Caption().empty())
                continue;
            label.Move({left, top, label.Width(), label.Height()});
            width = std::max(width, left + label.Width() + kMargin);
            top += label.Height() + kMargin / 2;
        }
        top = std::max(top + kMargin / 2, left == kMargin ? 0 : 2 * kMargin + kIconSize);
        if (!notice_.checkText.empty()) {
            Control& check = Get(L"Check");
            const double wide = WidthOfText(check) + kAroundCaption;
            check.Move({left, top, wide, kLine});
            width = std::max(width, left + wide + kMargin);
            top += kLine + kMargin;
        }
        width = std::max(width, ButtonsWidth() + 2 * kMargin);
        if (detailsShown_)
            width = std::max(width, kDetailsWidth);
        PlaceButtons(top, width);
        top += kButtonHeight + kMargin;
        if (detailsShown_) {
            Get(L"LblDetails").Move({kMargin, top, width - 2 * kMargin, kLine});
            Get(L"TxtDetails").Move({kMargin, top + kLine, width - 2 * kMargin, kDetailsHeight});
            top += kLine + kDetailsHeight + kMargin;
        }
        Resize(width, top);
    }

    double ButtonsWidth() {
        double width = notice_.details.empty() ? 0 : kButtonWidth + 2 * kMargin;
        for (size_t i = 0; i < answers_.size(); ++i)
            width += Get(kButtons[i]).Width() + (i > 0 ? kBetweenButtons : 0);
        return width;
    }

    void PlaceButtons(double top, double width) {
        double right = width - kMargin;
        for (size_t i = answers_.size(); i-- > 0;) {
            Control& button = Get(kButtons[i]);
            button.Move({right - button.Width(), top, button.Width(), kButtonHeight});
            right -= button.Width() + kBetweenButtons;
        }
        Get(L"CmdDetails").Move({kMargin, top, kButtonWidth, kButtonHeight});
    }

    RECT WorkArea() const {
        const HWND beside = notice_.owner ? notice_.owner : GetWindow(Window(), GW_OWNER);
        MONITORINFO monitor = {};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(beside, MONITOR_DEFAULTTOPRIMARY), &monitor);
        return monitor.rcWork;
    }

    // The inside gets this size, and the box the middle of the monitor.
    void Resize(double width, double height) {
        RECT client = {}, window = {};
        GetClientRect(Window(), &client);
        GetWindowRect(Window(), &window);
        const double wide = width + ToTwips(window.right - window.left - client.right, Dpi());
        const double high = height + ToTwips(window.bottom - window.top - client.bottom, Dpi());
        const RECT area = WorkArea();
        const double left = ToTwips(area.left + area.right, Dpi()) / 2 - wide / 2;
        const double top = ToTwips(area.top + area.bottom, Dpi()) / 2 - high / 2;
        Move({left, std::max(top, ToTwips(area.top, Dpi())), wide, high});
    }

    void ToggleDetails() {
        detailsShown_ = !detailsShown_;
        Arrange();
        for (const Name name : {Name(L"LblDetails"), Name(L"TxtDetails")})
            Get(name).SetVisible(detailsShown_);
        Repaint();
    }

    void Close(NoticeAnswer given) {
        answer = given;
        notice_.checked = SendMessageW(Get(L"Check").Window(), BM_GETCHECK, 0, 0) == BST_CHECKED;
        Unload();
    }

    Notice& notice_;
    const std::vector<NoticeAnswer> answers_;
    const NoticeAnswer default_;
    const NoticeAnswer wayOut_;
    long seconds_;
    bool detailsShown_ = false;
};

} // namespace

NoticeAnswer ShowNotice(Notice& notice) {
    if (notice.title.empty())
        notice.title = ToUncText(texts::kNotice, kToUnicode);
    NoticeForm form(notice);
    form.SetOwner(notice.owner);
    form.ShowModal();
    return form.answer;
}

} // namespace vndesk
