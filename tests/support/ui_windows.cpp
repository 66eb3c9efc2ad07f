// SPDX-License-Identifier: MIT
#include "support/ui_windows.h"

#include <atomic>
#include <commctrl.h>
#include <cwchar>
#include <map>

#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr DWORD kStep = 10;
constexpr wchar_t kNameProperty[] = L"VnDesk.Name";

std::atomic<DWORD> watchedProcess{0}; // 0 for this one

bool Until(const std::function<bool()>& condition, DWORD milliseconds, bool pump) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (;;) {
        if (pump) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        if (condition())
            return true;
        if (GetTickCount64() >= end)
            return false;
        if (pump)
            MsgWaitForMultipleObjects(0, nullptr, FALSE, kStep, QS_ALLINPUT);
        else
            Sleep(kStep);
    }
}

BOOL CALLBACK CollectWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

ATOM NameAtom(HWND window) {
    return static_cast<ATOM>(reinterpret_cast<UINT_PTR>(GetPropW(window, kNameProperty)));
}

std::vector<HWND> Descendants(HWND window) {
    std::vector<HWND> all;
    EnumChildWindows(window, CollectWindow, reinterpret_cast<LPARAM>(&all));
    return all;
}

// A hung window must not hang the test, but one that has been busy for a while may yet answer.
LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result))
        Fail(L"no answer from " + ClassName(window) + L" to message " + std::to_wstring(message));
    return static_cast<LRESULT>(result);
}

HWND WaitFor(const std::function<bool(HWND)>& matches, const std::wstring& what, DWORD time) {
    HWND found = nullptr;
    if (!WaitUntil(
            [&] {
                for (HWND window : TopWindows())
                    if (matches(window)) {
                        found = window;
                        return true;
                    }
                return false;
            },
            time)) {
        std::wstring open;
        for (HWND window : TopWindows())
            open += L"\n  " + DescribeWindow(window);
        Fail(L"no window " + what + L"; open are:" + open);
    }
    return found;
}

bool SameText(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

enum class ListKind { kNone, kListBox, kComboBox };

ListKind KindOf(HWND window) {
    const std::wstring name = ClassName(window);
    if (SameText(name, L"ListBox"))
        return ListKind::kListBox;
    return SameText(name, L"ComboBox") ? ListKind::kComboBox : ListKind::kNone;
}

// The native list behind a control's window.
HWND ListInside(HWND control, ListKind& kind) {
    kind = KindOf(control);
    if (kind != ListKind::kNone)
        return control;
    for (HWND child : Descendants(control))
        if ((kind = KindOf(child)) != ListKind::kNone)
            return child;
    Fail(DescribeWindow(control) + L" holds no list");
}

} // namespace

bool WaitUntil(const std::function<bool()>& condition, DWORD milliseconds) {
    return Until(condition, milliseconds, false);
}

bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds) {
    return Until(condition, milliseconds, true);
}

void WatchProcess(DWORD process) {
    watchedProcess = process;
}

std::vector<HWND> TopWindows() {
    const DWORD watched = watchedProcess ? watchedProcess.load() : GetCurrentProcessId();
    std::vector<HWND> all, own;
    EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&all));
    for (HWND window : all) {
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        if (process == watched && IsWindowVisible(window))
            own.push_back(window);
    }
    return own;
}

HWND WaitForForm(std::wstring_view name, DWORD milliseconds) {
    return WaitFor([=](HWND window) { return WindowName(window) == name; },
                   L"named " + std::wstring(name), milliseconds);
}

HWND WaitForTitle(std::wstring_view title, DWORD milliseconds) {
    return WaitFor(
        [=](HWND window) {
            // Stored text, without a message to a window that may be busy closing.
            wchar_t text[512] = L"";
            InternalGetWindowText(window, text, 512);
            return text == title;
        },
        L"titled '" + std::wstring(title) + L"'", milliseconds);
}

HWND WaitForClass(std::wstring_view className, DWORD milliseconds) {
    return WaitFor([=](HWND window) { return SameText(ClassName(window), className); },
                   L"of class " + std::wstring(className), milliseconds);
}

void WaitForClose(HWND window, DWORD milliseconds) {
    if (!WaitUntil([=] { return !IsWindow(window) || !IsWindowVisible(window); }, milliseconds))
        Fail(DescribeWindow(window) + L" does not close");
}

HWND FindControl(HWND form, std::wstring_view name) {
    // Each look at a window is a call to Wine's server: where the name was last is tried first. Of
    // one form only, or the tests would take themselves for a leak.
    thread_local HWND lastForm = nullptr;
    thread_local std::map<std::wstring, HWND> last;
    if (form != lastForm)
        last.clear();
    lastForm = form;
    HWND& found = last[std::wstring(name)];
    if (found && IsChild(form, found) && WindowName(found) == name)
        return found;
    found = nullptr;
    const ATOM atom = GlobalFindAtomW(std::wstring(name).c_str());
    for (HWND window : Descendants(form))
        if (atom && NameAtom(window) == atom && WindowName(window) == name)
            return found = window;
    return nullptr;
}

HWND Control(HWND form, std::wstring_view name, DWORD milliseconds) {
    HWND found = nullptr;
    if (!WaitUntil([&] { return (found = FindControl(form, name)) != nullptr; }, milliseconds))
        Fail(L"no control " + std::wstring(name) + L" in " + DescribeWindow(form));
    return found;
}

std::wstring WindowName(HWND window) {
    const ATOM atom = NameAtom(window);
    wchar_t name[256] = L"";
    return atom && GlobalGetAtomNameW(atom, name, 256) ? name : L"";
}

std::wstring ClassName(HWND window) {
    wchar_t name[256] = L"";
    GetClassNameW(window, name, 256);
    return name;
}

std::wstring TextOf(HWND window) {
    std::wstring text(Ask(window, WM_GETTEXTLENGTH, 0, 0) + 1, L'\0');
    text.resize(Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
    return text;
}

std::wstring TextOf(HWND form, std::wstring_view control) {
    return TextOf(Control(form, control));
}

bool IsEnabled(HWND form, std::wstring_view control) {
    return IsWindowEnabled(Control(form, control)) != FALSE;
}

bool IsShown(HWND form, std::wstring_view control) {
    return IsWindowVisible(Control(form, control)) != FALSE;
}

HWND FocusWindow(HWND form) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info) ? info.hwndFocus
                                                                            : nullptr;
}

std::wstring FocusName(HWND form) {
    for (HWND window = FocusWindow(form); window; window = GetAncestor(window, GA_PARENT)) {
        const std::wstring name = WindowName(window);
        if (!name.empty())
            return name;
    }
    return L"";
}

void WaitForFocus(HWND form, std::wstring_view control, DWORD milliseconds) {
    const auto within = [=] {
        for (HWND window = FocusWindow(form); window; window = GetAncestor(window, GA_PARENT))
            if (WindowName(window) == control)
                return true;
        return false;
    };
    if (!WaitUntil(within, milliseconds))
        Fail(L"the focus is on '" + FocusName(form) + L"', not on " + std::wstring(control));
}

void WaitReady(HWND form, std::wstring_view control, DWORD milliseconds) {
    int steady = 0;
    if (!WaitUntil(
            [&] {
                const HWND focus = FocusWindow(form);
                const bool ready = GetForegroundWindow() == form && focus && IsChild(form, focus) &&
                                   (control.empty() || FocusName(form) == control);
                steady = ready ? steady + 1 : 0;
                return steady == 4;
            },
            milliseconds))
        Fail(DescribeWindow(form) + L" is not ready: the focus is on '" + FocusName(form) +
             L"', the foreground is " + DescribeWindow(GetForegroundWindow()));
}

std::vector<std::wstring> ListTexts(HWND control) {
    ListKind kind;
    const HWND list = ListInside(control, kind);
    const bool box = kind == ListKind::kListBox;
    std::vector<std::wstring> texts;
    const LRESULT count = Ask(list, box ? LB_GETCOUNT : CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = Ask(list, box ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, i, 0);
        std::wstring text(length < 0 ? 1 : length + 1, L'\0');
        Ask(list, box ? LB_GETTEXT : CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        text.resize(wcslen(text.c_str()));
        texts.push_back(text);
    }
    return texts;
}

int ListSelection(HWND control) {
    ListKind kind;
    const HWND list = ListInside(control, kind);
    return static_cast<int>(
        Ask(list, kind == ListKind::kListBox ? LB_GETCURSEL : CB_GETCURSEL, 0, 0));
}

std::wstring CellText(HWND listView, int row, int column) {
    wchar_t text[512] = L"";
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 512;
    Ask(listView, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

std::wstring DescribeWindow(HWND window) {
    if (!IsWindow(window))
        return L"(no window)";
    wchar_t text[128] = L"", number[32];
    InternalGetWindowText(window, text, 128);
    swprintf(number, 32, L"0x%llX",
             static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(window)));
    return WindowName(window) + L" [" + ClassName(window) + L"] '" + text + L"' " + number;
}

} // namespace vndesk::test
