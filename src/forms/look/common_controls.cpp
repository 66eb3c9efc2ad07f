// SPDX-License-Identifier: MIT
#include "forms/look/common_controls.h"

#include "comkit/base/library.h"
#include "forms/look/theme_scope.h"

namespace vndesk {

namespace {

CommonControls FindAll() {
    const ThemeScope manifest;
    CommonControls found;
    const Library controls(L"comctl32.dll");
    controls.Find(found.SetWindowSubclass, "SetWindowSubclass");
    controls.Find(found.DefSubclassProc, "DefSubclassProc");
    controls.Find(found.RemoveWindowSubclass, "RemoveWindowSubclass");
    controls.Find(found.ImageList_Draw, "ImageList_Draw");
    controls.Find(found.ImageList_GetIcon, "ImageList_GetIcon");
    controls.Find(found.ImageList_GetIconSize, "ImageList_GetIconSize");
    controls.Find(found.ImageList_GetImageCount, "ImageList_GetImageCount");
    const Library themes(L"uxtheme.dll");
    themes.Find(found.OpenThemeData, "OpenThemeData");
    themes.Find(found.CloseThemeData, "CloseThemeData");
    themes.Find(found.DrawThemeBackground, "DrawThemeBackground");
    themes.Find(found.IsThemePartDefined, "IsThemePartDefined");
    themes.Find(found.SetWindowTheme, "SetWindowTheme");
    return found;
}

} // namespace

const CommonControls& Controls6() {
    static const CommonControls found = FindAll();
    return found;
}

} // namespace vndesk
