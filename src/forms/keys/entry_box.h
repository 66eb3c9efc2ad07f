// SPDX-License-Identifier: MIT
// What kind of box a window is, of the library's own forms or of a host's, whatever it was made by.
#pragma once

#include <windows.h>

namespace vndesk {

enum class EntryBox { None, Edit, Combo, Date };

EntryBox KindOfBox(HWND window);

// Whether the list or calendar of the box that a window is, or is a part of, is open.
bool HasOpenList(HWND window);

// Whether Tab comes from the form to a box: what stands in between are frames and panels. The box
// in which a grid is edited stands in the grid.
bool IsReachedByTab(HWND form, HWND box);

} // namespace vndesk
