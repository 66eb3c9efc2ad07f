// SPDX-License-Identifier: MIT
// What a form is laid out from: its table of controls, a row each, and the form itself. Texts are
// TCVN3 unless the form says that it converts none; rectangles and sizes are twips.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "forms/look/twips.h"

namespace vndesk {

enum class ControlKind {
    LabelW,
    TextBoxW,
    ComboBoxW,
    CommandButtonW,
    CheckBoxW,
    OptionButtonW,
    Image,
    ListBoxW,
    CheckListW,
    ListView,
    Frame,
    Custom // a window class that a subsystem brings
};

// Design-time properties that are simply on or off.
enum ControlFlags : unsigned {
    kHidden = 1,
    kDisabled = 2,
    kAutoSize = 4,   // a label that takes the size of its text; its designed size is the least
    kPassword = 8,   // a text box that shows asterisks
    kDefault = 16,   // the button that Enter presses when no button has the focus
    kCancel = 32,    // the button that Escape presses
    kEllipsis = 64,  // a one-line label that ends in "..." where it is too long
    kMnemonic = 128, // a label whose "&" marks the letter that leads to the next control
    kMultiSelect = 256,
    // What a control does when the user drags the form's edge.
    kGrowRight = 512,
    kGrowDown = 1024,
    kMoveRight = 2048,
    kMoveDown = 4096,
    kGrow = kGrowRight | kGrowDown,
    kMove = kMoveRight | kMoveDown,
    kBehind = 8192,     // other controls lie on it
    kMultiLine = 16384, // a text box of several lines, with a scroll bar
    kReadOnly = 32768,
    kEditable = 65536, // a drop-down list that takes other texts, too
    // Where Enter confirms (forms/keys/enter_rule.h).
    kConfirms = 131072,    // the default button, after which no more fields come
    kEnterGoesOn = 262144, // Enter goes on to the next field, also where that is filled
    kEdged = 524288,       // a label with the edge of a list
};

// One row of a form's layout table.
struct ControlSpec {
    ControlKind kind;
    const wchar_t* name;
    const wchar_t* caption;
    TwipsRect rect;
    unsigned flags = 0;
    const wchar_t* toolTip = nullptr;
    const wchar_t* fontName = L"VK Sans Serif";
    double fontPoints = 8;
    // Of custom controls only. The window is the container of what stands in it.
    const wchar_t* windowClass = nullptr;
};

// --- Rows by the kind of control ---

constexpr ControlSpec Label(const wchar_t* name, const wchar_t* caption, TwipsRect rect,
                            unsigned flags = 0) {
    return {ControlKind::LabelW, name, caption, rect, flags};
}

constexpr ControlSpec TextBox(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::TextBoxW, name, L"", rect, flags};
}

// The height is that of the open list.
constexpr ControlSpec DropDownList(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::ComboBoxW, name, L"", rect, flags};
}

constexpr ControlSpec Button(const wchar_t* name, const wchar_t* caption, TwipsRect rect,
                             unsigned flags = 0, const wchar_t* toolTip = nullptr) {
    return {ControlKind::CommandButtonW, name, caption, rect, flags, toolTip};
}

constexpr ControlSpec CheckBox(const wchar_t* name, const wchar_t* caption, TwipsRect rect,
                               unsigned flags = 0) {
    return {ControlKind::CheckBoxW, name, caption, rect, flags};
}

constexpr ControlSpec OptionButton(const wchar_t* name, const wchar_t* caption, TwipsRect rect,
                                   unsigned flags = 0) {
    return {ControlKind::OptionButtonW, name, caption, rect, flags};
}

constexpr ControlSpec Image(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::Image, name, L"", rect, flags};
}

constexpr ControlSpec ListBox(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::ListBoxW, name, L"", rect, flags};
}

constexpr ControlSpec CheckListBox(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::CheckListW, name, L"", rect, flags};
}

constexpr ControlSpec ListView(const wchar_t* name, TwipsRect rect, unsigned flags = 0) {
    return {ControlKind::ListView, name, L"", rect, flags};
}

constexpr ControlSpec Frame(const wchar_t* name, const wchar_t* caption, TwipsRect rect,
                            unsigned flags = 0) {
    return {ControlKind::Frame, name, caption, rect, flags};
}

constexpr ControlSpec CustomControl(const wchar_t* windowClass, const wchar_t* name, TwipsRect rect,
                                    unsigned flags = 0) {
    return {.kind = ControlKind::Custom,
            .name = name,
            .caption = L"",
            .rect = rect,
            .flags = flags,
            .windowClass = windowClass};
}

// A table with further controls in front of the named one, which moves down by `height` with all
// that follows.
template <size_t kCount, size_t kMore>
consteval std::array<ControlSpec, kCount + kMore>
WithRow(const std::array<ControlSpec, kCount>& table, std::wstring_view before, double height,
        const std::array<ControlSpec, kMore>& row) {
    std::array<ControlSpec, kCount + kMore> all = {};
    size_t next = 0;
    double shift = 0;
    for (ControlSpec control : table) {
        if (control.name == before) {
            for (const ControlSpec& added : row)
                all[next++] = added;
            shift = height;
        }
        control.rect.top += shift;
        all[next++] = control;
    }
    if (next != all.size())
        throw "the table has no control of this name";
    return all;
}

// The table with another caption on one control.
template <size_t kCount>
consteval std::array<ControlSpec, kCount>
WithCaption(std::array<ControlSpec, kCount> table, std::wstring_view name, const wchar_t* caption) {
    for (ControlSpec& control : table)
        if (control.name == name) {
            control.caption = caption;
            return table;
        }
    throw "the table has no control of this name";
}

// The table with a box that can be typed into and has a list, instead of the text box of that name.
template <size_t kCount>
consteval std::array<ControlSpec, kCount> WithList(std::array<ControlSpec, kCount> table,
                                                   std::wstring_view name, double openHeight) {
    for (ControlSpec& control : table)
        if (control.name == name) {
            control.kind = ControlKind::ComboBoxW;
            control.rect.height = openHeight;
            control.flags |= kEditable;
            return table;
        }
    throw "the table has no control of this name";
}

// --- The form ---

enum class FormBorder { None, FixedDialog, Sizable };

struct FormSpec {
    const wchar_t* name;
    const wchar_t* caption = L"";
    TwipsSize client = {};
    FormBorder border = FormBorder::FixedDialog;
    // The form converts the texts that it puts on its controls by itself: preparation leaves them
    // alone.
    bool titleOnly = false;
    std::span<const ControlSpec> controls = {};
};

} // namespace vndesk
