// SPDX-License-Identifier: MIT
// What a modal form takes from the rest of the thread, and gives back: its windows' enabled state
// and the focus.
#pragma once

#include <windows.h>

#include <vector>

namespace vndesk {

class ModalState {
public:
    explicit ModalState(HWND form);
    // To be destroyed before the form's window: with all others disabled, Windows would activate
    // another program.
    ~ModalState();
    ModalState(const ModalState&) = delete;
    ModalState& operator=(const ModalState&) = delete;

private:
    static BOOL CALLBACK DisableOne(HWND window, LPARAM state);

    HWND form_;
    HWND focus_;
    std::vector<HWND> disabled_;
};

} // namespace vndesk
