// SPDX-License-Identifier: MIT
// Counts of what a process holds, to compare before and after. Take the first count after a
// warm-up round: the first font, window or statement fills caches that stay.
#pragma once
#include <cstddef>

namespace vndesk::test {

long GdiObjects();
// The same without device contexts, regions and surfaces: Wine keeps released contexts, with a
// surface and one or two regions each. How many there are depends on which windows had the time to
// paint.
long GdiObjectsBesideContexts();
// On Wine a sweep over all handle values (windows, menus, icons and cursors): about a second.
long UserObjects();
// Allocated blocks of all heaps of the process, and their bytes.
struct HeapUse {
    size_t blocks = 0;
    size_t bytes = 0;
};
HeapUse HeapInUse();
// Memory that the process has for itself alone, heaps and stacks included.
size_t PrivateBytes();

} // namespace vndesk::test
