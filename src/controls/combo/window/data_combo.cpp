// SPDX-License-Identifier: MIT
#include "controls/combo/window/data_combo.h"

#include <windowsx.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"
#include "controls/combo/window/ole_color.h"
#include "forms/look/common_controls.h"
#include "forms/window/window_name.h"

namespace vndesk {

namespace {

constexpr int kListId = 1;
constexpr int kDroppedItems = 12;
constexpr UINT kListClosed = WM_APP;

int comboUsers_;

short ShiftState() {
    const auto held = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
    return static_cast<short>(held(VK_SHIFT, 1) | held(VK_CONTROL, 2) | held(VK_MENU, 4));
}

void CheckColor(OLE_COLOR color) {
    COLORREF result;
    if (FAILED(OleTranslateColor(color, nullptr, &result)))
        throw ComError(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
}

// A handler may replace itself or end the window that holds it; its errors end with it.
template <class... Parameters, class... Arguments>
void Fire(std::function<void(Parameters...)> handler, Arguments&&... arguments) {
    if (handler)
        Trap([&] { handler(std::forward<Arguments>(arguments)...); });
}

} // namespace

DataComboClass::DataComboClass()
    : CountedClass({kDataComboClass, DataCombo::WindowProcedure}, comboUsers_) {}

DataCombo& DataCombo::Of(HWND window) {
    auto* combo = reinterpret_cast<DataCombo*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!combo)
        throw ComError(E_HANDLE);
    return *combo;
}

DataCombo& DataCombo::Create(HWND parent, int id) {
    const HWND window = CreateWindowExW(WS_EX_CONTROLPARENT, kDataComboClass, L"",
                                        WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                                        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                        ModuleInstance(), nullptr);
    if (!window)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    return Of(window);
}

LRESULT CALLBACK DataCombo::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    auto* combo = reinterpret_cast<DataCombo*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        combo = new (std::nothrow) DataCombo(window);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(combo));
        return combo ? DefWindowProcW(window, message, wParam, lParam) : FALSE;
    }
    if (!combo)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_CREATE)
        return Trap([&] { combo->CreateLists(); }) ? -1 : 0;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete combo;
        return DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    Trap([&] { result = combo->OnMessage(message, wParam, lParam); });
    return result;
}

void DataCombo::CreateLists() {
    shown_ = CreateList(L"Cmb1", WS_VISIBLE | WS_TABSTOP);
    hidden_ = CreateList(L"Cmb2", 0);
    SendMessageW(shown_.Window(), CB_SETMINVISIBLE, kDroppedItems, 0);
    if (!Controls6().SetWindowSubclass(shown_.Window(), ListProcedure, 0,
                                       reinterpret_cast<DWORD_PTR>(this)))
        throw ComError(E_OUTOFMEMORY);
    EnableWindow(shown_.Window(), IsWindowEnabled(window_));
    Layout();
}

ComboBox DataCombo::CreateList(const wchar_t* name, DWORD style) {
    const HWND list = CreateWindowExW(
        0, L"COMBOBOX", L"",
        WS_CHILD | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS | CBS_AUTOHSCROLL | style, 0, 0,
        0, 0, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(style ? kListId : 0)),
        ModuleInstance(), nullptr);
    if (!list)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    SetWindowName(list, name);
    return ComboBox(list);
}

int DataCombo::Height() const {
    RECT box = {};
    GetWindowRect(shown_.Window(), &box);
    return box.bottom - box.top;
}

// The list takes the window's width; the window takes the list's height.
void DataCombo::Layout() {
    RECT inside;
    if (layingOut_ || !GetClientRect(window_, &inside))
        return;
    layingOut_ = true;
    // The height of a combo box includes its list, which is as high as its items then are.
    const auto itemHeight = static_cast<int>(SendMessageW(shown_.Window(), CB_GETITEMHEIGHT, 0, 0));
    MoveWindow(shown_.Window(), 0, 0, inside.right, Height() + kDroppedItems * itemHeight, TRUE);
    if (Height() != inside.bottom)
        SetWindowPos(window_, nullptr, 0, 0, inside.right, Height(),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    layingOut_ = false;
}

LRESULT DataCombo::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND list = shown_.Window();
    switch (message) {
    case WM_SIZE:
        Layout();
        return 0;
    case WM_SETFOCUS:
        SetFocus(list);
        return 0;
    case WM_ENABLE:
        EnableWindow(list, wParam != 0);
        return 0;
    case WM_SETFONT:
        SetFont(reinterpret_cast<HFONT>(wParam));
        return 0;
    // The visible list answers for the whole control.
    case WM_GETFONT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
        return SendMessageW(list, message, wParam, lParam);
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == list)
            OnCommand(HIWORD(wParam));
        return 0;
    case kListClosed:
        if (told_ != ListIndex())
            OnCommand(CBN_SELCHANGE);
        return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return reinterpret_cast<LRESULT>(OnListColor(reinterpret_cast<HDC>(wParam)));
    case WM_DESTROY:
        Fire(onDestroy);
        for (const HWND window : {list, hidden_.Window()})
            ClearWindowName(window);
        return 0;
    default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void DataCombo::OnCommand(int notification) {
    switch (notification) {
    case CBN_CLOSEUP:
        // Escape selects the item from before the list was opened. Whether CBN_SELCHANGE comes for
        // that is known only after this notification.
        PostMessageW(window_, kListClosed, 0, 0);
        if (GetKeyState(VK_LBUTTON) < 0 && IsSecondClick())
            FireDoubleClick();
        break;
    case CBN_SELCHANGE:
        told_ = ListIndex();
        Fire(onClick);
        break;
    default:
        break;
    }
}

// The open list has the mouse: a second click on the closed part reaches it, not the combo box.
bool DataCombo::IsSecondClick() const {
    if (!firstClick_)
        return false;
    const DWORD place = GetMessagePos();
    const auto apart = [](int one, int other, int metric) {
        return std::abs(one - other) > GetSystemMetrics(metric) / 2;
    };
    return static_cast<DWORD>(GetMessageTime()) - firstClick_->time <= GetDoubleClickTime() &&
           !apart(GET_X_LPARAM(place), GET_X_LPARAM(firstClick_->place), SM_CXDOUBLECLK) &&
           !apart(GET_Y_LPARAM(place), GET_Y_LPARAM(firstClick_->place), SM_CYDOUBLECLK);
}

void DataCombo::FireDoubleClick() {
    firstClick_.reset();
    Fire(onDoubleClick);
}

LRESULT CALLBACK DataCombo::ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR combo) {
    auto& self = *reinterpret_cast<DataCombo*>(combo);
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYUP:
    case WM_CHAR: {
        bool pass = false;
        if (Trap([&] { pass = self.OnListKey(message, wParam); }) || !pass || !IsWindow(window))
            return 0;
        if (message == WM_CHAR && self.SelectTyped(static_cast<wchar_t>(wParam)))
            return 0;
        break;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        const LRESULT result = Controls6().DefSubclassProc(window, message, wParam, lParam);
        if (IsWindow(window))
            Fire(self.onFocus, message == WM_SETFOCUS);
        return result;
    }
    case WM_LBUTTONDOWN:
        self.firstClick_ = {static_cast<DWORD>(GetMessageTime()), GetMessagePos()};
        break;
    case WM_LBUTTONDBLCLK: {
        const LRESULT result = Controls6().DefSubclassProc(window, message, wParam, lParam);
        if (IsWindow(window) && self.firstClick_)
            self.FireDoubleClick();
        return result;
    }
    case WM_NCDESTROY:
        Controls6().RemoveWindowSubclass(window, ListProcedure, id);
        break;
    default:
        break;
    }
    return Controls6().DefSubclassProc(window, message, wParam, lParam);
}

// False when a handler keeps the key from the list.
bool DataCombo::OnListKey(UINT message, WPARAM& wParam) {
    auto key = static_cast<short>(wParam);
    if (message == WM_CHAR) {
        Fire(onKeyPress, key);
    } else {
        short shift = ShiftState();
        const bool down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
        const HWND window = window_;
        if (down && key == VK_DELETE && shift == 0)
            SetListIndex(-1);
        if (!IsWindow(window))
            return false;
        Fire(down ? onKeyDown : onKeyUp, key, shift);
    }
    wParam = static_cast<unsigned short>(key);
    return key != 0;
}

// True when the list has nothing left to do with the character. This object may be gone then.
bool DataCombo::SelectTyped(wchar_t character) {
    if (!typed_.Takes(character))
        return false;
    Trap([this] {
        if (const long item = typed_.Item(shown_); item >= 0)
            SetListIndex(item);
    });
    return true;
}

HBRUSH DataCombo::OnListColor(HDC dc) {
    SetTextColor(dc, Translated(foreColor_));
    SetBkColor(dc, Translated(backColor_));
    return backBrush_ ? backBrush_.get() : GetSysColorBrush(COLOR_WINDOW);
}

// Themes paint a drop-down list in their own colours: where others are asked for, the list does
// without one.
void DataCombo::ApplyColors() {
    backBrush_.reset(backColor_ == kBackColor ? nullptr : CreateSolidBrush(Translated(backColor_)));
    Controls6().SetWindowTheme(shown_.Window(), Themed() ? nullptr : L"", Themed() ? nullptr : L"");
    Refresh();
}

void DataCombo::SetBackColor(OLE_COLOR color) {
    CheckColor(color);
    backColor_ = color;
    ApplyColors();
}

void DataCombo::SetForeColor(OLE_COLOR color) {
    CheckColor(color);
    foreColor_ = color;
    ApplyColors();
}

void DataCombo::SetEnabled(bool enabled) {
    EnableWindow(shown_.Window(), enabled);
    EnableWindow(window_, enabled);
}

void DataCombo::SetFont(HFONT font) {
    SendMessageW(shown_.Window(), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    Layout();
}

void DataCombo::Refresh() {
    RedrawWindow(shown_.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

bool DataCombo::ListIsOpen() const {
    return SendMessageW(shown_.Window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void DataCombo::CheckIndex(long index) const {
    if (index < 0 || index >= ListCount())
        throw ComError(CTL_E_INVALIDPROPERTYARRAYINDEX, L"Invalid property array index");
}

void DataCombo::SetListIndex(long index) {
    if (index < -1 || index >= ListCount())
        throw ComError(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
    if (index == ListIndex())
        return;
    shown_.Select(index);
    told_ = index;
    Fire(onClick);
}

void DataCombo::SetListIndex1(long index) {
    if (index < -1 || index >= ListCount())
        throw ComError(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
    hidden_.Select(index);
}

void DataCombo::AddItem(const std::wstring& text, std::optional<long> index) {
    const long place = index.value_or(ListCount());
    if (place < 0 || place > ListCount())
        throw ComError(CTL_E_ILLEGALFUNCTIONCALL, L"Invalid procedure call or argument");
    if (ListCount() == kMaxItems)
        throw ComError(CTL_E_OVERFLOW, L"Overflow");
    shown_.Insert(place, text);
    try {
        hidden_.Insert(place, L"");
    } catch (...) {
        shown_.Remove(place);
        throw;
    }
    newIndex_ = place;
    told_ = ListIndex();
}

void DataCombo::RemoveItem(long index) {
    if (index < 0)
        return;
    if (index >= ListCount())
        throw ComError(CTL_E_ILLEGALFUNCTIONCALL, L"Invalid procedure call or argument");
    shown_.Remove(index);
    hidden_.Remove(index);
    if (newIndex_ == index)
        newIndex_ = -1;
    else if (newIndex_ > index)
        --newIndex_;
    told_ = ListIndex();
}

void DataCombo::Clear() {
    shown_.Clear();
    hidden_.Clear();
    newIndex_ = -1;
    told_ = -1;
}

void DataCombo::SetList(long index, const std::wstring& text) {
    CheckIndex(index);
    shown_.Replace(index, text);
}

void DataCombo::SetItemData(long index, const std::wstring& value) {
    CheckIndex(index);
    hidden_.Replace(index, value);
}

void DataCombo::SetText(const std::wstring& text) {
    SetListIndex(shown_.Find(text));
}

void DataCombo::SetValue(const std::wstring& value) {
    hidden_.Select(hidden_.Find(value));
    SetListIndex(hidden_.Index());
}

} // namespace vndesk
