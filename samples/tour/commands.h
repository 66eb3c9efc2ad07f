// SPDX-License-Identifier: MIT
// The menu as a table. A new command is one row here and one function of Tour.
#pragma once
#include <windows.h>

#include <span>

#include "tour.h"

struct Command {
    WORD id;
    const wchar_t* menu; // rows with the same text stand in one menu; one after another
    const wchar_t* text; // the letter after & chooses it, what follows \t names its key
    BYTE keyModifiers;   // FCONTROL, FSHIFT
    WORD key;            // virtual key, 0 for none
    void (Tour::*run)();
};

std::span<const Command> Commands();

HMENU CreateCommandMenu();
HACCEL CreateCommandKeys();
// False when no command has that number.
bool RunCommand(Tour& tour, WORD id);
