// SPDX-License-Identifier: MIT
// Which colours a menu item is drawn in. Colours are COLORREF numbers, 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <optional>

namespace vndesk {

using Color = std::uint32_t;

// The system's colours that menus use, read when an item is drawn.
struct SystemColors {
    Color menu = 0;
    Color menuBar = 0;
    Color menuText = 0;
    Color highlight = 0;
    Color highlightText = 0;
    Color grayText = 0;
    Color light = 0;  // COLOR_3DLIGHT
    Color shadow = 0; // COLOR_BTNSHADOW
    Color window = 0;
    Color windowText = 0;
    bool highContrast = false;
};

// Colours that the host set; without them the system's are taken.
struct HostColors {
    std::optional<Color> text;
    std::optional<Color> selection;
};

struct ItemState {
    bool menuBar = false;
    bool selected = false;
    bool disabled = false;
    bool checked = false;
    bool isDefault = false;
    bool hovered = false; // on the menu bar, no popup open
    bool hideMnemonics = false;
};

struct ItemColors {
    Color background = 0; // of the item
    Color fill = 0;       // of its selection; the background when it is not selected
    Color text = 0;
};

ItemColors ColorsOf(const ItemState& state, const SystemColors& system, const HostColors& host);

// Separator captions are drawn twice, one pixel apart; in high contrast once.
struct EmbossColors {
    std::optional<Color> below;
    Color text = 0;
};
EmbossColors SeparatorColors(const SystemColors& system);

// The colour between two, for disabled pictures.
Color Blend(Color one, Color other);

} // namespace vndesk
