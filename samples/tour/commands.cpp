// SPDX-License-Identifier: MIT
#include "commands.h"

#include <string>
#include <vector>

namespace {

constexpr wchar_t kSystem[] = L"&Hệ thống";
constexpr wchar_t kHelp[] = L"&Trợ giúp";

constexpr Command kCommands[] = {
    {101, kSystem, L"Đăng &nhập…\tCtrl+L", FCONTROL, 'L', &Tour::LogOn},
    {102, kSystem, L"T&hoát\tAlt+F4", 0, 0, &Tour::Quit},
    {201, kHelp, L"&Giới thiệu\tF1", 0, VK_F1, &Tour::About},
};

} // namespace

std::span<const Command> Commands() {
    return kCommands;
}

HMENU CreateCommandMenu() {
    const HMENU bar = CreateMenu();
    HMENU popup = nullptr;
    const wchar_t* menu = nullptr;
    for (const Command& command : Commands()) {
        if (command.menu != menu) {
            menu = command.menu;
            popup = CreatePopupMenu();
            AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), menu);
        }
        AppendMenuW(popup, MF_STRING, command.id, command.text);
    }
    return bar;
}

HACCEL CreateCommandKeys() {
    std::vector<ACCEL> keys;
    for (const Command& command : Commands())
        if (command.key)
            keys.push_back(
                {static_cast<BYTE>(FVIRTKEY | command.keyModifiers), command.key, command.id});
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

bool RunCommand(Tour& tour, WORD id) {
    for (const Command& command : Commands())
        if (command.id == id) {
            (tour.*command.run)();
            return true;
        }
    return false;
}
