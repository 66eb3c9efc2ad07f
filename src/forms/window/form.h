// SPDX-License-Identifier: MIT
// A modal form: a window laid out from a table, whose behaviour is a handful of handlers. The
// window is a Windows dialog (DefDlgProc), which moves the focus, handles Alt and a letter and
// keeps the default button.
#pragma once

#include <windows.h>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "forms/window/control.h"
#include "forms/window/form_window.h"

namespace vndesk {

class Form {
public:
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    // The window that the form stays in front of, before it is loaded; without one, or when it is
    // gone, that in which the user works.
    void SetOwner(HWND owner) { owner_ = owner; }
    // Before it is loaded: whether Enter confirms, as forms/keys/enter_rule.h says, or is a
    // character like others.
    void ConfirmByEnter(bool confirms) { enterConfirms_ = confirms; }
    // Creates the window and its controls, runs OnLoad and prepares the form. Nothing when loaded
    // already.
    void Load();
    // Returns when the form has been unloaded. The other windows of the thread wait that long.
    void ShowModal();
    // Ends the form; from a handler this takes effect when the handler returns.
    void Unload();

    HWND Window() const { return window_; }
    int Dpi() const { return dpi_; }
    const std::wstring& Caption() const { return caption_; }
    bool TitleOnly() const { return spec_.titleOnly; }
    const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
    // By its place in the table; FormOf knows the places by name.
    Control& At(size_t index);

    // Outer size.
    double Width() const { return rect_.width; }
    double Height() const { return rect_.height; }
    void Move(const TwipsRect& rect);
    void Centre() { Centre(Width(), Height()); }
    // Takes the size at once.
    void Centre(double width, double height);
    void SetRightToLeft(bool rightToLeft);

    // A frame takes what lies in it with it.
    void SetFrameEnabled(Control& frame, bool enabled);

    void Repaint();
    void AddToolTip(HWND control, const wchar_t* text);

protected:
    explicit Form(const FormSpec& design) : spec_(design) {}

    virtual void OnLoad() {}
    // The captions are Unicode and the fonts set: the place to fill the controls.
    virtual void OnPrepared() {}
    // The control that has the keyboard first; null: the first that can be reached by Tab.
    virtual const Control* FirstControl() { return nullptr; }
    virtual void OnUnload() {}
    virtual void OnResize() {}
    // What the form draws itself, beside its controls.
    virtual void OnPaint(HDC) {}
    // Every character, before the control with the focus gets it. True keeps it from the control.
    virtual bool OnKeyPress(wchar_t) { return false; }
    // Every key, named by its virtual code, before the control with the focus gets it.
    virtual bool OnKeyDown(const Control&, WPARAM) { return false; }
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Ends the form with the error now being handled: ShowModal throws it to the form's opener.
    void Fail();

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);

    void CreateFormWindow();
    void RunLoop();
    bool PreviewKey(const MSG& message);
    bool MoveFromButton(const MSG& message);
    void MarkConfirmButton();
    bool PressEnter();
    void OnCommand(int id, int notification);
    bool OnMouseDown(int button, POINT point);
    HBRUSH OnControlColor(HDC dc, HWND control);
    void Paint();
    void FollowEdges();
    LRESULT OnNotify(NMHDR& notification);
    Control* FromWindow(HWND window);
    Control* FromPoint(POINT point);
    Control* CancelButton();
    template <class Steps> bool Fails(Steps&& steps) const;
    void Fire(const std::function<void()>& handler) const;
    void Destroy();

    const FormSpec& spec_;
    std::optional<FormClass> windowClass_;
    HWND owner_ = nullptr;
    HWND window_ = nullptr;
    HWND toolTips_ = nullptr;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    std::wstring caption_;
    TwipsRect rect_;
    std::vector<std::unique_ptr<Control>> controls_;
    // The designed outer size, below which a sizable form does not go.
    SIZE least_ = {};
    bool modal_ = false;
    bool unloading_ = false;
    bool enterConfirms_ = false;
    bool closedByEnter_ = false;
    std::exception_ptr failure_;
};

} // namespace vndesk
