// SPDX-License-Identifier: MIT
// Plays the user from inside the modal loops of the calling thread, by messages: nothing waits for
// keys or for another thread, so a form can be worked some hundred times in a test, and many at
// once.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace vndesk::test {

// What the user does when a form is in front.
struct Step {
    const wchar_t* form;
    std::function<void(HWND form)> act;
};

// How long a form may take where many threads have one, in milliseconds.
inline constexpr ULONGLONG kManyForms = 120000;

// While it lives, message boxes are read and answered by their first button; the form in front gets
// the next step that is for it, the steps of forms that did not come up are left out, and a form
// without a step left is closed.
class Player {
public:
    explicit Player(const std::vector<Step>& steps, ULONGLONG patience = 30000);
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    // The texts of the message boxes so far.
    const std::vector<std::wstring>& Messages() const { return messages_; }
    // False when a form or box would not go within the patience. What can be done then is to end
    // the waiting, so that the test fails and does not hang.
    bool EverythingClosed() const { return !stuck_; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
    void Act();

    const std::vector<Step>& steps_;
    size_t next_ = 0;
    std::vector<std::wstring> messages_;
    ULONGLONG deadline_;
    bool stuck_ = false;
    UINT_PTR timer_;
};

// Presses a button by its command.
void Press(HWND form, const wchar_t* button);
// Chooses an item of a list box or combo box as a click does.
void ChooseItem(HWND form, const wchar_t* list, int item);

} // namespace vndesk::test
