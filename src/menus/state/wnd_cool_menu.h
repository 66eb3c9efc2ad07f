// SPDX-License-Identifier: MIT
// One window whose menus the library draws: what its host set, its fonts, and where the user is in
// the menu.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "comkit/base/module.h"
#include "menus/item/item_colors.h"
#include "menus/state/image_source.h"
#include "menus/state/menu_fonts.h"

namespace vndesk {

// Told which item the user is on: caption, help text, whether it is enabled.
using MenuHelp = std::function<void(const std::wstring&, const std::wstring&, bool)>;

class WndCoolMenu {
public:
    // The frame menu that is watched, until one has been seen.
    static constexpr LONG_PTR kAnyMenu = -1;
    static constexpr int kNoItem = -1;

    explicit WndCoolMenu(HWND window) : hWnd(window) {}

    const HWND hWnd;
    WNDPROC PrevProc = nullptr;
    WNDPROC Hook = nullptr; // stands before it
    ImageSource ilHandle;
    MenuHelp HelpObj;
    bool ComplexChecks = true;
    bool ColorEmbossed = true;
    bool RightToLeft = false;
    bool FullSelect = true;
    LONG_PTR SCMainMenu = 0;

    // Until the host sets them, ForeColor reads black and the system's colours are drawn with.
    Color ForeColor() const { return hostColors_.text.value_or(0); }
    void SetForeColor(Color color) { hostColors_.text = color; }
    Color SelectColor() const { return hostColors_.selection.value_or(systemSelection_); }
    void SetSelectColor(Color color) { hostColors_.selection = color; }
    void SetSystemSelection(Color color) { systemSelection_ = color; }
    const HostColors& Colors() const { return hostColors_; }

    const std::wstring& FontName() const { return fontName_; }
    void SetFontName(std::wstring name);
    long FontSize() const { return fontSize_; }
    void SetFontSize(long points);
    // The fonts for the window's resolution; built when that changed.
    const MenuFonts& Fonts();
    void DropFonts() { fonts_ = {}; }
    HFONT MenuFont() const { return fonts_.item.get(); }
    HFONT MenuFontSep() const { return fonts_.separator.get(); }

    // The index of the menu-bar item whose popup is open; -1 for none.
    int PopedIndex() const { return popedIndex_; }
    void SetPopedIndex(int index) { popedIndex_ = static_cast<short>(index); }
    // The same as decimal text.
    std::wstring MainPopedIndex() const { return std::to_wstring(popedIndex_); }
    void SetMainPopedIndex(const std::wstring& index);

    // The menus that were converted. The array ends with one zero.
    void AddMenuHead(HMENU menu);
    long CountMenuHeads() const { return static_cast<long>(heads_.size()) - 1; }
    HMENU GetMenuHead(long index) const;
    bool HasMenuHead(HMENU menu) const;
    void ForgetDeadHeads();

    // The widest shortcut of a menu, measured when its popup opens.
    std::map<HMENU, int> shortcutWidths;
    // The item of the menu bar under the mouse.
    int hoveredItem = kNoItem;

private:
    ModuleLock lock_; // the hook is code of this module
    HostColors hostColors_;
    Color systemSelection_ = 0;
    std::wstring fontName_;
    long fontSize_ = 8;
    MenuFonts fonts_;
    short popedIndex_ = kNoItem;
    std::vector<HMENU> heads_{nullptr};
};

} // namespace vndesk
