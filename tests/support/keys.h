// SPDX-License-Identifier: MIT
// Real key strokes and mouse clicks, as a user gives them: for a second thread (see
// dialog_driver.h) while the windows' own thread pumps. They go to whatever has the focus.
#pragma once
#include <string_view>
#include <windows.h>

namespace vndesk::test {

enum Modifiers : unsigned { kNoModifier = 0, kShift = 1, kControl = 2, kAlt = 4 };

// One key by its virtual code, down and up, then a pause.
void PressKey(WORD virtualKey, unsigned modifiers = kNoModifier);
// One key that is held: down, down again so many times, as a keyboard repeats it, and up.
void HoldKey(WORD virtualKey, int repeats = 15);
// The same for a key that opens or closes windows. Pressed once where the platform lets go of it
// then, because what is held would be pressed anew.
void HoldKeyBesideWindows(WORD virtualKey);
// Enter of the numeric pad.
void PressPadEnter();
// Letters as Unicode input: Vietnamese text needs no keyboard layout. Where no letter moves the
// focus, they may come faster than single keys.
constexpr DWORD kKeyPause = 50;
void TypeText(std::wstring_view text, DWORD pause = kKeyPause);

// The middle of a window; makes sure first that no other window lies above that point.
void ClickWindow(HWND window);
void DoubleClickWindow(HWND window);
void RightClickWindow(HWND window);
// A point of the screen.
void ClickAt(POINT point);
void RightClickAt(POINT point);
// Where the mouse stands; down when negative.
void TurnWheel(int clicks);
void MoveMouseTo(POINT point);

} // namespace vndesk::test
