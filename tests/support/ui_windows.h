// SPDX-License-Identifier: MIT
// Finding windows and controls of this process (or a watched one) and reading what they show, from
// any thread.
// Forms and controls carry their name as the window property "VnDesk.Name" (a global atom).
// Functions that wait throw std::runtime_error when the time is over.
#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace vndesk::test {

constexpr DWORD kPatience = 10000; // milliseconds, for a machine that does much else

// Polls until the condition holds. PumpUntil also dispatches the calling thread's messages.
bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds = kPatience);
bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds = kPatience);

// Another process whose windows the functions below look at, for a program that plays the user of a
// second one; 0 for this process again.
void WatchProcess(DWORD process);

// Visible top-level windows of the watched process, topmost first.
std::vector<HWND> TopWindows();

// Waits for a visible top-level window of the watched process.
HWND WaitForForm(std::wstring_view name, DWORD milliseconds = kPatience); // by "VnDesk.Name"
HWND WaitForTitle(std::wstring_view title, DWORD milliseconds = kPatience);
HWND WaitForClass(std::wstring_view className, DWORD milliseconds = kPatience);
void WaitForClose(HWND window, DWORD milliseconds = kPatience);

// A control anywhere in a form by its name; nullptr when there is none.
HWND FindControl(HWND form, std::wstring_view name);
// The same, waiting until it is there.
HWND Control(HWND form, std::wstring_view name, DWORD milliseconds = kPatience);

std::wstring WindowName(HWND window); // "VnDesk.Name", empty when it has none
std::wstring ClassName(HWND window);
std::wstring TextOf(HWND window); // WM_GETTEXT
std::wstring TextOf(HWND form, std::wstring_view control);
bool IsEnabled(HWND form, std::wstring_view control);
bool IsShown(HWND form, std::wstring_view control); // visible, all parents included

// The window with the keyboard focus in the thread of `form`.
HWND FocusWindow(HWND form);
// Name of the control that has the focus; looks at the parents of a nameless inner window.
std::wstring FocusName(HWND form);
// On the control or a part of it.
void WaitForFocus(HWND form, std::wstring_view control, DWORD milliseconds = kPatience);
// Waits until keys reach a form (and a control of it): while the window before it goes, the
// foreground can be nobody's for a moment, even after the form has got its focus.
void WaitReady(HWND form, std::wstring_view control = {}, DWORD milliseconds = kPatience);

// Item texts of a list box or combo box (also inside the control's window), cells of a list view.
std::vector<std::wstring> ListTexts(HWND control);
int ListSelection(HWND control);
std::wstring CellText(HWND listView, int row, int column);

// "TxtUser [Edit] 'text' 0x1234", for messages.
std::wstring DescribeWindow(HWND window);

} // namespace vndesk::test
