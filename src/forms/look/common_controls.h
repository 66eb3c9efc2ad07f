// SPDX-License-Identifier: MIT
// Functions of common controls 6 and of themes, found when the first is needed. As imports they
// would load comctl32.dll and uxtheme.dll with the DLL, and under most hosts the old controls.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>

namespace vndesk {

struct CommonControls {
    decltype(&::SetWindowSubclass) SetWindowSubclass;
    decltype(&::DefSubclassProc) DefSubclassProc;
    decltype(&::RemoveWindowSubclass) RemoveWindowSubclass;

    decltype(&::ImageList_Draw) ImageList_Draw;
    decltype(&::ImageList_GetIcon) ImageList_GetIcon;
    decltype(&::ImageList_GetIconSize) ImageList_GetIconSize;
    decltype(&::ImageList_GetImageCount) ImageList_GetImageCount;

    decltype(&::OpenThemeData) OpenThemeData;
    decltype(&::CloseThemeData) CloseThemeData;
    decltype(&::DrawThemeBackground) DrawThemeBackground;
    decltype(&::IsThemePartDefined) IsThemePartDefined;
    decltype(&::SetWindowTheme) SetWindowTheme;
};

// Throws where one of them is missing.
const CommonControls& Controls6();

} // namespace vndesk
