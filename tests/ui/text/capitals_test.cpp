// SPDX-License-Identifier: MIT
// The library's own table of capitals beside the platform's.
#include "text/capitals.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace vndesk::test {
namespace {

TEST(CapitalsOfThePlatform, AreTheSameForEveryLetterOfTheTable) {
    int letters = 0;
    for (const SmallLetters& row : kSmallLetters)
        for (int small = row.first; small <= row.last; small += row.step) {
            wchar_t letter = static_cast<wchar_t>(small);
            CharUpperBuffW(&letter, 1);
            EXPECT_EQ(letter, ToCapital(static_cast<wchar_t>(small))) << std::hex << small;
            ++letters;
        }
    EXPECT_GT(letters, 300);
}

} // namespace
} // namespace vndesk::test
