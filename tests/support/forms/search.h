// SPDX-License-Identifier: MIT
// What the tests of the search share: the host's calls with a script that plays the user, and the
// user's way through the find dialog.
#pragma once

#include "support/forms/administration.h"

#include <functional>

#include "support/late_bound.h"
#include "support/new_object.h"

namespace vndesk::test {

inline Microsoft::WRL::ComPtr<ISearch> CreateSearch() {
    auto search = NewObject<ISearch>(L"VnDesk.clsSearch");
    GovernInDialect(search.Get());
    return search;
}

inline _variant_t Missing() {
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

inline std::wstring ResultOf(ISearch& search) {
    _bstr_t result;
    EXPECT_SUCCEEDED(search.get_Result(result.GetAddress()));
    return {static_cast<const wchar_t*>(result) ? static_cast<const wchar_t*>(result) : L"",
            result.length()};
}

// Where a text stands in another, ASCII letter case aside.
inline size_t FindLower(std::wstring text, const wchar_t* part) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text.find(part);
}

using Script = std::function<void(HWND form)>;

// A script that begins when the dialog is there, and ends with it.
inline std::function<void()> InFindDialog(Script script) {
    return [script = std::move(script)] {
        const HWND form = WaitForForm(L"FrmFind");
        WaitReady(form);
        script(form);
        WaitForClose(form);
    };
}

// Show of an instance that has its connection.
inline std::wstring PlayShow(ISearch& search, Script script, const _variant_t& owner = Missing(),
                             long modal = 1) {
    DialogDriver user(InFindDialog(std::move(script)));
    EXPECT_SUCCEEDED(search.Show(&modal, owner));
    user.Finish();
    return ResultOf(search);
}

// The whole way of a host: connection, table, dialog, result.
inline std::wstring PlaySearch(const std::wstring& connection, const wchar_t* table,
                               Script script) {
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(connection.c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(table)));
    return PlayShow(*search.Get(), std::move(script));
}

// --- The user's way through the dialog ---

inline std::wstring Named(const wchar_t* row, int line) {
    return row + (L"(" + std::to_wstring(line) + L")");
}

// The control of the form that has the focus, or that the window with the focus is a part of.
inline std::wstring FocusedControl(HWND form) {
    HWND window = FocusWindow(form);
    while (window && GetParent(window) != form)
        window = GetParent(window);
    return window ? WindowName(window) : L"";
}

inline void WaitForControl(HWND form, const std::wstring& control) {
    if (!WaitUntil([&] { return FocusedControl(form) == control; }))
        Fail(L"the focus is on '" + FocusedControl(form) + L"', not on " + control);
}

// Presses Tab until the control has the focus.
inline void TabTo(HWND form, const std::wstring& control) {
    for (int i = 0; i < 30 && FocusedControl(form) != control; ++i) {
        const std::wstring before = FocusedControl(form);
        PressKey(VK_TAB);
        WaitUntil([&] { return FocusedControl(form) != before; });
    }
    WaitForControl(form, control);
}

// The list that the user sees of a data combo.
inline HWND ListOf(HWND form, const std::wstring& combo) {
    return Control(Control(form, combo), L"Cmb1");
}

inline int Chosen(HWND form, const std::wstring& combo) {
    return ListSelection(ListOf(form, combo));
}

inline std::wstring ChosenText(HWND form, const std::wstring& combo) {
    const int index = Chosen(form, combo);
    return index < 0 ? L"" : ListTexts(ListOf(form, combo))[static_cast<size_t>(index)];
}

// Chooses an item by its place with the arrow keys.
inline void Choose(HWND form, const std::wstring& combo, int index) {
    TabTo(form, combo);
    for (int i = 0; i < 60 && Chosen(form, combo) != index; ++i) {
        const int before = Chosen(form, combo);
        PressKey(before < index ? VK_DOWN : VK_UP);
        WaitUntil([&] { return Chosen(form, combo) != before; }, 1000);
    }
    if (Chosen(form, combo) != index)
        Fail(combo + L" does not come to item " + std::to_wstring(index));
}

inline void ChooseText(HWND form, const std::wstring& combo, const std::wstring& text) {
    const auto texts = ListTexts(ListOf(form, combo));
    const auto found = std::find(texts.begin(), texts.end(), text);
    if (found == texts.end())
        Fail(combo + L" has no item " + text);
    Choose(form, combo, static_cast<int>(found - texts.begin()));
}

// Replaces what stands in a line's value box.
inline void TypeValue(HWND form, int line, const std::wstring& value) {
    const std::wstring box = Named(L"MskValue", line);
    TabTo(form, box);
    for (int tries = 0; tries < 3; ++tries) {
        PressKey(VK_HOME);
        PressKey(VK_END, kShift);
        PressKey(VK_DELETE);
        TypeText(value);
        if (WaitUntil([&] { return TextOf(form, box) == value; }))
            return;
    }
    Fail(box + L" shows '" + TextOf(form, box) + L"' instead of '" + value + L"'");
}

// Fills a line by its visible texts; the join stays when none is given.
inline void FillLine(HWND form, int line, const std::wstring& field, const std::wstring& predicate,
                     const std::wstring& value, const std::wstring& join = L"") {
    if (!join.empty())
        ChooseText(form, Named(L"cmbLg", line), join);
    ChooseText(form, Named(L"CmbFld", line), field);
    ChooseText(form, Named(L"CmbPredicate", line), predicate);
    TypeValue(form, line, value);
}

inline void WaitForOk(HWND form, bool enabled) {
    if (!WaitUntil([&] { return IsEnabled(form, L"CmdOk") == enabled; }))
        Fail(enabled ? L"CmdOk stays disabled" : L"CmdOk stays enabled");
}

inline void PressOk(HWND form) {
    WaitForOk(form, true);
    TabTo(form, L"CmdOk");
    PressKey(VK_SPACE);
}

inline void PressCancel() {
    PressKey(VK_ESCAPE);
}

// What the dialog says about the lines below the first: "1" enabled, "0" disabled, "?" when the
// four controls of a line do not agree, as they do for a moment while the form switches them.
inline std::wstring EnabledLines(HWND form) {
    std::wstring lines;
    for (int line = 1; line < 4; ++line) {
        const bool enabled = IsEnabled(form, Named(L"MskValue", line));
        wchar_t state = enabled ? L'1' : L'0';
        for (const wchar_t* combo : {L"cmbLg", L"CmbFld", L"CmbPredicate"})
            if (IsEnabled(form, Named(combo, line)) != enabled ||
                (IsWindowEnabled(ListOf(form, Named(combo, line))) != FALSE) != enabled)
                state = L'?';
        lines += state;
    }
    return lines;
}

inline void WaitForLines(HWND form, const std::wstring& lines) {
    if (!WaitUntil([&] { return EnabledLines(form) == lines; }))
        Fail(L"the lines are " + EnabledLines(form) + L", not " + lines);
}

inline void WaitForResult(HWND form, const std::wstring& text) {
    if (!WaitUntil([&] { return TextOf(form, L"TxtResult") == text; }))
        Fail(L"TxtResult shows '" + TextOf(form, L"TxtResult") + L"'");
}

} // namespace vndesk::test
