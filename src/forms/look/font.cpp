// SPDX-License-Identifier: MIT
#include "forms/look/font.h"

#include <cmath>
#include <vector>

#include "comkit/base/lock.h"

namespace vndesk {

namespace {

struct CacheEntry {
    FontSpec design;
    int dpi;
    std::weak_ptr<Font> font;
};

// Hosts may have forms in several threads.
SRWLOCK lock_ = SRWLOCK_INIT;

std::wstring& DefaultName() {
    static std::wstring name;
    return name;
}

} // namespace

Font::Font(const FontSpec& design, int dpi)
    : handle_(CreateFontW(-static_cast<int>(std::lround(design.points * dpi / 72)), 0, 0, 0,
                          design.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                          OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                          DEFAULT_PITCH | FF_DONTCARE, design.name.c_str())) {}

std::shared_ptr<Font> Font::Get(const FontSpec& design, int dpi) {
    static std::vector<CacheEntry> cache;
    const Writing writing(lock_);
    // Other threads release their fonts at any time: an entry counts only while somebody holds it.
    for (const CacheEntry& entry : cache)
        if (entry.dpi == dpi && entry.design == design)
            if (auto held = entry.font.lock())
                return held;
    std::erase_if(cache, [](const CacheEntry& entry) { return entry.font.expired(); });
    auto font = std::make_shared<Font>(design, dpi);
    cache.push_back({design, dpi, font});
    return font;
}

void SetDefaultFontName(const std::wstring& name) {
    const Writing writing(lock_);
    DefaultName() = name;
}

std::wstring DefaultFontName() {
    const Writing writing(lock_);
    return DefaultName();
}

} // namespace vndesk
