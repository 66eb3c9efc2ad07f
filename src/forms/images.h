// SPDX-License-Identifier: MIT
// Numbers of the DLL's own pictures; the resource script reads this file too.
#pragma once

#define kImageEmblem 101
#define kImageLogon 102
