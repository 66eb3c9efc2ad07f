// SPDX-License-Identifier: MIT
// Numbers, one a line: an item's box, what it holds and the screen. Whatever they are, the pieces
// of the item stand inside it and the columns do not overlap.
#include "support/input.h"

#include <algorithm>

#include "menus/item/item_colors.h"
#include "menus/item/menu_layout.h"

namespace vndesk::fuzz {

namespace {

bool IsInside(const Box& box, const Box& item) {
    return box.left >= item.left && box.right <= item.right && box.top >= item.top &&
           box.bottom <= item.bottom && box.Width() >= 0 && box.Height() >= 0;
}

} // namespace

void RunOne(Input& input) {
    const auto number = [&input](int low, int high) {
        return static_cast<int>(input.Number(low, high));
    };
    Box item;
    item.left = number(-100000, 100000);
    item.top = number(-100000, 100000);
    item.right = item.left + number(0, 20000);
    item.bottom = item.top + number(0, 20000);
    MenuMetrics metrics;
    metrics.imageSize = number(0, 1000);
    metrics.dpi = number(48, 960);
    metrics.minimumHeight = number(0, 1000);
    LayoutOptions options;
    options.rightToLeft = input.Flag();
    options.fullSelect = input.Flag();
    options.shortcutWidth = number(0, 30000);

    const ItemLayout layout = LayoutItem(item, options, metrics);
    for (const Box& box :
         {layout.image, layout.picture, layout.text, layout.arrow, layout.selection})
        MUST(IsInside(box, item));
    MUST(IsInside(layout.picture, layout.image));
    if (options.shortcutWidth > 0) {
        MUST(IsInside(layout.shortcut, item));
        if (layout.text.Width() > 0 && layout.shortcut.Width() > 0)
            MUST(options.rightToLeft ? layout.shortcut.right <= layout.text.left
                                     : layout.text.right <= layout.shortcut.left);
    } else {
        MUST(layout.shortcut == Box());
    }
    const Extent text{number(0, 20000), number(0, 20000)};
    MUST(MeasureItem(text, true, metrics).width == text.width + metrics.extraWidth);
    MUST(MeasureItem(text, false, metrics).width > text.width);
    MUST(MeasureItem(text, false, metrics).height >= text.height);

    const auto one = static_cast<Color>(number(0, 0xFFFFFF)),
               other = static_cast<Color>(number(0, 0xFFFFFF));
    MUST(Blend(one, other) == Blend(other, one) && Blend(one, one) == one);
}

} // namespace vndesk::fuzz
