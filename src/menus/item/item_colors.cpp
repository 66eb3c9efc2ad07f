// SPDX-License-Identifier: MIT
#include "menus/item/item_colors.h"

namespace vndesk {

ItemColors ColorsOf(const ItemState& state, const SystemColors& system, const HostColors& host) {
    ItemColors colors;
    colors.background = state.menuBar ? system.menuBar : system.menu;
    colors.fill = state.selected ? host.selection.value_or(system.highlight) : colors.background;
    if (state.disabled) {
        colors.text = system.grayText;
        // Gray on the selection cannot be read in some colour schemes.
        if (state.selected && colors.text == colors.fill)
            colors.text = system.menu;
    } else {
        colors.text = state.selected ? system.highlightText : host.text.value_or(system.menuText);
    }
    return colors;
}

EmbossColors SeparatorColors(const SystemColors& system) {
    if (system.highContrast)
        return {std::nullopt, system.menuText};
    return {system.light, system.shadow};
}

Color Blend(Color one, Color other) {
    Color result = 0;
    for (int shift = 0; shift <= 16; shift += 8)
        result |= (((one >> shift & 0xFF) + (other >> shift & 0xFF)) / 2) << shift;
    return result;
}

} // namespace vndesk
