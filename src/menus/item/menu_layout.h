// SPDX-License-Identifier: MIT
// Where the pieces of a menu item stand: pure arithmetic on rectangles of pixels.
#pragma once

namespace vndesk {

struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool operator==(const Box&) const = default;
};

struct Extent {
    int width = 0;
    int height = 0;

    bool operator==(const Extent&) const = default;
};

// What the measures of a menu depend on besides its texts.
struct MenuMetrics {
    int imageSize = 16; // of the picture beside an item
    int dpi = 96;       // gaps are given for 96 and grow with it
    int minimumHeight = 0;
    int checkWidth = 0; // what Windows adds to every popup item
    int extraWidth = 0;
};

// Between the column of texts and the one of shortcuts.
int ShortcutGap(const MenuMetrics& metrics);

// `text` is the extent of the whole caption, columns and gap included.
Extent MeasureItem(Extent text, bool menuBar, const MenuMetrics& metrics);

struct ItemLayout {
    Box image; // the frame; the picture stands in its middle
    Box picture;
    Box text;
    Box shortcut; // empty without a shortcut column
    Box arrow;
    Box selection; // what is filled when the item is selected
};

struct LayoutOptions {
    bool rightToLeft = false;
    bool fullSelect = true;
    int shortcutWidth = 0; // of the widest one in the menu; 0 for an item without a shortcut
};

ItemLayout LayoutItem(const Box& item, const LayoutOptions& options, const MenuMetrics& metrics);

// A square of the given side in the middle of a box, made smaller when it does not fit.
Box Centred(const Box& box, int side);

// The place of the etched line of a separator: its middle, less one pixel.
int SeparatorLine(const Box& item);

} // namespace vndesk
