// SPDX-License-Identifier: MIT
// A drop-down list whose items each carry a hidden text value, as a window: forms make one by its
// window class, the ActiveX control holds one. Two lists kept in step, item for item: `Cmb1` with
// what the user sees, `Cmb2`, hidden, with the values.
#pragma once

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include <functional>
#include <optional>
#include <string>

#include "controls/combo/window/combo_box.h"
#include "controls/combo/window/type_to_select.h"
#include "comkit/base/handles.h"
#include "forms/window/control.h"
#include "forms/window/counted_class.h"

namespace vndesk {

inline constexpr wchar_t kDataComboClass[] = L"VnDeskDataCombo";

// The window class is there while one of these lives: make one before the form that uses it.
class DataComboClass : public CountedClass {
public:
    DataComboClass();
};

// A row of a form's layout table. The height is the list's own, whatever the rectangle says.
constexpr ControlSpec DataComboSpec(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return CustomControl(kDataComboClass, name, rect, flags);
}

// Errors are thrown as ComError with Visual Basic's numbers. Indexes count from 0; -1 is none.
class DataCombo {
public:
    static constexpr OLE_COLOR kBackColor = 0x80000005; // the colours of windows and their text
    static constexpr OLE_COLOR kForeColor = 0x80000008;
    // Hosts see 16-bit indexes.
    static constexpr long kMaxItems = 32767;

    // The object behind a window of the class; it goes with the window.
    static DataCombo& Of(HWND window);
    // A hidden one, to be placed by the caller.
    static DataCombo& Create(HWND parent, int id = 0);

    DataCombo(const DataCombo&) = delete;
    DataCombo& operator=(const DataCombo&) = delete;

    HWND Window() const { return window_; }
    // Of the closed list, in pixels.
    int Height() const;

    OLE_COLOR BackColor() const { return backColor_; }
    void SetBackColor(OLE_COLOR color);
    OLE_COLOR ForeColor() const { return foreColor_; }
    void SetForeColor(OLE_COLOR color);
    bool Enabled() const { return IsWindowEnabled(shown_.Window()) != FALSE; }
    void SetEnabled(bool enabled);
    // The font stays the caller's. The height follows it.
    void SetFont(HFONT font);
    void Refresh();
    bool ListIsOpen() const;
    // Drawn in the style of the theme, if there is one.
    bool Themed() const { return backColor_ == kBackColor && foreColor_ == kForeColor; }

    long ListIndex() const { return shown_.Index(); }
    void SetListIndex(long index);
    // The selection of the hidden list.
    long ListIndex1() const { return hidden_.Index(); }
    void SetListIndex1(long index);

    void AddItem(const std::wstring& text, std::optional<long> index = std::nullopt);
    // Nothing for a negative index.
    void RemoveItem(long index);
    void Clear();
    // Where the item added last is now; -1 when it is gone.
    long NewIndex() const { return newIndex_; }
    long ListCount() const { return shown_.Count(); }
    // Reading beyond the list gives the empty text.
    std::wstring List(long index) const { return shown_.Text(index); }
    void SetList(long index, const std::wstring& text);
    std::wstring ItemData(long index) const { return hidden_.Text(index); }
    void SetItemData(long index, const std::wstring& value);

    // The selected item's text. A text that no item has clears the selection.
    std::wstring Text() const { return shown_.Text(); }
    void SetText(const std::wstring& text);
    // The same for the hidden texts.
    std::wstring Value() const { return hidden_.Text(ListIndex()); }
    void SetValue(const std::wstring& value);
    // What the hidden list has selected.
    std::wstring HiddenText() const { return hidden_.Text(); }

    // How far accents count in what the user types of an item. Sensitive is the list of Windows:
    // the first letter alone leads to the next item.
    Sensitivity Accents() const { return typed_.accents; }
    void SetAccents(Sensitivity accents) { typed_.accents = accents; }

    // The selection has changed, by the user or by one of the members above.
    std::function<void()> onClick;
    std::function<void()> onDoubleClick;
    // A handler may change the key; 0 keeps it from the list. `shift` is 1 for Shift, 2 for
    // Control, 4 for Alt, added up.
    std::function<void(short& key, short& shift)> onKeyDown;
    std::function<void(short& character)> onKeyPress;
    std::function<void(short& key, short& shift)> onKeyUp;
    std::function<void(bool has)> onFocus;
    // The window is being destroyed, and this object with it.
    std::function<void()> onDestroy;

private:
    friend class DataComboClass;

    explicit DataCombo(HWND window) : window_(window) {}
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
    static LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR combo);

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void CreateLists();
    ComboBox CreateList(const wchar_t* name, DWORD style);
    void Layout();
    void OnCommand(int notification);
    bool IsSecondClick() const;
    void FireDoubleClick();
    bool OnListKey(UINT message, WPARAM& wParam);
    bool SelectTyped(wchar_t character);
    HBRUSH OnListColor(HDC dc);
    void ApplyColors();
    void CheckIndex(long index) const;

    HWND window_;
    ComboBox shown_;
    ComboBox hidden_;
    long newIndex_ = -1;
    TypeToSelect typed_;
    // The selection at the last Click event.
    long told_ = -1;
    bool layingOut_ = false;
    struct ClickMoment {
        DWORD time;
        DWORD place;
    };
    std::optional<ClickMoment> firstClick_;
    OLE_COLOR backColor_ = kBackColor;
    OLE_COLOR foreColor_ = kForeColor;
    UniqueBrush backBrush_;
};

} // namespace vndesk
