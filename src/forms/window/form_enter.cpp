// SPDX-License-Identifier: MIT
// What Enter does in a form where it confirms.
#include <commctrl.h>

#include "forms/keys/enter_rule.h"
#include "forms/keys/entry_box.h"
#include "forms/window/form.h"

namespace vndesk {

namespace {

// Of labels, images and frames, which Tab does not reach, nothing is asked.
bool IsStop(const Control& control) {
    const ControlKind kind = control.Kind();
    return kind != ControlKind::LabelW && kind != ControlKind::Image && kind != ControlKind::Frame;
}

// Ticks and what a subsystem brings always say something.
bool IsEmpty(const Control& control) {
    switch (control.Kind()) {
    case ControlKind::TextBoxW:
    case ControlKind::ComboBoxW:
        return control.Text().empty();
    case ControlKind::ListBoxW:
        return SendMessageW(control.Window(), LB_GETCOUNT, 0, 0) == 0;
    case ControlKind::CheckListW:
    case ControlKind::ListView:
        return SendMessageW(control.Window(), LVM_GETITEMCOUNT, 0, 0) == 0;
    default:
        return false;
    }
}

EnterStop StopOf(const Control& control) {
    const unsigned flags = control.Flags();
    EnterStop stop;
    stop.kind = control.Kind() == ControlKind::CommandButtonW ? EnterStop::Button
                : flags & kReadOnly                           ? EnterStop::Shown
                                                              : EnterStop::Field;
    stop.enabled = control.Enabled() && control.Visible();
    stop.empty = IsEmpty(control);
    stop.goesOn = (flags & kEnterGoesOn) != 0;
    stop.confirms = (flags & kConfirms) != 0;
    return stop;
}

} // namespace

void Form::MarkConfirmButton() {
    for (const auto& control : controls_)
        if (control->Flags() & kConfirms)
            SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(GetDlgCtrlID(control->Window())),
                         0);
}

bool Form::PressEnter() {
    const HWND focus = GetFocus();
    const bool always = GetKeyState(VK_CONTROL) < 0;
    if (HasOpenList(focus)) {
        if (!always)
            return false;
        for (const HWND box : {focus, GetParent(focus)})
            SendMessageW(box, CB_SHOWDROPDOWN, FALSE, 0);
    } else if (!always && GetKeyState(VK_SHIFT) < 0) {
        SendMessageW(window_, WM_NEXTDLGCTL, TRUE, FALSE);
        return true;
    }
    const Control* current = FromWindow(focus);
    std::vector<Control*> controls;
    std::vector<EnterStop> stops;
    size_t from = controls_.size();
    for (const auto& control : controls_) {
        if (!IsStop(*control))
            continue;
        if (control.get() == current)
            from = stops.size();
        controls.push_back(control.get());
        stops.push_back(StopOf(*control));
    }
    const EnterStep step = AfterEnter(stops, from, always);
    if (step.kind == EnterStep::Focus) {
        controls[step.stop]->Focus();
    } else if (step.kind == EnterStep::Press && stops[step.stop].enabled) {
        Fire(controls[step.stop]->onClick);
        closedByEnter_ = unloading_;
    }
    return true;
}

} // namespace vndesk
