// SPDX-License-Identifier: MIT
// Menus of several threads' windows, installed, drawn and taken back at the same moment: each
// thread has its own, and every item looks as when it is drawn alone.
#include <atomic>
#include <memory>

#include "ui/menus/menu_canvas.h"

#include "support/in_threads.h"
#include "support/reliability.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kThreads = 4;
constexpr DWORD kPatienceWithThreads = 60000;

using Items = std::vector<std::unique_ptr<Canvas>>;

Items DrawItems(const MenuHost& host) {
    Items items;
    for (UINT i = kOpenAt; i <= kExitAt; ++i) {
        const SIZE size = MeasureItem(host, host.File(), i);
        items.push_back(std::make_unique<Canvas>(size.cx, size.cy));
        PaintItem(host, host.File(), i, i % 2 ? ODS_SELECTED : 0u, *items.back());
    }
    return items;
}

bool SameLook(const Items& one, const Items& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const auto& a, const auto& b) { return *a == *b; });
}

TEST(MenuThreads, EachInstallsDrawsAndTakesBackItsOwn) {
    const Pictures pictures;
    const MenuHost alone;
    const MenuLines before = Describe(alone.Bar());
    Items expected;
    {
        const InstalledMenu menu(alone, InstalledMenu::Missing(), pictures.Handle());
        expected = DrawItems(alone);
    }
    std::atomic<int> arrived{0};
    InThreads(kThreads, COINIT_APARTMENTTHREADED, kPatienceWithThreads, [&](int) {
        const Pictures own; // an image list serves one thread
        const MenuHost host;
        ++arrived;
        EXPECT_TRUE(PumpUntil([&] { return arrived == kThreads; }));
        for (int round = Rounds(20, 1000); round > 0 && !testing::Test::HasFailure(); --round) {
            const InstalledMenu menu(host, InstalledMenu::Missing(), own.Handle());
            EXPECT_TRUE(SameLook(expected, DrawItems(host)));
        }
        EXPECT_EQ(before, Describe(host.Bar()));
    });
}

TEST(MenuThreads, WindowOfAnotherThreadIsRefusedAndChangesNothing) {
    const MenuHost host;
    const MenuLines before = Describe(host.Bar());
    const LONG_PTR procedure = host.Procedure();
    InThreads(1, COINIT_APARTMENTTHREADED, kPatienceWithThreads, [&](int) {
        VARIANT_BOOL done = VARIANT_TRUE;
        EXPECT_SUCCEEDED(CreateCoolMenu()->Install(host.Handle(), InstalledMenu::Missing(),
                                                   InstalledMenu::Missing(), &done));
        EXPECT_EQ(VARIANT_FALSE, done);
    });
    EXPECT_EQ(before, Describe(host.Bar()));
    EXPECT_EQ(procedure, host.Procedure());
}

} // namespace
} // namespace vndesk::test
