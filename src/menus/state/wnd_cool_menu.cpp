// SPDX-License-Identifier: MIT
#include "menus/state/wnd_cool_menu.h"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "menus/state/window_calls.h"

namespace vndesk {

void WndCoolMenu::SetFontName(std::wstring name) {
    fontName_ = std::move(name);
    fonts_ = BuildMenuFonts(hWnd, fontName_, fontSize_);
}

void WndCoolMenu::SetFontSize(long points) {
    fontSize_ = points;
    fonts_ = BuildMenuFonts(hWnd, fontName_, fontSize_);
}

const MenuFonts& WndCoolMenu::Fonts() {
    if (!fonts_.item || fonts_.dpi != DpiOf(hWnd))
        fonts_ = BuildMenuFonts(hWnd, fontName_, fontSize_);
    return fonts_;
}

void WndCoolMenu::SetMainPopedIndex(const std::wstring& index) {
    popedIndex_ = static_cast<short>(std::wcstol(index.c_str(), nullptr, 10));
}

void WndCoolMenu::AddMenuHead(HMENU menu) {
    if (HasMenuHead(menu))
        return;
    heads_.back() = menu;
    heads_.push_back(nullptr);
}

HMENU WndCoolMenu::GetMenuHead(long index) const {
    return index >= 0 && index < static_cast<long>(heads_.size())
               ? heads_[static_cast<std::size_t>(index)]
               : nullptr;
}

bool WndCoolMenu::HasMenuHead(HMENU menu) const {
    return std::find(heads_.begin(), heads_.end(), menu) != heads_.end();
}

void WndCoolMenu::ForgetDeadHeads() {
    std::erase_if(heads_, [](HMENU menu) { return menu && !IsMenu(menu); });
    std::erase_if(shortcutWidths, [](const auto& entry) { return !IsMenu(entry.first); });
}

} // namespace vndesk
