// SPDX-License-Identifier: MIT
#include "item_data.h"

#include "duplicate_key.h"

namespace vndesk {

CMyItemData& CMyItemDatas::Add(const std::wstring& key) {
    const auto [place, added] = items_.try_emplace(key);
    if (!added)
        ThrowDuplicateKey();
    try {
        place->second = std::make_unique<CMyItemData>();
    } catch (...) {
        items_.erase(place);
        throw;
    }
    return *place->second;
}

CMyItemData* CMyItemDatas::Item(const std::wstring& key) const {
    const auto found = items_.find(key);
    return found == items_.end() ? nullptr : found->second.get();
}

} // namespace vndesk
