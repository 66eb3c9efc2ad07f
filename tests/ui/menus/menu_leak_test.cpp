// SPDX-License-Identifier: MIT
// Drawn menus that are installed and opened again and again give back what they took.
#include "support/leaks.h"
#include "ui/menus/menu_host.h"

#include "support/reliability.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr int kWarmUp = 30;

int MenuRounds() {
    return Rounds(500, 1000);
}

TEST(MenuLeaks, InstallingGivesEverythingBack) {
    const Pictures pictures;
    const MenuHost host;
    ExpectNothingKept("menu installations", kWarmUp, MenuRounds(), [&] {
        const InstalledMenu menu(host, InstalledMenu::Missing(), pictures.Handle());
        long size;
        EXPECT_SUCCEEDED(menu->FontSize(host.Handle(), _variant_t(11L), &size));
    });
}

TEST(MenuLeaks, PopupsGiveEverythingBack) {
    const Pictures pictures;
    MenuHost host;
    const InstalledMenu menu(host, InstalledMenu::Missing(), pictures.Handle());
    host.Show();
    int idle = 0;
    // The popup is shown and painted when the menu waits for the user.
    host.onMessage = [&](UINT message, WPARAM, LPARAM) {
        if (message == WM_ENTERIDLE) {
            ++idle;
            EndMenu();
        }
        // Items come and go with every opening.
        if (message == WM_INITMENUPOPUP) {
            DeleteMenu(host.Recent(), 700, MF_BYCOMMAND);
            AppendMenuW(host.Recent(), MF_STRING, 700, L"&3 Hồ sơ | mới");
        }
    };
    ExpectNothingKept("popups", kWarmUp, MenuRounds(), [&] {
        SendMessageW(host.Window(), WM_SYSCOMMAND, SC_KEYMENU, 't');
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    });
    EXPECT_LE(kWarmUp + MenuRounds(), idle);
    host.onMessage = nullptr;
}

} // namespace
} // namespace vndesk::test
