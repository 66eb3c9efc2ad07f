// SPDX-License-Identifier: MIT
// ADODB.Connection.
#pragma once

#include <memory>
#include <string>

#include "ado/engine/error_log.h"
#include "ado/engine/session.h"
#include "ado/objects/connection_refused.h"

namespace vndesk::ado {

class ConnectionObject final : public ConnectionRefused<ConnectionObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Connection";

    // For record sets whose connection is given as text. Throws as Open fails.
    void OpenWith(const std::wstring& connectionString, const std::wstring& user,
                  const std::wstring& password);
    std::shared_ptr<Session> OpenedSession() override { return session_; }

    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    STDMETHODIMP get_ConnectionString(BSTR* text) override;
    STDMETHODIMP put_ConnectionString(BSTR text) override;
    STDMETHODIMP get_Provider(BSTR* name) override;
    STDMETHODIMP put_Provider(BSTR name) override;
    STDMETHODIMP Open(BSTR connectionString, BSTR user, BSTR password, LONG options) override;
    STDMETHODIMP Close() override;
    STDMETHODIMP Execute(BSTR command, VARIANT* affected, LONG options,
                         _Recordset** recordset) override;
    STDMETHODIMP get_State(LONG* state) override;
    STDMETHODIMP get_Errors(Errors** errors) override;
    STDMETHODIMP get_Properties(Properties** properties) override;
    STDMETHODIMP BeginTrans(LONG* level) override;
    STDMETHODIMP CommitTrans() override;
    STDMETHODIMP RollbackTrans() override;
    STDMETHODIMP OpenSchema(SchemaEnum schema, VARIANT restrictions, VARIANT id,
                            _Recordset** recordset) override;

private:
    Session& RequireSession() const;
    void RequireClosed() const;

    std::wstring connectionString_;
    std::wstring provider_;
    const std::shared_ptr<ErrorLog> log_ = std::make_shared<ErrorLog>();
    std::shared_ptr<Session> session_; // null while closed
};

} // namespace vndesk::ado
