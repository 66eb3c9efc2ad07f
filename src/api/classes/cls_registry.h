// SPDX-License-Identifier: MIT
// clsRegistry: registry values and ODBC data sources for hosts.
#pragma once

#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

class Registry final : public ClassObject<Registry, clsRegistry, IRegistry> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsRegistry";

    STDMETHODIMP GetKeyValue(REGToolRootTypes root, BSTR* key, BSTR* name, BSTR* data,
                             VARIANT_BOOL* opened) override;
    STDMETHODIMP WriteRegEdit(REGToolRootTypes root, BSTR* key, BSTR* name, BSTR* text,
                              long* result) override;
    STDMETHODIMP Create_DSN(BSTR* name, BSTR* description, BSTR* database, BSTR* server,
                            BSTR* title, long* result) override;
    STDMETHODIMP Create_DSN_EXL(BSTR* name, BSTR* defaultFolder, BSTR* workbook, BSTR* fileType,
                                BSTR* driverId, long* result) override;
};

} // namespace vndesk
