// SPDX-License-Identifier: MIT
// The menu as a table. A new command is one row here and one function of Tour.
#pragma once
#include <windows.h>

#include <span>

#include "tour.h"

struct Command {
    WORD id;
    const wchar_t* menu; // rows with the same text stand in one menu, one after another
    const wchar_t* text; // the letter after & chooses it, what follows \t names its key
    const wchar_t* help; // for the status bar
    BYTE keyModifiers;   // FCONTROL, FSHIFT
    WORD key;            // virtual key, 0 for none
    long right;          // SubMenu.ID of the right that it needs, 0 when everybody may run it
    void (Tour::*run)();
};

std::span<const Command> Commands();

HMENU CreateCommandMenu();
HACCEL CreateCommandKeys();

// Enables the commands that may run now and greys the others. The same answer as RunCommand gives.
void EnableCommands(HMENU bar, const Tour& tour);
// The texts of the enabled commands, as a user reads them.
std::wstring EnabledCommands(const Tour& tour);

// False when no command has that number. One that must not run does nothing.
bool RunCommand(Tour& tour, WORD id);
