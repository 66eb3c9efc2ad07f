// SPDX-License-Identifier: MIT
// What is allocated from the heaps of the process, and the memory below them.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <windows.h>

#include "support/env.h"
#include "support/leak_probe.h"

namespace vndesk::test {
namespace {

// Newer Wine versions serve a size that is asked for often from groups of 31 places. HeapWalk knows
// the group alone, as one block in use, and so tells of lumps of some kilobytes which come and go
// with the first and the last of their places. What is in use in a group stands in its places.
constexpr size_t kPlaces = 31;
constexpr size_t kUnit = 2 * sizeof(void*); // of sizes
constexpr BYTE kFree = 0x01, kGroup = 0x80;

struct alignas(8) BlockHeader { // before the bytes of each block
    WORD units;                 // with this header
    WORD unused;                // bytes at the end
    WORD place;                 // in the group
    BYTE kind, flags;
};

struct Group {
    SLIST_ENTRY next;
    LONG freePlaces, affinity;
    BlockHeader first;

    const BlockHeader& Place(size_t number) const {
        return *reinterpret_cast<const BlockHeader*>(reinterpret_cast<const BYTE*>(&first) +
                                                     number * first.units * kUnit);
    }
};

// Everything must fit: the flag alone could be another one's in another version.
const Group* GroupIn(const PROCESS_HEAP_ENTRY& block) {
    const auto* header = static_cast<const BlockHeader*>(block.lpData) - 1;
    if (block.cbData < sizeof(Group) || !(header->flags & kGroup))
        return nullptr;
    const auto* group = static_cast<const Group*>(block.lpData);
    const size_t size = offsetof(Group, first) + kPlaces * group->first.units * kUnit;
    if (group->first.units == 0 || block.cbData != size)
        return nullptr;
    for (size_t i = 0; i < kPlaces; ++i)
        if (group->Place(i).place != i || group->Place(i).units != group->first.units)
            return nullptr;
    return group;
}

void Add(HeapUse& use, const Group& group) {
    for (size_t i = 0; i < kPlaces; ++i) {
        const BlockHeader& place = group.Place(i);
        if (place.flags & kFree)
            continue;
        ++use.blocks;
        use.bytes += place.units * kUnit - sizeof place - place.unused;
    }
}

} // namespace

HeapUse HeapInUse() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), std::size(heaps));
    const bool mayHaveGroups = RunningUnderWine();
    HeapUse use;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            if (!(entry.wFlags & PROCESS_HEAP_ENTRY_BUSY))
                continue;
            if (const Group* group = mayHaveGroups ? GroupIn(entry) : nullptr) {
                Add(use, *group);
                continue;
            }
            ++use.blocks;
            use.bytes += entry.cbData;
        }
        HeapUnlock(heaps[i]);
    }
    return use;
}

// Walked: Wine's process counters know nothing of it.
size_t PrivateBytes() {
    size_t bytes = 0;
    MEMORY_BASIC_INFORMATION region = {};
    for (const BYTE* at = nullptr; VirtualQuery(at, &region, sizeof region) == sizeof region;
         at = static_cast<const BYTE*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            bytes += region.RegionSize;
    return bytes;
}

} // namespace vndesk::test
