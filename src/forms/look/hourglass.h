// SPDX-License-Identifier: MIT
// The pointer says that the user has to wait, as long as the object lives.
#pragma once

#include <windows.h>

namespace vndesk {

class Hourglass {
public:
    Hourglass() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~Hourglass() { SetCursor(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    HCURSOR before_;
};

} // namespace vndesk
