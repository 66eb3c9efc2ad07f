// SPDX-License-Identifier: MIT
// Sizes of menu items and the places of their pieces.
#include "menus/item/menu_layout.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

MenuMetrics At(int dpi) {
    MenuMetrics metrics;
    metrics.dpi = dpi;
    metrics.imageSize = 16 * dpi / 96;
    metrics.minimumHeight = 20 * dpi / 96;
    metrics.checkWidth = 15 * dpi / 96;
    return metrics;
}

const Box kItem = {0, 40, 200, 62};

TEST(MenuLayout, PopupItemIsTextAndTwoImageColumns) {
    EXPECT_EQ((Extent{100 + 4 + 1 + 2 * (16 + 2) - (15 - 1), 20}),
              MeasureItem({100, 13}, false, At(96)));
    MenuMetrics wider = At(96);
    wider.extraWidth = 7;
    EXPECT_EQ(100 + 4 + 1 + 36 - 14 + 7, MeasureItem({100, 13}, false, wider).width);
    EXPECT_EQ(107, MeasureItem({100, 13}, true, wider).width);
}

TEST(MenuLayout, MenuBarItemIsItsText) {
    EXPECT_EQ((Extent{100, 20}), MeasureItem({100, 13}, true, At(96)));
}

TEST(MenuLayout, HighTextMakesTheItemHigher) {
    EXPECT_EQ(33, MeasureItem({100, 33}, false, At(96)).height);
    EXPECT_EQ(20, MeasureItem({100, 20}, false, At(96)).height);
    EXPECT_EQ(20, MeasureItem({0, 0}, false, At(96)).height);
}

TEST(MenuLayout, ImagesAndGapsGrowWithTheResolution) {
    for (const int dpi : {96, 120, 144, 192, 240}) {
        const MenuMetrics metrics = At(dpi);
        const Box item = {0, 0, 200 * dpi / 96, metrics.minimumHeight};
        const ItemLayout layout = LayoutItem(item, {}, metrics);
        EXPECT_EQ(metrics.imageSize, layout.picture.Width()) << dpi;
        EXPECT_EQ(metrics.imageSize, layout.picture.Height()) << dpi;
        EXPECT_NEAR(24 * dpi / 96, layout.text.left, 1) << dpi;
        EXPECT_NEAR(16 * dpi / 96, ShortcutGap(metrics), 1) << dpi;
    }
}

TEST(MenuLayout, PiecesStandSideBySide) {
    const ItemLayout layout = LayoutItem(kItem, {false, true, 50}, At(96));
    EXPECT_EQ((Box{0, 41, 20, 61}), layout.image);
    EXPECT_EQ((Box{2, 43, 18, 59}), layout.picture);
    EXPECT_LT(layout.image.right, layout.text.left);
    EXPECT_LT(layout.text.right, layout.shortcut.left);
    EXPECT_EQ(50, layout.shortcut.Width());
    EXPECT_LE(layout.shortcut.right, layout.arrow.left);
    EXPECT_EQ(kItem.right, layout.arrow.right);
    EXPECT_EQ(kItem, layout.selection);
}

TEST(MenuLayout, MeasuredWidthHoldsAllPieces) {
    // The platform adds its check mark's width less one to what was measured.
    for (const int dpi : {96, 120, 144, 192}) {
        const MenuMetrics metrics = At(dpi);
        const int text = 90, shortcut = 40;
        const Extent measured =
            MeasureItem({text + ShortcutGap(metrics) + shortcut, 10}, false, metrics);
        const Box item = {0, 0, measured.width + metrics.checkWidth - 1, measured.height};
        const ItemLayout layout = LayoutItem(item, {false, true, shortcut}, metrics);
        EXPECT_GE(layout.text.Width(), text) << dpi;
        EXPECT_EQ(shortcut, layout.shortcut.Width()) << dpi;
    }
}

TEST(MenuLayout, ShortcutsOfAMenuBeginAtOneColumn) {
    const ItemLayout narrow = LayoutItem(kItem, {false, true, 30}, At(96));
    const ItemLayout same = LayoutItem({0, 80, 200, 100}, {false, true, 30}, At(96));
    EXPECT_EQ(narrow.shortcut.left, same.shortcut.left);
    EXPECT_EQ(narrow.text.left, same.text.left);
}

TEST(MenuLayout, RowLowerThanTheImageKeepsTheColumns) {
    const ItemLayout low = LayoutItem({0, 0, 200, 12}, {}, At(96));
    EXPECT_EQ(20, low.image.right);
    EXPECT_EQ(24, low.text.left);
    EXPECT_EQ(12, low.picture.Height()) << "the picture is made smaller";
    EXPECT_EQ(12, low.picture.Width());
}

TEST(MenuLayout, SelectionLeavesTheImageAlone) {
    const ItemLayout layout = LayoutItem(kItem, {false, false, 0}, At(96));
    EXPECT_EQ((Box{21, 40, 200, 62}), layout.selection);
}

TEST(MenuLayout, RightToLeftIsTheMirrorImage) {
    const Box item = {10, 0, 210, 22};
    const ItemLayout left = LayoutItem(item, {false, false, 50}, At(96));
    const ItemLayout right = LayoutItem(item, {true, false, 50}, At(96));
    const auto mirrored = [&](const Box& box) {
        return Box{220 - box.right, box.top, 220 - box.left, box.bottom};
    };
    EXPECT_EQ(mirrored(left.image), right.image);
    EXPECT_EQ(mirrored(left.picture), right.picture);
    EXPECT_EQ(mirrored(left.text), right.text);
    EXPECT_EQ(mirrored(left.shortcut), right.shortcut);
    EXPECT_EQ(mirrored(left.arrow), right.arrow);
    EXPECT_EQ(mirrored(left.selection), right.selection);
    EXPECT_EQ(210, right.image.right);
}

TEST(MenuLayout, NarrowItemHasNoNegativePieces) {
    for (const int width : {0, 5, 20, 30}) {
        const ItemLayout layout = LayoutItem({0, 0, width, 20}, {true, false, 100}, At(96));
        for (const Box& box : {layout.image, layout.picture, layout.text, layout.shortcut,
                               layout.arrow, layout.selection})
            EXPECT_GE(box.Width(), 0) << width;
    }
}

TEST(MenuLayout, WithoutPicturesTheArrowStaysInside) {
    MenuMetrics metrics = At(96);
    metrics.imageSize = 0;
    const ItemLayout layout = LayoutItem(kItem, {}, metrics);
    EXPECT_EQ(kItem.right, layout.arrow.left);
    EXPECT_EQ(kItem.right, layout.text.right);
}

TEST(MenuLayout, SeparatorLineIsTheMiddleLessOne) {
    EXPECT_EQ(40 + 11 - 1, SeparatorLine(kItem));
    EXPECT_EQ(9, SeparatorLine({0, 0, 10, 20}));
}

TEST(MenuLayout, CentredSquareFitsItsBox) {
    EXPECT_EQ((Box{2, 1, 12, 11}), Centred({0, 0, 14, 12}, 10));
    EXPECT_EQ((Box{3, 0, 7, 4}), Centred({0, 0, 10, 4}, 10));
    EXPECT_EQ(0, Centred({0, 0, 0, 4}, 10).Width());
}

} // namespace
