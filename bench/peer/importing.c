/* SPDX-License-Identifier: MIT
 * One function of each library that vndesk.dll imports, so that they are loaded with this DLL too. */
#include <windows.h>

#include <oleauto.h>
#include <stdlib.h>

const void* volatile imported;

void UseImports(void) {
    imported = RegCloseKey;
    imported = DeleteDC;
    imported = malloc;
    imported = CoTaskMemFree;
    imported = VariantClear;
    imported = GetDC;
}
