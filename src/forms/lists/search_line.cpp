// SPDX-License-Identifier: MIT
#include "forms/lists/search_line.h"

namespace vndesk {

void ShowFound(Control& list, Control& nothing, bool any) {
    if (!any)
        nothing.SetColors(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT));
    list.SetVisible(any);
    nothing.SetVisible(!any);
}

bool MovesTheList(WPARAM key, const Control& list) {
    if (key != VK_DOWN && key != VK_UP && key != VK_NEXT && key != VK_PRIOR)
        return false;
    PostMessageW(list.Window(), WM_KEYDOWN, key, 0);
    return true;
}

} // namespace vndesk
