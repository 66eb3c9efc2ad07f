// SPDX-License-Identifier: MIT
// A font object of the host that a control shows its text in. The host may change the font's
// properties at any time: the link reports it.
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

    // Throws for an object that is no font.
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

// A standard font of OLE (OleCreateFontIndirect).
ComPtr<IFont> MakeFont(FONTDESC description);
// A font with the same properties; changing it does not change the other.
ComPtr<IFont> CopyOf(IFont* font);

} // namespace vndesk
