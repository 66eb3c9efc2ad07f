// SPDX-License-Identifier: MIT
#include "menus/hook/menu_hook.h"

#include <memory>

#include "menus/hook/cool_menu.h"
#include "menus/hook/menu_bar_tracker.h"
#include "menus/hook/menu_events.h"
#include "menus/hook/window_procedure.h"
#include "menus/state/diagnostics.h"
#include "menus/state/menu_module.h"
#include "menus/state/window_calls.h"

namespace vndesk {

namespace {

struct Message {
    UINT number;
    WPARAM wParam;
    LPARAM lParam;
};

constexpr wchar_t kRoutine[] = L" WindowProc";

// ANSI windows get letters of the code page.
wchar_t LetterOf(HWND window, WPARAM wParam) {
    if (IsWindowUnicode(window))
        return LOWORD(wParam);
    const char narrow = static_cast<char>(LOBYTE(wParam));
    wchar_t wide = 0;
    MultiByteToWideChar(CP_ACP, 0, &narrow, 1, &wide, 1);
    return wide;
}

LRESULT PassOn(const WndCoolMenu& entry, const Message& message) {
    return Forward(entry.hWnd, entry.PrevProc, message.number, message.wParam, message.lParam);
}

// False for a routine that ended with an error.
template <class Routine> bool Run(const wchar_t* name, Routine&& routine) {
    bool handled = false;
    Suppress(name, [&] { handled = routine(); });
    return handled;
}

// True when the message is answered and the window's own procedure need not see it.
bool Handle(WndCoolMenu& entry, const Message& message, LRESULT& answer) {
    switch (message.number) {
    case WM_SETCURSOR:
        TrackMenuBar(entry, HIWORD(message.lParam));
        return false;
    case WM_NCHITTEST:
        TrackMenuBar(entry, kNoMouseMessage);
        return false;
    case WM_NCMOUSELEAVE:
        LeaveMenuBar(entry);
        return false;
    case WM_NCACTIVATE: // Windows draws the whole bar
        entry.hoveredItem = WndCoolMenu::kNoItem;
        return false;
    case WM_DRAWITEM:
        answer = TRUE;
        return message.wParam == 0 && Run(L" OnDrawItem", [&] {
                   return OnDrawItem(entry,
                                     *reinterpret_cast<const DRAWITEMSTRUCT*>(message.lParam));
               });
    case WM_MEASUREITEM:
        answer = TRUE;
        return message.wParam == 0 &&
               OnMeasureItem(entry, *reinterpret_cast<MEASUREITEMSTRUCT*>(message.lParam));
    case WM_WINDOWPOSCHANGED:
        OnPositionChanged(entry);
        return false;
    case WM_MENUSELECT:
        Suppress(L" OnMenuSelect", [&] {
            OnMenuSelect(entry, LOWORD(message.wParam), HIWORD(message.wParam),
                         reinterpret_cast<HMENU>(message.lParam));
        });
        return false;
    case WM_MENUCHAR:
        answer = OnMenuChar(LetterOf(entry.hWnd, message.wParam),
                            reinterpret_cast<HMENU>(message.lParam));
        return answer != 0;
    case WM_SYSCOLORCHANGE:
        entry.SetSystemSelection(GetSysColor(COLOR_HIGHLIGHT));
        return false;
    case WM_SETTINGCHANGE:
    case WM_DPICHANGED:
        entry.DropFonts();
        RemeasureMenus(entry);
        return false;
    default:
        return false;
    }
}

// What is done after the window's own procedure.
void After(WndCoolMenu& entry, const Message& message) {
    if (message.number == WM_INITMENU)
        OnInitMenu(entry, reinterpret_cast<HMENU>(message.wParam));
    else if (message.number == WM_INITMENUPOPUP)
        OnInitMenuPopup(entry, reinterpret_cast<HMENU>(message.wParam), LOWORD(message.lParam),
                        HIWORD(message.lParam) != 0);
    else if (message.number == WM_UNINITMENUPOPUP)
        OnUninitMenuPopup(entry, reinterpret_cast<HMENU>(message.wParam));
}

} // namespace

LRESULT CALLBACK MenuWindowProc(HWND window, UINT number, WPARAM wParam, LPARAM lParam) {
    if (AnswersProbe(number, wParam, lParam))
        return 0;
    struct AtEnd {
        HWND window;
        bool goes;
        ~AtEnd() {
            if (goes)
                ForgetHook(window);
        }
    } const atEnd{window, number == WM_NCDESTROY};
    std::shared_ptr<WndCoolMenu> entry;
    Suppress(kRoutine, [&] { entry = FindCoolMenu(window); });
    const Message message = {number, wParam, lParam};
    if (!entry)
        return PassOnAfterwards(window, number, wParam, lParam);
    if (number == WM_NCDESTROY)
        Suppress(kRoutine, [&] { UninstallMenus(window); });
    LRESULT answer = 0;
    bool handled = false;
    Suppress(kRoutine, [&] { handled = Handle(*entry, message, answer); });
    if (!handled) {
        answer = PassOn(*entry, message);
        // The host may have uninstalled the window meanwhile.
        Suppress(kRoutine, [&] {
            if (FindCoolMenu(window) == entry)
                After(*entry, message);
        });
    }
    return answer;
}

} // namespace vndesk
