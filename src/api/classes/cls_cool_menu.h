// SPDX-License-Identifier: MIT
// clsCoolMenu: menus of a host's window, drawn by the library.
#pragma once

#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

class CoolMenu final : public ClassObject<CoolMenu, clsCoolMenu, ICoolMenu> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsCoolMenu";

    STDMETHODIMP Install(long window, VARIANT help, VARIANT images, VARIANT_BOOL* done) override;
    STDMETHODIMP FontName(long window, VARIANT value, BSTR* result) override;
    STDMETHODIMP FontSize(long window, VARIANT value, long* result) override;
    STDMETHODIMP ForeColor(long window, VARIANT value, long* result) override;
    STDMETHODIMP SelectColor(long window, VARIANT value, long* result) override;
    STDMETHODIMP ComplexChecks(long window, VARIANT value, VARIANT_BOOL* result) override;
    STDMETHODIMP ColorEmbossed(long window, VARIANT value, VARIANT_BOOL* result) override;
    STDMETHODIMP RightToLeft(long window, VARIANT value, VARIANT_BOOL* result) override;
    STDMETHODIMP FullSelect(long window, VARIANT value, VARIANT_BOOL* result) override;
    STDMETHODIMP Uninstall(long window, VARIANT_BOOL* done) override;
    STDMETHODIMP MDIChildMenu(long child) override;
};

} // namespace vndesk
