// SPDX-License-Identifier: MIT
// ADODB.Connection.
#pragma once

#include <memory>
#include <string>

#include "ado/engine/error_log.h"
#include "ado/engine/session.h"
#include "ado/objects/ado_object.h"
#include "ado/objects/session_source.h"

namespace vndesk::ado {

class ConnectionObject final : public AdoObject<ConnectionObject, _Connection,
                                                InterfaceList<Connection15, _ADO>, ISessionSource> {
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
    STDMETHODIMP BeginTrans(LONG* level) override;
    STDMETHODIMP CommitTrans() override;
    STDMETHODIMP RollbackTrans() override;

    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(get_CommandTimeout, LONG*)
    ADO_REFUSED(put_CommandTimeout, LONG)
    ADO_REFUSED(get_ConnectionTimeout, LONG*)
    ADO_REFUSED(put_ConnectionTimeout, LONG)
    ADO_REFUSED(get_Version, BSTR*)
    ADO_REFUSED(get_DefaultDatabase, BSTR*)
    ADO_REFUSED(put_DefaultDatabase, BSTR)
    ADO_REFUSED(get_IsolationLevel, IsolationLevelEnum*)
    ADO_REFUSED(put_IsolationLevel, IsolationLevelEnum)
    ADO_REFUSED(get_Attributes, LONG*)
    ADO_REFUSED(put_Attributes, LONG)
    ADO_REFUSED(get_CursorLocation, CursorLocationEnum*)
    ADO_REFUSED(put_CursorLocation, CursorLocationEnum)
    ADO_REFUSED(get_Mode, ConnectModeEnum*)
    ADO_REFUSED(put_Mode, ConnectModeEnum)
    ADO_REFUSED(OpenSchema, SchemaEnum, VARIANT, VARIANT, _Recordset**)
    ADO_REFUSED(Cancel)

private:
    Session& RequireSession() const;
    void RequireClosed() const;

    std::wstring connectionString_;
    std::wstring provider_;
    const std::shared_ptr<ErrorLog> log_ = std::make_shared<ErrorLog>();
    std::shared_ptr<Session> session_; // null while closed
};

} // namespace vndesk::ado
