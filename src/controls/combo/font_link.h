// SPDX-License-Identifier: MIT
// A font object of the host that a control shows its text in. The host may change the font's own
// properties at any time: the link tells of it.
#pragma once

#include <windows.h>
#include <ole2.h>
#include <olectl.h>

#include <functional>

#include "comkit/object/com_object.h"

namespace vndesk {

class FontLink {
public:
    explicit FontLink(std::function<void()> onChange);
    ~FontLink();
    FontLink(const FontLink&) = delete;
    FontLink& operator=(const FontLink&) = delete;

    // Throws for what is no font.
    void Set(IUnknown* font);
    IFont* Get() const { return font_.Get(); }
    // Valid until the font changes.
    HFONT Handle() const;

private:
    class Sink;

    void Disconnect();

    std::function<void()> onChange_;
    ComPtr<IFont> font_;
    ComPtr<IConnectionPoint> point_;
    ComPtr<Sink> sink_;
    DWORD cookie_ = 0;
};

// A font of the platform's kind.
ComPtr<IFont> MakeFont(FONTDESC description);
// One with the same properties, of which changes do not reach the other.
ComPtr<IFont> CopyOf(IFont* font);

} // namespace vndesk
