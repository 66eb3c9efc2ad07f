// SPDX-License-Identifier: MIT
// What users are helped with in the password boxes of a form: a button that shows the password, and
// warnings of input methods and Caps Lock.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "forms/password/watched_box.h"

namespace vndesk {

class Form;

class PasswordBoxes {
public:
    // Takes each box of a prepared form that is marked kPassword in its table. The button takes its
    // place from the box's right end; by Tab it comes after all other controls, so that Tab and the
    // space bar still press what stands after the box.
    void Help(Form& form);

private:
    bool IsWatched(HWND window) const;

    std::optional<WarningStrip> strip_;
    std::vector<std::unique_ptr<WatchedBox>> boxes_;
};

} // namespace vndesk
