// SPDX-License-Identifier: MIT
#include "forms/window/control.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "forms/look/device_context.h"
#include "forms/look/frame_caption.h"
#include "forms/window/window_name.h"

namespace vndesk {

namespace {

// What each kind is made of.
struct KindRow {
    const wchar_t* typeName;
    const wchar_t* windowClass;
    DWORD style;
    DWORD extendedStyle;
    bool hasFont;
};

constexpr KindRow kKinds[] = {
    {L"LabelW", L"STATIC", SS_LEFT, 0, true},
    {L"TextBoxW", L"EDIT", ES_LEFT | ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, true},
    {L"ComboBoxW", L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 0, true},
    {L"CommandButtonW", L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, 0, true},
    {L"CheckBoxW", L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, 0, true},
    {L"OptionButtonW", L"BUTTON", BS_AUTORADIOBUTTON | WS_TABSTOP, 0, true},
    // The control keeps its size whatever icon it gets.
    {L"Image", L"STATIC", SS_ICON | SS_REALSIZECONTROL, 0, false},
    {L"ListBoxW", L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP,
     WS_EX_CLIENTEDGE, true},
    {L"ListBoxW", WC_LISTVIEWW,
     LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP,
     WS_EX_CLIENTEDGE, true},
    {L"ListView", WC_LISTVIEWW,
     LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP, WS_EX_CLIENTEDGE,
     true},
    // Transparent: the form paints the inside.
    {L"Frame", L"BUTTON", BS_GROUPBOX, WS_EX_TRANSPARENT, true},
    {L"UserControl", nullptr, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, true},
};

const KindRow& Row(ControlKind kind) {
    return kKinds[static_cast<size_t>(kind)];
}

const wchar_t* ClassFor(const ControlSpec& design) {
    return design.windowClass ? design.windowClass : Row(design.kind).windowClass;
}

DWORD StyleFor(const ControlSpec& design) {
    DWORD style = Row(design.kind).style;
    if (design.kind == ControlKind::LabelW) {
        if (!(design.flags & kMnemonic))
            style |= SS_NOPREFIX;
        if (design.flags & kEllipsis)
            style |= SS_ENDELLIPSIS;
    }
    if (design.flags & kPassword)
        style |= ES_PASSWORD;
    if (design.flags & kMultiLine)
        style = (style & ~DWORD{ES_AUTOHSCROLL}) | ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL;
    if (design.flags & kReadOnly)
        style |= ES_READONLY;
    if (design.flags & kDefault)
        style |= BS_DEFPUSHBUTTON;
    if (design.flags & kEditable)
        style = (style & ~DWORD{CBS_DROPDOWNLIST}) | CBS_DROPDOWN | CBS_AUTOHSCROLL;
    if (design.flags & kMultiSelect)
        style |= LBS_EXTENDEDSEL;
    if (design.flags & kDisabled)
        style |= WS_DISABLED;
    if (!(design.flags & kHidden))
        style |= WS_VISIBLE;
    // Only where it is needed: with WS_CLIPSIBLINGS the controls in a frame would be clipped by the
    // frame.
    if (design.flags & kBehind)
        style |= WS_CLIPSIBLINGS;
    return style | WS_CHILD;
}

// Most styles are already set while the form is laid out. On some systems SetWindowLongPtr costs as
// much as creating a small window: calls that change nothing are left out.
void SetStyle(HWND window, int index, LONG_PTR style) {
    if (GetWindowLongPtrW(window, index) != style)
        SetWindowLongPtrW(window, index, style);
}

void RepaintIfVisible(HWND window) {
    if (IsWindowVisible(window))
        InvalidateRect(window, nullptr, TRUE);
}

} // namespace

Control::Control(HWND form, int dpi, const ControlSpec& design, int id)
    : isDefault((design.flags & kDefault) != 0), isCancel((design.flags & kCancel) != 0), dpi_(dpi),
      name_(design.name), kind_(design.kind), flags_(design.flags), rect_(design.rect),
      leastWidth_(design.rect.width), leastHeight_(design.rect.height),
      visible_(!(design.flags & kHidden)) {
    CreateControlWindow(form, design, id);
    // Preparation sets the font that is seen, made from this one.
    if (Row(kind_).hasFont)
        font_ = {design.fontName, design.fontPoints};
}

Control::~Control() {
    Detach();
}

void Control::Detach() {
    if (window_)
        ClearWindowName(window_);
    window_ = nullptr;
}

void Control::CreateControlWindow(HWND form, const ControlSpec& design, int id) {
    const KindRow& row = Row(kind_);
    box_ = ToPixels(rect_, dpi_);
    const DWORD edge = design.flags & kEdged ? WS_EX_STATICEDGE : 0;
    window_ = CreateWindowExW(
        row.extendedStyle | edge, ClassFor(design), design.caption, StyleFor(design), box_.left,
        box_.top, box_.right - box_.left, box_.bottom - box_.top, form,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ModuleInstance(), nullptr);
    if (!window_)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowName(window_, name_);
    if (kind_ == ControlKind::Frame)
        KeepLastLetter(window_);
    if (flags_ & kPassword)
        SendMessageW(window_, EM_SETPASSWORDCHAR, L'*', 0);
}

const wchar_t* Control::TypeName() const {
    return Row(kind_).typeName;
}

std::wstring Control::Text() const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window_)), L'\0');
    if (!text.empty())
        text.resize(static_cast<size_t>(
            GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

void Control::SetText(std::wstring_view text) {
    SetWindowTextW(window_, std::wstring(text).c_str());
    if (flags_ & kAutoSize)
        FitToText();
}

bool Control::SetFont(const FontSpec& font) {
    if (!Row(kind_).hasFont)
        return false;
    auto handle = Font::Get(font, dpi_);
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(handle->Handle()),
                 IsWindowVisible(window_));
    font_ = font;
    fontHandle_ = std::move(handle);
    if (flags_ & kAutoSize)
        FitToText();
    FitToLine();
    return true;
}

void Control::Move(const TwipsRect& rect) {
    rect_ = rect;
    RECT box = ToPixels(rect, dpi_);
    if (mostPixels_ > 0)
        box.bottom = std::min(box.bottom, box.top + mostPixels_);
    if (EqualRect(&box, &box_))
        return;
    box_ = box;
    SetWindowPos(window_, nullptr, box.left, box.top, box.right - box.left, box.bottom - box.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Control::SetVisible(bool visible) {
    if (window_ && visible != visible_)
        ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
    visible_ = visible;
}

void Control::SetLeftMargin(int pixels) {
    if (kind_ == ControlKind::TextBoxW)
        SendMessageW(window_, EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(pixels, 0));
}

void Control::Select(int start, int length) {
    if (kind_ == ControlKind::ComboBoxW)
        SendMessageW(window_, CB_SETEDITSEL, 0, MAKELPARAM(start, start + length));
    else
        SendMessageW(window_, EM_SETSEL, start, start + length);
}

void Control::Focus() {
    // Unlike SetFocus, WM_NEXTDLGCTL keeps the default button's frame right.
    SendMessageW(GetParent(window_), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window_), TRUE);
}

void Control::SetIcon(HICON icon) {
    SendMessageW(window_, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

HICON Control::Icon() const {
    return reinterpret_cast<HICON>(SendMessageW(window_, STM_GETICON, 0, 0));
}

void Control::SetRightToLeft(bool rightToLeft) {
    constexpr LONG_PTR kMirrored = WS_EX_RTLREADING | WS_EX_RIGHT;
    const LONG_PTR style = GetWindowLongPtrW(window_, GWL_EXSTYLE);
    SetStyle(window_, GWL_EXSTYLE, rightToLeft ? style | kMirrored : style & ~kMirrored);
    // STATIC controls read their alignment from their style only.
    if (kind_ == ControlKind::LabelW) {
        const LONG_PTR plain =
            GetWindowLongPtrW(window_, GWL_STYLE) & ~static_cast<LONG_PTR>(SS_TYPEMASK);
        SetStyle(window_, GWL_STYLE, plain | (rightToLeft ? SS_RIGHT : SS_LEFT));
    }
    RepaintIfVisible(window_);
}

void Control::SetLargest(double width, double height) {
    mostWidth_ = width;
    mostHeight_ = height;
}

void Control::SetColors(COLORREF back, COLORREF fore) {
    backColor_ = back;
    foreColor_ = fore;
    backBrush_.reset(back == CLR_INVALID ? nullptr : CreateSolidBrush(back));
    RepaintIfVisible(window_);
}

// A one-line EDIT control puts its text at its upper edge, however high it is. So it gets no higher
// than a combo box of its font, which centres its text.
void Control::FitToLine() {
    constexpr int kAroundText = 8;
    if (kind_ != ControlKind::TextBoxW || (flags_ & kMultiLine) || !fontHandle_)
        return;
    TEXTMETRICW metrics = {};
    const HDC dc = GetDC(window_);
    {
        const Selected font(dc, fontHandle_->Handle());
        GetTextMetricsW(dc, &metrics);
    }
    ReleaseDC(window_, dc);
    mostPixels_ = metrics.tmHeight + kAroundText;
    Move(rect_);
}

void Control::FitToText() {
    RECT box = {0, 0, mostWidth_ > 0 ? ToPixels(mostWidth_, dpi_) : 0, 0};
    if (const std::wstring text = Text(); !text.empty()) {
        const UINT wrap = mostWidth_ > 0 ? DT_WORDBREAK | DT_EDITCONTROL : 0;
        const HDC dc = GetDC(window_);
        {
            const Selected font(dc, fontHandle_ ? static_cast<HGDIOBJ>(fontHandle_->Handle())
                                                : GetStockObject(DEFAULT_GUI_FONT));
            DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &box,
                      DT_CALCRECT | DT_EXPANDTABS | DT_NOPREFIX | wrap);
        }
        ReleaseDC(window_, dc);
    }
    double height = std::max(leastHeight_, ToTwips(box.bottom, dpi_));
    if (mostHeight_ > 0)
        height = std::min(height, mostHeight_);
    Move({Left(), Top(), std::max(leastWidth_, ToTwips(box.right, dpi_)), height});
}

} // namespace vndesk
