// SPDX-License-Identifier: MIT
#include "logon/name_box_menu.h"

#include <windowsx.h>
#include <commctrl.h>

#include "comkit/base/com_error.h"
#include "comkit/base/handles.h"
#include "forms/look/common_controls.h"
#include "logon/text/captions.h"

namespace vndesk {

namespace {

constexpr UINT kForget = 1;
constexpr UINT kSelectAll = 2;

using UniqueMenu = UniqueHandle<HMENU, DestroyMenu>;

// What the box does by itself: the messages are the commands.
struct Command {
    const wchar_t* caption; // null: a line
    UINT message;
    bool (*isOffered)(HWND edit);
};

bool HasSelection(HWND edit) {
    const auto range = static_cast<DWORD>(SendMessageW(edit, EM_GETSEL, 0, 0));
    return LOWORD(range) != HIWORD(range);
}

bool HasText(HWND edit) {
    return GetWindowTextLengthW(edit) > 0;
}

constexpr Command kCommands[] = {
    {texts::kEditUndo, EM_UNDO,
     [](HWND edit) { return SendMessageW(edit, EM_CANUNDO, 0, 0) != FALSE; }},
    {nullptr, 0, nullptr},
    {texts::kEditCut, WM_CUT, HasSelection},
    {texts::kEditCopy, WM_COPY, HasSelection},
    {texts::kEditPaste, WM_PASTE,
     [](HWND) { return IsClipboardFormatAvailable(CF_UNICODETEXT) != FALSE; }},
    {texts::kEditDelete, WM_CLEAR, HasSelection},
    {nullptr, 0, nullptr},
    {texts::kEditSelectAll, kSelectAll, HasText},
    {nullptr, 0, nullptr},
};

} // namespace

NameBoxMenu::~NameBoxMenu() {
    if (edit_)
        Controls6().RemoveWindowSubclass(edit_, Procedure, reinterpret_cast<UINT_PTR>(this));
}

void NameBoxMenu::Attach(HWND box, std::function<bool()> any, std::function<void()> forget) {
    COMBOBOXINFO parts = {.cbSize = sizeof parts};
    const bool combo = SendMessageW(box, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&parts));
    const HWND edit = combo && parts.hwndItem ? parts.hwndItem : box;
    any_ = std::move(any);
    forget_ = std::move(forget);
    if (Controls6().SetWindowSubclass(edit, Procedure, reinterpret_cast<UINT_PTR>(this),
                                      reinterpret_cast<DWORD_PTR>(this)))
        edit_ = edit;
}

LRESULT CALLBACK NameBoxMenu::Procedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam,
                                        UINT_PTR id, DWORD_PTR self) {
    auto* menu = reinterpret_cast<NameBoxMenu*>(self);
    if (message == WM_NCDESTROY) {
        Controls6().RemoveWindowSubclass(edit, Procedure, id);
        menu->edit_ = nullptr;
    } else if (message == WM_CONTEXTMENU) {
        POINT place = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        if (place.x == -1 && place.y == -1) { // by a key
            RECT box = {};
            GetWindowRect(edit, &box);
            place = {box.left, box.bottom};
        }
        Trap([&] { menu->Show(place); });
        return 0;
    }
    return Controls6().DefSubclassProc(edit, message, wParam, lParam);
}

void NameBoxMenu::Show(POINT place) {
    const UniqueMenu menu(CreatePopupMenu());
    for (const Command& command : kCommands) {
        const bool line = !command.caption;
        const bool offered = !line && command.isOffered(edit_);
        AppendMenuW(menu.get(),
                    line      ? MF_SEPARATOR
                    : offered ? MF_ENABLED
                              : MF_GRAYED,
                    line ? 0 : command.message, command.caption);
    }
    AppendMenuW(menu.get(), any_() ? MF_ENABLED : MF_GRAYED, kForget, texts::kForgetNames);
    SetFocus(edit_);
    const auto chosen =
        static_cast<UINT>(TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                         place.x, place.y, 0, edit_, nullptr));
    if (chosen == kForget)
        forget_();
    else if (chosen == kSelectAll)
        SendMessageW(edit_, EM_SETSEL, 0, -1);
    else if (chosen != 0)
        SendMessageW(edit_, chosen, 0, 0);
}

} // namespace vndesk
