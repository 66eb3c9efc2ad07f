// SPDX-License-Identifier: MIT
#include "menus/item/menu_layout.h"

#include <algorithm>

namespace vndesk {

namespace {

constexpr int kPlainDpi = 96;
constexpr int kFrame = 2;      // around the picture, at each side
constexpr int kTextGap = 4;    // between the frame and the text
constexpr int kColumnGap = 16; // between text and shortcut
constexpr int kArrowRoom = 2;  // beside the submenu arrow

int Scaled(int pixels, const MenuMetrics& metrics) {
    return (pixels * metrics.dpi + kPlainDpi / 2) / kPlainDpi;
}

Box Mirrored(const Box& box, const Box& item) {
    const int sum = item.left + item.right;
    return {sum - box.right, box.top, sum - box.left, box.bottom};
}

} // namespace

int ShortcutGap(const MenuMetrics& metrics) {
    return Scaled(kColumnGap, metrics);
}

Extent MeasureItem(Extent text, bool menuBar, const MenuMetrics& metrics) {
    Extent item;
    item.height = std::max(text.height, metrics.minimumHeight);
    item.width = text.width + metrics.extraWidth;
    if (!menuBar)
        item.width += Scaled(kTextGap, metrics) + 1 +
                      2 * (metrics.imageSize + Scaled(kFrame, metrics)) - (metrics.checkWidth - 1);
    return item;
}

Box Centred(const Box& box, int side) {
    const int size = std::max(0, std::min({side, box.Width(), box.Height()}));
    const int left = box.left + (box.Width() - size) / 2;
    const int top = box.top + (box.Height() - size) / 2;
    return {left, top, left + size, top + size};
}

int SeparatorLine(const Box& item) {
    return item.top + item.Height() / 2 - 1;
}

ItemLayout LayoutItem(const Box& item, const LayoutOptions& options, const MenuMetrics& metrics) {
    const int frame = metrics.imageSize + 2 * Scaled(kFrame, metrics);
    ItemLayout layout;
    layout.image = Centred({item.left, item.top, item.left + frame, item.bottom}, frame);
    // A row lower than the frame must not move the columns.
    layout.image.left = item.left;
    layout.image.right = std::min(item.left + frame, item.right);
    layout.picture = Centred(layout.image, metrics.imageSize);

    const int arrow = std::max(0, metrics.imageSize - Scaled(kArrowRoom, metrics));
    layout.arrow = {std::max(item.left, item.right - arrow), item.top, item.right, item.bottom};
    layout.text = {std::min(layout.image.right + Scaled(kTextGap, metrics), layout.arrow.left),
                   item.top, layout.arrow.left, item.bottom};
    if (options.shortcutWidth > 0) {
        layout.shortcut = layout.text;
        layout.shortcut.left =
            std::max(layout.text.left, layout.text.right - options.shortcutWidth);
        layout.text.right = std::max(layout.text.left, layout.shortcut.left - ShortcutGap(metrics));
    }
    layout.selection = item;
    if (!options.fullSelect)
        layout.selection.left = std::min(layout.image.right + 1, item.right);

    if (options.rightToLeft)
        for (Box* box : {&layout.image, &layout.picture, &layout.text, &layout.shortcut,
                         &layout.arrow, &layout.selection})
            if (box != &layout.shortcut || options.shortcutWidth > 0)
                *box = Mirrored(*box, item);
    return layout;
}

} // namespace vndesk
