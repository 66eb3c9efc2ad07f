// SPDX-License-Identifier: MIT
#include "ado/objects/recordset_object.h"

#include "ado/objects/active_connection.h"
#include "ado/objects/command_options.h"
#include "ado/objects/fields_object.h"
#include "ado/objects/get_rows.h"

namespace vndesk::ado {

namespace {

VARIANT_BOOL Truth(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

} // namespace

RecordsetObject::RecordsetObject(ComPtr<IDispatch> connection, std::shared_ptr<Session> session,
                                 std::wstring source, Outcome outcome)
    : connection_(std::move(connection)), source_(std::move(source)) {
    cursor_->rows = std::move(outcome.rows);
    cursor_->session = std::move(session);
}

void RecordsetObject::RequireClosed() const {
    if (cursor_->IsOpen())
        ThrowMisuse(AdoMisuse::ObjectOpen);
}

void RecordsetObject::SetConnection(IUnknown* connection) {
    if (!connection) { // the rows live on without it
        connection_.Reset();
        cursor_->session.reset();
        return;
    }
    RequireClosed();
    if (command_)
        ThrowMisuse(AdoMisuse::CommandHasConnection);
    connection_ = ConnectionFrom(connection);
}

void RecordsetObject::SetConnection(const VARIANT& connection) {
    const Argument given(connection);
    if (given.IsText() || given.Object())
        RequireClosed();
    SetConnection(ConnectionFrom(given).Get());
}

void RecordsetObject::SetCommand(IUnknown* command) {
    ComPtr<ICommandSource> ours;
    if (!command)
        ThrowMisuse(AdoMisuse::InvalidArgument);
    if (FAILED(command->QueryInterface(IID_PPV_ARGS(&ours))))
        throw ComError(E_NOTIMPL,
                       L"Command objects that are not of this ADO are not available in the ADO for "
                       L"Wine, nor are other objects that hold rows.");
    command_ = std::move(ours);
}

CommandRun RecordsetObject::RunSource(long options) {
    if (command_)
        return command_->Run(nullptr, adOptionUnspecified);
    const std::shared_ptr<Session> session = SessionOf(connection_.Get());
    if (!session)
        ThrowMisuse(AdoMisuse::InvalidConnection);
    if (source_.empty())
        throw ComError(kNoCommand, L"Command text was not set for the command object.");
    return {source_, connection_, session, session->Execute(source_, KindOfCommand(options))};
}

STDMETHODIMP RecordsetObject::putref_ActiveConnection(IDispatch* connection) {
    return Guard([&] { SetConnection(static_cast<IUnknown*>(connection)); });
}

STDMETHODIMP RecordsetObject::put_ActiveConnection(VARIANT connection) {
    return Guard([&] { SetConnection(connection); });
}

STDMETHODIMP RecordsetObject::get_ActiveConnection(VARIANT* connection) {
    return Get(connection, [&](VARIANT& out) {
        V_VT(&out) = VT_DISPATCH;
        connection_.CopyTo(&V_DISPATCH(&out));
    });
}

STDMETHODIMP RecordsetObject::get_BOF(VARIANT_BOOL* bof) {
    return Get(bof, [&](VARIANT_BOOL& out) {
        cursor_->RequireOpen();
        out = Truth(cursor_->AtBegin());
    });
}

STDMETHODIMP RecordsetObject::get_EOF(VARIANT_BOOL* eof) {
    return Get(eof, [&](VARIANT_BOOL& out) {
        cursor_->RequireOpen();
        out = Truth(cursor_->AtEnd());
    });
}

STDMETHODIMP RecordsetObject::get_CursorType(CursorTypeEnum* type) {
    return Get(type, [&](CursorTypeEnum& out) { out = cursorType_; });
}

STDMETHODIMP RecordsetObject::put_CursorType(CursorTypeEnum type) {
    return Guard([&] {
        RequireClosed();
        cursorType_ = type;
    });
}

STDMETHODIMP RecordsetObject::get_LockType(LockTypeEnum* type) {
    return Get(type, [&](LockTypeEnum& out) { out = lockType_; });
}

STDMETHODIMP RecordsetObject::put_LockType(LockTypeEnum type) {
    return Guard([&] {
        RequireClosed();
        lockType_ = type;
    });
}

STDMETHODIMP RecordsetObject::get_Fields(Fields** fields) {
    return Get(fields, [&](Fields*& out) { out = MakeCom<FieldsObject>(cursor_).Detach(); });
}

STDMETHODIMP RecordsetObject::get_RecordCount(ADO_LONGPTR* count) {
    return Get(count, [&](ADO_LONGPTR& out) {
        cursor_->RequireOpen();
        out = static_cast<ADO_LONGPTR>(cursor_->Count());
    });
}

STDMETHODIMP RecordsetObject::putref_Source(IDispatch* source) {
    return Guard([&] {
        RequireClosed();
        SetCommand(source);
    });
}

STDMETHODIMP RecordsetObject::put_Source(BSTR source) {
    return Guard([&] {
        RequireClosed();
        source_ = FromBstr(source);
        command_.Reset();
    });
}

STDMETHODIMP RecordsetObject::get_Source(VARIANT* source) {
    return Get(source, [&](VARIANT& out) {
        V_BSTR(&out) = ToBstr(source_);
        V_VT(&out) = VT_BSTR;
    });
}

STDMETHODIMP RecordsetObject::get_State(LONG* state) {
    return Get(state, [&](LONG& out) { out = cursor_->IsOpen() ? adStateOpen : adStateClosed; });
}

STDMETHODIMP RecordsetObject::Open(VARIANT source, VARIANT connection, CursorTypeEnum cursorType,
                                   LockTypeEnum lockType, LONG options) {
    return Guard([&] {
        RequireClosed();
        const Argument given(source);
        if (given.IsText()) {
            source_ = given.Text();
            command_.Reset();
        } else if (given.Object()) {
            SetCommand(given.Object());
        } else if (!given.IsMissing()) {
            ThrowMisuse(AdoMisuse::InvalidArgument);
        }
        if (!Argument(connection).IsMissing())
            SetConnection(connection);
        CommandRun run = RunSource(options);
        if (cursorType != adOpenUnspecified)
            cursorType_ = cursorType;
        if (lockType != adLockUnspecified)
            lockType_ = lockType;
        source_ = std::move(run.text);
        connection_ = std::move(run.connection);
        cursor_->rows = std::move(run.outcome.rows);
        cursor_->session = std::move(run.session);
        cursor_->position = 0;
    });
}

STDMETHODIMP RecordsetObject::Close() {
    return Guard([&] {
        cursor_->RequireOpen();
        cursor_->rows.reset();
        cursor_->session.reset();
    });
}

STDMETHODIMP RecordsetObject::MoveFirst() {
    return Guard([&] {
        cursor_->RequireOpen();
        if (cursor_->Count() == 0)
            ThrowMisuse(AdoMisuse::NoCurrentRecord);
        cursor_->position = 0;
    });
}

STDMETHODIMP RecordsetObject::MoveLast() {
    return Guard([&] {
        cursor_->RequireOpen();
        if (cursor_->Count() == 0)
            ThrowMisuse(AdoMisuse::NoCurrentRecord);
        cursor_->position = cursor_->Count() - 1;
    });
}

STDMETHODIMP RecordsetObject::MoveNext() {
    return Guard([&] {
        cursor_->RequireOpen();
        if (cursor_->AtEnd())
            ThrowMisuse(AdoMisuse::NoCurrentRecord);
        ++cursor_->position;
    });
}

STDMETHODIMP RecordsetObject::MovePrevious() {
    return Guard([&] {
        cursor_->RequireOpen();
        if (cursor_->AtBegin())
            ThrowMisuse(AdoMisuse::NoCurrentRecord);
        --cursor_->position;
    });
}

STDMETHODIMP RecordsetObject::GetRows(LONG rows, VARIANT start, VARIANT fields, VARIANT* values) {
    if (!values)
        return E_POINTER;
    VariantInit(values);
    const HRESULT got = Guard([&] { ado::GetRows(*cursor_, rows, start, fields, *values); });
    if (FAILED(got))
        VariantClear(values);
    return got;
}

} // namespace vndesk::ado
