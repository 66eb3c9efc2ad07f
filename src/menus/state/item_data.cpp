// SPDX-License-Identifier: MIT
#include "menus/state/item_data.h"

#include <atomic>

#include "menus/state/duplicate_key.h"

namespace vndesk {

namespace {

std::atomic<ULONG> lastNumber{0x4D000000};

} // namespace

CMyItemData& CMyItemDatas::Add(ULONG_PTR key) {
    auto made = std::make_unique<CMyItemData>();
    made->number = key;
    const auto [place, added] = items_.try_emplace(key, std::move(made));
    if (!added)
        ThrowDuplicateKey();
    return *place->second;
}

CMyItemData* CMyItemDatas::Item(ULONG_PTR key) const {
    const auto found = items_.find(key);
    return found == items_.end() ? nullptr : found->second.get();
}

ULONG_PTR CMyItemDatas::NextNumber() {
    return ++lastNumber;
}

} // namespace vndesk
