// SPDX-License-Identifier: MIT
#include "forms/password/password_boxes.h"

#include <algorithm>

#include "forms/password/text/captions.h"
#include "forms/window/form.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr wchar_t kEyeName[] = L"Eye"; // behind the box's

RECT PlaceOf(HWND window) {
    RECT box = {};
    GetWindowRect(window, &box);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
    return box;
}

// The square that the box makes room for at its right end.
RECT MakeRoom(Control& box, int dpi) {
    RECT eye = PlaceOf(box.Window());
    eye.left = eye.right - (eye.bottom - eye.top);
    box.SetWidth(box.Width() - ToTwips(eye.right - eye.left, dpi));
    return eye;
}

} // namespace

void PasswordBoxes::Help(Form& form) {
    for (const auto& control : form.Controls()) {
        if (!(control->Flags() & kPassword))
            continue;
        const HWND box = control->Window();
        if (!strip_)
            strip_.emplace(form.Window(),
                           reinterpret_cast<HFONT>(SendMessageW(box, WM_GETFONT, 0, 0)),
                           form.Dpi());
        boxes_.push_back(std::make_unique<WatchedBox>(
            box, MakeRoom(*control, form.Dpi()), control->Name() + kEyeName, *strip_,
            [this](HWND window) { return IsWatched(window); }));
        form.AddToolTip(boxes_.back()->Eye(), ToUncText(texts::kShowPassword, kToUnicode).c_str());
    }
}

bool PasswordBoxes::IsWatched(HWND window) const {
    return window &&
           std::ranges::any_of(boxes_, [&](const auto& box) { return box->Window() == window; });
}

} // namespace vndesk
