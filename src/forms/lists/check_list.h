// SPDX-License-Identifier: MIT
// A list box with a check box before each item.
#pragma once

#include <functional>
#include <string>

#include "forms/window/control.h"

namespace vndesk {

class CheckList {
public:
    // `onChecked` is called for every tick that the user sets or clears.
    CheckList(Control& control, std::function<void()> onChecked);

    void Clear();
    void AddItem(const std::wstring& text, long data);
    long Count() const;
    bool Checked(long index) const;
    void SetChecked(long index, bool checked);
    // The space bar has an item to tick as soon as the list gets the focus.
    void SelectFirst();
    // After the control's size has changed.
    void FitColumn();

private:
    LRESULT OnNotify(NMHDR& notification);

    Control& control_;
    std::function<void()> onChecked_;
    // Set while the program changes ticks: `onChecked` is for the user's.
    bool filling_ = false;
};

} // namespace vndesk
