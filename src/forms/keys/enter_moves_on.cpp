// SPDX-License-Identifier: MIT
#include "forms/keys/enter_moves_on.h"

#include <memory>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "forms/keys/entry_box.h"
#include "forms/keys/held_enter.h"
#include "forms/look/common_controls.h"

namespace vndesk {

namespace {

// What a window has while its procedure is ours. The module stays loaded that long.
struct Watch {
    HWND form = nullptr;
    bool asked = false;   // the box is being asked what it would take without us
    bool* left = nullptr; // becomes true when the keyboard leaves the box
    ModuleLock lock = {};
};

// A procedure put before the window's own, with the property that its watch is kept in.
struct Part {
    const wchar_t* property;
    SUBCLASSPROC procedure;

    Watch* WatchOf(HWND window) const { return static_cast<Watch*>(GetPropW(window, property)); }

    void Attach(HWND window, HWND form) const {
        if (WatchOf(window))
            return;
        auto watch = std::make_unique<Watch>();
        watch->form = form;
        if (!SetPropW(window, property, watch.get()))
            throw ComError(E_OUTOFMEMORY);
        if (!Controls6().SetWindowSubclass(window, procedure, 0,
                                           reinterpret_cast<DWORD_PTR>(watch.get()))) {
            RemovePropW(window, property);
            throw ComError(E_FAIL, L"The window cannot be watched.");
        }
        static_cast<void>(watch.release());
    }

    void Detach(HWND window) const {
        Controls6().RemoveWindowSubclass(window, procedure, 0);
        delete static_cast<Watch*>(RemovePropW(window, property));
    }
};

LRESULT CALLBACK FormProcedure(HWND form, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR);
LRESULT CALLBACK BoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR watch);
LRESULT CALLBACK HeldProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR);

constexpr Part kForm = {L"VnDesk.EnterForm", FormProcedure};
constexpr Part kBox = {L"VnDesk.EnterBox", BoxProcedure};
// Where the keyboard has come to by an Enter that is still held.
constexpr Part kHeld = {L"VnDesk.EnterHeld", HeldProcedure};

bool IsOwn(HWND window) {
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

BOOL CALLBACK AttachBox(HWND window, LPARAM form) {
    const auto outer = reinterpret_cast<HWND>(form);
    if (IsOwn(window) && KindOfBox(window) != EntryBox::None && IsReachedByTab(outer, window))
        Trap([&] { kBox.Attach(window, outer); });
    return TRUE;
}

BOOL CALLBACK DetachBox(HWND window, LPARAM form) {
    const Watch* watch = kBox.WatchOf(window);
    if (watch && watch->form == reinterpret_cast<HWND>(form))
        kBox.Detach(window);
    return TRUE;
}

// --- A box ---

// Whether the box takes an Enter for itself, as text boxes of several lines do, or one that looks
// up what was typed. Windows' own text box of several lines says so although it leaves the key to
// the form; others with its class name in theirs do take it.
bool TakesEnter(HWND box, Watch& watch) {
    const LONG_PTR style = GetWindowLongPtrW(box, GWL_STYLE);
    if (KindOfBox(box) == EntryBox::Edit && (style & ES_MULTILINE)) {
        wchar_t name[8] = L"";
        GetClassNameW(box, name, 8);
        return (style & ES_WANTRETURN) || lstrcmpiW(name, L"EDIT") != 0;
    }
    MSG enter = {};
    enter.hwnd = box;
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    watch.asked = true;
    const LRESULT answer =
        SendMessageW(box, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter));
    watch.asked = false;
    return (answer & DLGC_WANTMESSAGE) != 0;
}

bool MovesOnEnter(HWND box, Watch& watch) {
    return !watch.asked && GetKeyState(VK_CONTROL) >= 0 && GetKeyState(VK_MENU) >= 0 &&
           !HasOpenList(box) && !TakesEnter(box, watch);
}

// As IsDialogMessage does it for Tab. Dialogs and the forms of some languages do it themselves.
void MoveOn(HWND form, HWND box) {
    const bool back = GetKeyState(VK_SHIFT) < 0;
    bool left = false;
    if (Watch* watch = kBox.WatchOf(box))
        watch->left = &left;
    SendMessageW(form, WM_NEXTDLGCTL, back, FALSE);
    // The host may have destroyed the box meanwhile.
    if (Watch* watch = kBox.WatchOf(box))
        watch->left = nullptr;
    if (!left && IsWindow(box)) {
        const HWND parent = GetParent(box);
        const HWND from = parent != form && KindOfBox(parent) == EntryBox::Combo ? parent : box;
        const HWND next = GetNextDlgTabItem(form, from, back);
        if (next && next != from) {
            if (SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
                SendMessageW(next, EM_SETSEL, 0, -1);
            SetFocus(next);
        }
    }
    const HWND now = GetFocus();
    if (now && now != box && IsOwn(now) && GetKeyState(VK_RETURN) < 0)
        kHeld.Attach(now, form);
}

LRESULT CALLBACK BoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR data) {
    auto& watch = *reinterpret_cast<Watch*>(data);
    switch (message) {
    case WM_GETDLGCODE: // otherwise IsDialogMessage would press the default button
        if (const auto* key = reinterpret_cast<const MSG*>(lParam);
            key && IsEnterDown(*key) && MovesOnEnter(box, watch))
            return Controls6().DefSubclassProc(box, message, wParam, lParam) | DLGC_WANTMESSAGE;
        break;
    case WM_KEYDOWN:
        if (wParam != VK_RETURN || !MovesOnEnter(box, watch))
            break;
        if (!(HIWORD(lParam) & KF_REPEAT)) {
            const HWND form = watch.form;
            Trap([&] { MoveOn(form, box); });
        }
        return 0;
    case WM_CHAR: // an edit control of one line would beep
        if (wParam == VK_RETURN && MovesOnEnter(box, watch))
            return 0;
        break;
    case WM_KILLFOCUS:
        if (watch.left)
            *watch.left = true;
        break;
    case WM_NCDESTROY:
        kBox.Detach(box);
        break;
    default:
        break;
    }
    return Controls6().DefSubclassProc(box, message, wParam, lParam);
}

// --- Where a held key has led to ---

LRESULT CALLBACK HeldProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR) {
    const bool repeated = wParam == VK_RETURN && (HIWORD(lParam) & KF_REPEAT);
    switch (message) {
    case WM_GETDLGCODE:
        if (const auto* key = reinterpret_cast<const MSG*>(lParam); key && IsEnterRepeat(*key))
            return Controls6().DefSubclassProc(window, message, wParam, lParam) | DLGC_WANTMESSAGE;
        break;
    case WM_KEYDOWN:
    case WM_CHAR:
        if (repeated)
            return 0;
        if (wParam == VK_RETURN)
            kHeld.Detach(window);
        break;
    case WM_KEYUP:
        if (wParam == VK_RETURN)
            kHeld.Detach(window);
        break;
    case WM_KILLFOCUS:
    case WM_NCDESTROY:
        kHeld.Detach(window);
        break;
    default:
        break;
    }
    return Controls6().DefSubclassProc(window, message, wParam, lParam);
}

// --- The form ---

LRESULT CALLBACK FormProcedure(HWND form, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR) {
    if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_CREATE) {
        const auto made = reinterpret_cast<HWND>(lParam);
        AttachBox(made, reinterpret_cast<LPARAM>(form));
        EnumChildWindows(made, AttachBox, reinterpret_cast<LPARAM>(form));
    } else if (message == WM_NCDESTROY) {
        kForm.Detach(form);
    }
    return Controls6().DefSubclassProc(form, message, wParam, lParam);
}

} // namespace

void SetEnterMovesOn(HWND form, bool on) {
    if (!IsWindow(form) || !IsOwn(form))
        throw ComError(E_INVALIDARG, L"The form is not a window of the calling thread.");
    if (on)
        kForm.Attach(form, form);
    else
        kForm.Detach(form);
    EnumChildWindows(form, on ? AttachBox : DetachBox, reinterpret_cast<LPARAM>(form));
}

} // namespace vndesk
