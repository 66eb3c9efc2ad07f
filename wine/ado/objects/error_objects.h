// SPDX-License-Identifier: MIT
// The Errors collection of a connection and the Error objects in it.
#pragma once

#include <memory>

#include "ado/engine/error_log.h"
#include "ado/objects/ado_object.h"

namespace vndesk::ado {

// A copy: the log may have changed by the time the host reads it.
class ErrorObject final : public AdoObject<ErrorObject, Error, InterfaceList<IDispatch>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Error";

    explicit ErrorObject(ErrorEntry entry) : entry_(std::move(entry)) {}

    STDMETHODIMP get_Number(LONG* number) override;
    STDMETHODIMP get_Source(BSTR* source) override;
    STDMETHODIMP get_Description(BSTR* description) override;
    STDMETHODIMP get_HelpFile(BSTR* file) override;
    STDMETHODIMP get_HelpContext(LONG* context) override;
    STDMETHODIMP get_SQLState(BSTR* state) override;
    STDMETHODIMP get_NativeError(LONG* number) override;

private:
    const ErrorEntry entry_;
};

class ErrorsObject final : public AdoObject<ErrorsObject, Errors, InterfaceList<_Collection>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Errors";

    explicit ErrorsObject(std::shared_ptr<ErrorLog> log) : log_(std::move(log)) {}

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Refresh() override { return S_OK; }
    STDMETHODIMP get_Item(VARIANT index, Error** error) override;
    STDMETHODIMP Clear() override;

private:
    const std::shared_ptr<ErrorLog> log_;
};

} // namespace vndesk::ado
