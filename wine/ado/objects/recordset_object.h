// SPDX-License-Identifier: MIT
// ADODB.Recordset: a scrollable snapshot of a statement's rows, read only.
#pragma once

#include <memory>
#include <string>

#include "ado/objects/command_source.h"
#include "ado/objects/cursor.h"
#include "ado/objects/recordset_refused.h"
#include "ado/objects/session_source.h"

namespace vndesk::ado {

class RecordsetObject final : public RecordsetRefused<RecordsetObject> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Recordset";

    RecordsetObject() = default;

    // What Connection.Execute returns: open when the outcome has rows.
    RecordsetObject(ComPtr<IDispatch> connection, std::shared_ptr<Session> session,
                    std::wstring source, Outcome outcome);

    STDMETHODIMP putref_ActiveConnection(IDispatch* connection) override;
    STDMETHODIMP put_ActiveConnection(VARIANT connection) override;
    STDMETHODIMP get_ActiveConnection(VARIANT* connection) override;
    STDMETHODIMP get_BOF(VARIANT_BOOL* bof) override;
    STDMETHODIMP get_EOF(VARIANT_BOOL* eof) override;
    STDMETHODIMP get_CursorType(CursorTypeEnum* type) override;
    STDMETHODIMP put_CursorType(CursorTypeEnum type) override;
    STDMETHODIMP get_LockType(LockTypeEnum* type) override;
    STDMETHODIMP put_LockType(LockTypeEnum type) override;
    STDMETHODIMP get_Fields(Fields** fields) override;
    STDMETHODIMP get_RecordCount(ADO_LONGPTR* count) override;
    STDMETHODIMP putref_Source(IDispatch* source) override;
    STDMETHODIMP put_Source(BSTR source) override;
    STDMETHODIMP get_Source(VARIANT* source) override;
    STDMETHODIMP get_State(LONG* state) override;
    STDMETHODIMP Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType,
                      LockTypeEnum lockType, LONG options) override;
    STDMETHODIMP Close() override;
    STDMETHODIMP MoveFirst() override;
    STDMETHODIMP MoveLast() override;
    STDMETHODIMP MoveNext() override;
    STDMETHODIMP MovePrevious() override;
    STDMETHODIMP GetRows(LONG rows, VARIANT start, VARIANT fields, VARIANT* values) override;

private:
    void SetConnection(const VARIANT& connection);
    void SetConnection(IUnknown* connection);
    void SetCommand(IUnknown* command);
    CommandRun RunSource(long options);
    void RequireClosed() const;

    const std::shared_ptr<Cursor> cursor_ = std::make_shared<Cursor>();
    ComPtr<IDispatch> connection_;
    std::wstring source_;
    ComPtr<ICommandSource> command_; // the source, when it is no text
    CursorTypeEnum cursorType_ = adOpenForwardOnly;
    LockTypeEnum lockType_ = adLockReadOnly;
};

} // namespace vndesk::ado
