// SPDX-License-Identifier: MIT
#include "forms/keys/keys.h"

namespace vndesk {

void ESendKey(long key, long flags) {
    const UINT scan = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC);
    keybd_event(static_cast<BYTE>(key), static_cast<BYTE>(scan), static_cast<DWORD>(flags), 0);
}

void Gui_Phim(long key, long shift) {
    constexpr long kModifiers[] = {0, VK_SHIFT, VK_CONTROL, VK_MENU};
    const long modifier = shift >= 1 && shift <= 3 ? kModifiers[shift] : 0;
    if (modifier)
        ESendKey(modifier, 0);
    ESendKey(key, 0);
    ESendKey(key, KEYEVENTF_KEYUP);
    if (modifier)
        ESendKey(modifier, KEYEVENTF_KEYUP);
}

bool EnterAsTab(wchar_t character) {
    if (character != L'\r')
        return false;
    Gui_Phim(VK_TAB, 0);
    return true;
}

bool IsDeleteAlone(WPARAM key) {
    return key == VK_DELETE && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_CONTROL) >= 0;
}

} // namespace vndesk
