// SPDX-License-Identifier: MIT
// Colours of menu items by state.
#include "menus/item/item_colors.h"

#include <gtest/gtest.h>

using namespace vndesk;

namespace {

SystemColors Plain() {
    SystemColors colors;
    colors.menu = 1;
    colors.menuBar = 2;
    colors.menuText = 3;
    colors.highlight = 4;
    colors.highlightText = 5;
    colors.grayText = 6;
    colors.light = 7;
    colors.shadow = 8;
    return colors;
}

ItemState State(bool selected, bool disabled = false) {
    ItemState state;
    state.selected = selected;
    state.disabled = disabled;
    return state;
}

TEST(ItemColors, SystemColoursWithoutTheHosts) {
    const ItemColors normal = ColorsOf(State(false), Plain(), {});
    EXPECT_EQ(1u, normal.background);
    EXPECT_EQ(1u, normal.fill);
    EXPECT_EQ(3u, normal.text);
    const ItemColors selected = ColorsOf(State(true), Plain(), {});
    EXPECT_EQ(1u, selected.background);
    EXPECT_EQ(4u, selected.fill);
    EXPECT_EQ(5u, selected.text);
}

TEST(ItemColors, HostsColours) {
    const HostColors host = {0x0000FFu, 0x00FF00u};
    EXPECT_EQ(0x0000FFu, ColorsOf(State(false), Plain(), host).text);
    EXPECT_EQ(0x00FF00u, ColorsOf(State(true), Plain(), host).fill);
    EXPECT_EQ(5u, ColorsOf(State(true), Plain(), host).text) << "selected text is the system's";
    EXPECT_EQ(0u, ColorsOf(State(false), Plain(), {0u, {}}).text) << "black, asked for";
}

TEST(ItemColors, DisabledTextIsGray) {
    EXPECT_EQ(6u, ColorsOf(State(false, true), Plain(), {0x0000FFu, {}}).text);
    EXPECT_EQ(6u, ColorsOf(State(true, true), Plain(), {}).text);
    EXPECT_EQ(4u, ColorsOf(State(true, true), Plain(), {}).fill);
    EXPECT_EQ(1u, ColorsOf(State(true, true), Plain(), {{}, 6u}).text)
        << "never gray on the same gray";
}

TEST(ItemColors, MenuBarHasItsOwnBackground) {
    ItemState state;
    state.menuBar = true;
    EXPECT_EQ(2u, ColorsOf(state, Plain(), {}).background);
    EXPECT_EQ(2u, ColorsOf(state, Plain(), {}).fill);
}

TEST(ItemColors, SeparatorCaptionIsEmbossedExceptInHighContrast) {
    SystemColors colors = Plain();
    EXPECT_EQ(7u, SeparatorColors(colors).below);
    EXPECT_EQ(8u, SeparatorColors(colors).text);
    colors.highContrast = true;
    EXPECT_FALSE(SeparatorColors(colors).below.has_value());
    EXPECT_EQ(3u, SeparatorColors(colors).text);
}

TEST(ItemColors, BlendIsHalfWay) {
    EXPECT_EQ(0x7F7F7Fu, Blend(0xFFFFFF, 0));
    EXPECT_EQ(0x402010u, Blend(0x804020, 0));
    EXPECT_EQ(0x123456u, Blend(0x123456, 0x123456));
}

} // namespace
