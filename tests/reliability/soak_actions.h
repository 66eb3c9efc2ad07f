// SPDX-License-Identifier: MIT
// What a user might do next: an action chosen at random, by weight, among those that the window in
// front allows.
#pragma once
#include <windows.h>

#include <string>

#include "support/dice.h"

namespace vndesk::test {

// The window in front of the watched program, which alone takes input.
struct Scene {
    enum class Kind { kNone, kMain, kMenu, kMoving, kForm, kMessage, kPlainBox };
    Kind kind = Kind::kNone;
    HWND window = nullptr;

    bool operator==(const Scene&) const = default;
};

Scene LookAt(HWND mainWindow);
std::wstring Describe(const Scene& scene);

// Does one thing to the window in front and says what it was.
std::wstring ActAtRandom(const Scene& scene, Dice& dice);
// One step of a user who wants to get out: the cancel key, else the first button.
std::wstring StepBack(const Scene& scene, int attempt);

} // namespace vndesk::test
