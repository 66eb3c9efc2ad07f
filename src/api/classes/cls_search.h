// SPDX-License-Identifier: MIT
// clsSearch: the search dialog over one table of a host's database.
#pragma once

#include <string>

#include "api/classes/governed.h"
#include "comkit/object/dispatch.h"
#include "data/connect/ado.h"
#include "find/find_dialog.h"
#include "vndesk_idl.h"

namespace vndesk {

class Search final : public Governed<ClassObject<Search, clsSearch, ISearch2>, ISearch> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsSearch";

    STDMETHODIMP get_ActiveConnection(VARIANT* value) override;
    STDMETHODIMP put_ActiveConnection(VARIANT value) override;
    STDMETHODIMP get_TableSearch(BSTR* value) override;
    STDMETHODIMP put_TableSearch(BSTR value) override;
    STDMETHODIMP get_Result(BSTR* value) override;
    STDMETHODIMP Show(long* modal, VARIANT ownerForm) override;
    STDMETHODIMP get_ParameterizedResult(BSTR* value) override;
    STDMETHODIMP get_Parameters(VARIANT* value) override;
    STDMETHODIMP get_ParameterTypes(VARIANT* value) override;
    STDMETHODIMP CreateCommand(BSTR selectText, VARIANT connection, IDispatch** command) override;

private:
    _Connection& Connection();
    void CheckConnection(HRESULT code);

    std::wstring ConnectionText();
    bool ConnectionIsOpen();
    // The one that CreateCommand has opened: the server may have gone since. A host's own stays as
    // it is.
    void CloseLostConnection();
    // What CreateCommand works on.
    AdoConnection ConnectionFor(const VARIANT& given);

    // Made when it is first asked for. It holds the connection string; only CreateCommand opens it.
    AdoConnection connection_;
    std::wstring opened_; // by CreateCommand: with this string
    std::wstring table_;
    SearchCondition condition_; // of the last Show
};

} // namespace vndesk
