// SPDX-License-Identifier: MIT
// A host program in a process of its own. Keys go to one window at a time, whoever it belongs to:
// its forms are worked by messages to their controls.
#pragma once

#include "support/forms/administration.h"

#include "support/child_process.h"

namespace vndesk::test {

constexpr DWORD kProcessStart = 60000;
constexpr DWORD kProcessLimit = 30000;

// A program of the folder above the tests.
inline std::wstring BuiltProgram(const std::wstring& name) {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, std::wstring_view(path).rfind(L'\\')) + L"\\..\\" + name;
}

class HostProcess {
public:
    // A program of the folder above the tests, or of the system by its path, with its arguments.
    explicit HostProcess(const wchar_t* program, std::vector<std::wstring> arguments,
                         const std::wstring& output = {})
        : process_(Words(program, std::move(arguments)), output) {}

    // Waits for a form by its name.
    HWND Form(const wchar_t* name, DWORD time = kProcessLimit) const {
        const Watched watched(*this);
        return WaitForForm(name, time);
    }
    HWND WindowOfClass(const wchar_t* className, DWORD time = kProcessStart) const {
        const Watched watched(*this);
        return WaitForClass(className, time);
    }
    bool Has(const wchar_t* form) const {
        const Watched watched(*this);
        for (const HWND window : TopWindows())
            if (WindowName(window) == form)
                return true;
        return false;
    }

    DWORD ExitCode() { return process_.ExitCode(kProcessLimit); }

private:
    class Watched {
    public:
        explicit Watched(const HostProcess& host) { WatchProcess(host.process_.Id()); }
        ~Watched() { WatchProcess(0); }
    };

    static std::vector<std::wstring> Words(const wchar_t* program,
                                           std::vector<std::wstring> arguments) {
        arguments.insert(arguments.begin(),
                         wcschr(program, L'\\') ? program : BuiltProgram(program));
        return arguments;
    }

    ChildProcess process_;
};

// --- What its user does ---

inline void Press(HWND form, const wchar_t* button) {
    const HWND window = Control(form, button, kProcessLimit);
    PostMessageW(form, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                 reinterpret_cast<LPARAM>(window));
}

inline void PostKey(HWND form, const wchar_t* control, WORD key, int times = 1) {
    const HWND window = Control(form, control, kProcessLimit);
    for (int i = 0; i < times; ++i) {
        PostMessageW(window, WM_KEYDOWN, key, 1);
        PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }
}

inline void WaitClosed(HWND form) {
    WaitForClose(form, kProcessLimit);
}

// An item of one of a form's data combos, by its place.
inline void ChooseItem(HWND form, const wchar_t* combo, int index) {
    const HWND list = Control(Control(form, combo, kProcessLimit), L"Cmb1");
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

// The first line of the search dialog; field and operator by their places.
inline void FillSearch(HWND form, int field, int predicate, const wchar_t* value) {
    ChooseItem(form, L"CmbFld(0)", field);
    ChooseItem(form, L"CmbPredicate(0)", predicate);
    SetBox(form, L"MskValue(0)", value);
    if (!WaitUntil([=] { return IsEnabled(form, L"CmdOk"); }, kProcessLimit))
        Fail(L"CmdOk stays disabled");
}

// A group by its place in the list of the group manager, and its name there.
inline void SelectGroup(HWND groups, int item, const wchar_t* name) {
    PostKey(groups, L"Lv1", VK_HOME);
    PostKey(groups, L"Lv1", VK_DOWN, item);
    if (!WaitUntil([=] { return TextOf(groups, L"txtName") == name; }, kProcessLimit))
        Fail(L"the group shown is " + TextOf(groups, L"txtName") + L", not " + name);
}

// Ticks or unticks a command of a bar, both by their places.
inline void ToggleRight(HWND rights, int bar, int command, const wchar_t* ticksAfter) {
    PostKey(rights, L"LstMenuBar", VK_HOME);
    PostKey(rights, L"LstMenuBar", VK_DOWN, bar);
    if (!WaitUntil([=] { return ListSelection(Control(rights, L"LstMenuBar")) == bar; },
                   kProcessLimit))
        Fail(L"the menu bar is not selected");
    PostKey(rights, L"LstSubMenu", VK_HOME);
    PostKey(rights, L"LstSubMenu", VK_DOWN, command);
    PostKey(rights, L"LstSubMenu", VK_SPACE);
    if (!WaitUntil([=] { return Ticks(rights, L"LstSubMenu") == ticksAfter; }, kProcessLimit))
        Fail(L"the ticks are " + Ticks(rights, L"LstSubMenu"));
}

} // namespace vndesk::test
