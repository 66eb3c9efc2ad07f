// SPDX-License-Identifier: MIT
// Fonts are shared by the forms of all threads and go with the last control that has them.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <vector>

#include "forms/look/font.h"
#include "support/in_threads.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

constexpr int kDpi = 96;

TEST(FontTest, ControlsOfOneFaceAndSizeShareAFontWhileOneHasIt) {
    const FontSpec design = {L"Arial", 31};
    auto first = Font::Get(design, kDpi);
    EXPECT_EQ(first, Font::Get(design, kDpi));
    EXPECT_NE(first, Font::Get(design, 2 * kDpi));
    EXPECT_NE(first, Font::Get({L"Arial", 31, true}, kDpi));
    const std::weak_ptr<Font> gone = first;
    first.reset();
    EXPECT_TRUE(gone.expired());
}

// A font may go in one thread while another asks for it.
TEST(FontTest, EveryThreadGetsAFontAtAnyMoment) {
    const int rounds = Rounds(20000, 500000);
    // Many others make the search long.
    std::vector<std::shared_ptr<Font>> others;
    for (int i = 0; i < 300; ++i)
        others.push_back(Font::Get({L"Arial", 100.0 + i}, kDpi));
    std::atomic<int> missing{0};
    InThreads(3, COINIT_APARTMENTTHREADED, 300000, [&](int) {
        for (int i = 0; i < rounds; ++i)
            if (!Font::Get({L"Arial", 8}, kDpi))
                ++missing;
    });
    EXPECT_EQ(0, missing);
}

} // namespace
} // namespace vndesk::test
