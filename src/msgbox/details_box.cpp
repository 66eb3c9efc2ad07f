// SPDX-License-Identifier: MIT
#include "msgbox/details_box.h"

#include "forms/window/form_of.h"
#include "msgbox/letter_key.h"
#include "msgbox/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr double kMargin = 240;
constexpr double kWidth = 6300;
constexpr double kMessageLeft = 960;
constexpr double kMessageWidth = kWidth - kMessageLeft - kMargin;
// What opens below the buttons: the label's line, then the text.
constexpr double kLabelHeight = 255;
constexpr double kDetailsHeight = 1680;

constexpr ControlSpec kControls[] = {
    Image(L"Icon", {kMargin, kMargin, 480, 480}),
    Label(L"Message", L"", {kMessageLeft, kMargin, kMessageWidth, 480}, kAutoSize),
    Button(L"CmdOk", texts::kMsgOk, {3525, 960, 1200, 375}, kDefault | kCancel),
    Button(L"CmdDetails", texts::kMsgDetails, {4860, 960, 1200, 375}),
    Label(L"LblDetails", texts::kMsgProviderSays,
          {kMargin, 1500, kWidth - 2 * kMargin, kLabelHeight}, kMnemonic | kHidden),
    TextBox(L"TxtDetails", {kMargin, 1755, kWidth - 2 * kMargin, kDetailsHeight},
            kMultiLine | kReadOnly | kHidden),
};

constexpr FormSpec kForm = {
    .name = L"DetailsBox",
    .caption = texts::kNotice,
    .client = {kWidth, 1575},
    .border = FormBorder::FixedDialog,
    .controls = kControls,
};

class DetailsForm final : public FormOf<kForm> {
public:
    DetailsForm(const std::wstring& message, const std::wstring& details)
        : message_(message), details_(details) {}

protected:
    void OnLoad() override {
        const int size = ToPixels(Get(L"Icon").Width(), Dpi());
        // IDI_ERROR, in the size of the screen.
        Get(L"Icon").SetIcon(static_cast<HICON>(
            LoadImageW(nullptr, MAKEINTRESOURCEW(32513), IMAGE_ICON, size, size, LR_SHARED)));
        TieClicks<DetailsForm>(
            {{L"CmdOk", &DetailsForm::Close}, {L"CmdDetails", &DetailsForm::Toggle}});
    }

    void OnPrepared() override {
        Get(L"TxtDetails").SetText(details_);
        Get(L"CmdDetails").SetVisible(!details_.empty());
        Control& message = Get(L"Message");
        message.SetLargest(kMessageWidth, kMessageLargest);
        message.SetCaption(message_);
        Arrange();
    }

    bool OnKeyPress(wchar_t character) override { return PressByLetter(character); }

private:
    static constexpr double kMessageLargest = 4500;

    void Close() { Unload(); }

    void Toggle() {
        shown_ = !shown_;
        for (const Name name : {Name(L"LblDetails"), Name(L"TxtDetails")})
            Get(name).SetVisible(shown_);
        Arrange();
        if (!shown_)
            Get(L"CmdDetails").Focus();
    }

    // The buttons stand below the message, the details below the buttons.
    void Arrange() {
        const Control& message = Get(L"Message");
        const double buttons = message.Top() + message.Height() + kMargin;
        for (const Name name : {Name(L"CmdOk"), Name(L"CmdDetails")})
            Get(name).SetTop(buttons);
        if (details_.empty())
            Get(L"CmdOk").SetLeft(Get(L"CmdDetails").Left());
        double bottom = buttons + Get(L"CmdOk").Height() + kMargin;
        Get(L"LblDetails").SetTop(bottom);
        Get(L"TxtDetails").SetTop(bottom + kLabelHeight);
        if (shown_)
            bottom += kLabelHeight + kDetailsHeight + kMargin;
        RECT client;
        GetClientRect(Window(), &client);
        Centre(Width(), Height() + bottom - ToTwips(client.bottom, Dpi()));
    }

    const std::wstring& message_;
    const std::wstring& details_;
    bool shown_ = false;
};

} // namespace

void ShowDetailsBox(const std::wstring& message, const std::wstring& details) {
    DetailsForm(message, details).ShowModal();
}

} // namespace vndesk
