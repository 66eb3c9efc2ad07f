// SPDX-License-Identifier: MIT
// The controls of the forms: one class over the control windows of Windows, with the properties
// that the forms use. Texts are Unicode here; rectangles and sizes are twips.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "forms/look/font.h"
#include "forms/window/control_spec.h"

namespace vndesk {

class Control {
public:
    // `form` is the window that the control stands on.
    Control(HWND form, int dpi, const ControlSpec& design, int id);
    ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::wstring& Name() const { return name_; }
    ControlKind Kind() const { return kind_; }
    const wchar_t* TypeName() const;
    // Null once the form is gone.
    HWND Window() const { return window_; }
    // The form's window is being destroyed and takes this one with it.
    void Detach();

    std::wstring Text() const;
    void SetText(std::wstring_view text);
    // The caption is the text of everything but text and combo boxes.
    std::wstring Caption() const { return Text(); }
    void SetCaption(std::wstring_view caption) { SetText(caption); }
    unsigned Flags() const { return flags_; }

    const FontSpec& FontOf() const { return font_; }
    // False for controls that have no font.
    bool SetFont(const FontSpec& font);

    const TwipsRect& Rect() const { return rect_; }
    double Left() const { return rect_.left; }
    double Top() const { return rect_.top; }
    double Width() const { return rect_.width; }
    double Height() const { return rect_.height; }
    void Move(const TwipsRect& rect);
    void SetLeft(double left) { Move({left, Top(), Width(), Height()}); }
    void SetTop(double top) { Move({Left(), top, Width(), Height()}); }
    void SetWidth(double width) { Move({Left(), Top(), width, Height()}); }

    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Enabled() const { return IsWindowEnabled(window_) != FALSE; }
    void SetEnabled(bool enabled) { EnableWindow(window_, enabled); }

    // Text boxes only.
    void SetLeftMargin(int pixels);
    void Select(int start, int length);
    void Focus();

    // Images only; the icon stays the caller's.
    void SetIcon(HICON icon);
    HICON Icon() const;

    void SetRightToLeft(bool rightToLeft);

    // The most that an auto-sizing label may grow to; longer lines are wrapped.
    void SetLargest(double width, double height);

    COLORREF BackColor() const { return backColor_; }
    COLORREF ForeColor() const { return foreColor_; }
    void SetColors(COLORREF back, COLORREF fore);
    // CLR_INVALID stands for "as the system draws it".
    HBRUSH BackBrush() const { return backBrush_.get(); }

    std::wstring tag;
    bool isDefault = false;
    bool isCancel = false;
    std::function<void()> onClick;
    std::function<void()> onChange;
    std::function<void()> onDoubleClick;
    // List boxes only.
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void(int button)> onMouseDown;
    std::function<LRESULT(NMHDR& notification)> onNotify;

private:
    void CreateControlWindow(HWND form, const ControlSpec& design, int id);
    void FitToText();
    void FitToLine();

    int dpi_;
    std::wstring name_;
    ControlKind kind_;
    unsigned flags_;
    TwipsRect rect_;
    RECT box_ = {}; // the same in pixels, as the window was last given it
    double leastWidth_;
    double leastHeight_;
    double mostWidth_ = 0;
    double mostHeight_ = 0;
    int mostPixels_ = 0; // of the height of a one-line text box
    bool visible_;
    FontSpec font_;
    std::shared_ptr<Font> fontHandle_;
    COLORREF backColor_ = CLR_INVALID;
    COLORREF foreColor_ = CLR_INVALID;
    UniqueBrush backBrush_;
    HWND window_ = nullptr;
};

} // namespace vndesk
