// SPDX-License-Identifier: MIT
// Numbers of the DLL's own pictures and of the manifest of its windows; the resource scripts read
// this file too.
#pragma once

// Not 2: the loader reads a manifest of that number each time it loads the DLL.
#define kManifestControls 3
#define kImageEmblem 101
#define kImageLogon 102
