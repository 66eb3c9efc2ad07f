// SPDX-License-Identifier: MIT
// Numbers of the DLL's own pictures and of the manifest of its windows; the resource scripts read
// this file too.
#pragma once

// Not 2: a DLL's manifest of that number is read by the loader, at each loading.
#define kManifestControls 3
#define kImageEmblem 101
#define kImageLogon 102
