// SPDX-License-Identifier: MIT
// Fonts are shared: controls that ask for the same face and size at one resolution hold one HFONT,
// which goes with the last of them.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "comkit/base/handles.h"

namespace vndesk {

struct FontSpec {
    std::wstring name;
    double points = 8;
    bool bold = false;

    bool operator==(const FontSpec&) const = default;
};

class Font {
public:
    // Never null. Its handle is null when CreateFont fails; controls then draw in the system font.
    static std::shared_ptr<Font> Get(const FontSpec& design, int dpi);

    Font(const FontSpec& design, int dpi);
    HFONT Handle() const { return handle_.get(); }

private:
    UniqueFont handle_;
};

inline constexpr wchar_t kHouseFont[] = L"Arial";

// The default font name that the host may set. An empty one becomes the house font's when the next
// form is prepared.
void SetDefaultFontName(const std::wstring& name);
std::wstring DefaultFontName();

} // namespace vndesk
