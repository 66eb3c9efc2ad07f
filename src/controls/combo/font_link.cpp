// SPDX-License-Identifier: MIT
#include "controls/combo/font_link.h"

namespace vndesk {

class FontLink::Sink final : public ComObject<IPropertyNotifySink> {
public:
    explicit Sink(FontLink& link) : link_(&link) {}
    void Disconnect() { link_ = nullptr; }

    STDMETHODIMP OnChanged(DISPID) override {
        return link_ ? Trap([&] { link_->onChange_(); }).code : S_OK;
    }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

private:
    FontLink* link_;
};

FontLink::FontLink(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

FontLink::~FontLink() {
    Disconnect();
}

void FontLink::Set(IUnknown* font) {
    ComPtr<IFont> asked;
    if (!font || FAILED(font->QueryInterface(IID_PPV_ARGS(&asked))))
        throw ComError(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
    Disconnect();
    font_ = std::move(asked);
    // A font without a connection point for IPropertyNotifySink is shown as it is now.
    ComPtr<IConnectionPointContainer> container;
    if (FAILED(font_.As(&container)) ||
        FAILED(container->FindConnectionPoint(__uuidof(IPropertyNotifySink), &point_)))
        return;
    sink_ = MakeCom<Sink>(*this);
    if (FAILED(point_->Advise(sink_.Get(), &cookie_)))
        point_.Reset();
}

HFONT FontLink::Handle() const {
    HFONT handle = nullptr;
    if (font_)
        font_->get_hFont(&handle);
    return handle;
}

void FontLink::Disconnect() {
    if (point_)
        point_->Unadvise(cookie_);
    if (sink_)
        sink_->Disconnect();
    point_.Reset();
    sink_.Reset();
    font_.Reset();
}

ComPtr<IFont> MakeFont(FONTDESC description) {
    ComPtr<IFont> font;
    description.cbSizeofstruct = sizeof description;
    CheckHr(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    return font;
}

ComPtr<IFont> CopyOf(IFont* font) {
    ComPtr<IFont> copy;
    CheckHr(font->Clone(&copy));
    return copy;
}

} // namespace vndesk
