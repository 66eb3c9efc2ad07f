// SPDX-License-Identifier: MIT
#include "ado/objects/recordset_object.h"

#include "ado/objects/command_options.h"
#include "ado/objects/connection_object.h"
#include "ado/objects/fields_object.h"
#include "ado/objects/get_rows.h"

namespace vndesk::ado {

namespace {

VARIANT_BOOL Truth(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

std::shared_ptr<Session> SessionOf(IDispatch* connection) {
    ComPtr<ISessionSource> source;
    if (!connection || FAILED(connection->QueryInterface(IID_PPV_ARGS(&source))))
        return nullptr;
    return source->OpenedSession();
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
    ComPtr<ISessionSource> source;
    ComPtr<IDispatch> object;
    if (FAILED(connection->QueryInterface(IID_PPV_ARGS(&source))) ||
        FAILED(connection->QueryInterface(IID_PPV_ARGS(&object))))
        ThrowMisuse(AdoMisuse::InvalidArgument);
    connection_ = std::move(object);
}

void RecordsetObject::SetConnection(const VARIANT& connection) {
    const Argument given(connection);
    if (given.IsText()) {
        RequireClosed();
        const ComPtr<ConnectionObject> opened = MakeCom<ConnectionObject>();
        opened->OpenWith(given.Text(), L"", L"");
        connection_ = opened;
    } else if (given.IsMissing() || V_VT(&given.Value()) == VT_NULL) {
        SetConnection(static_cast<IUnknown*>(nullptr));
    } else if (V_VT(&given.Value()) == VT_DISPATCH || V_VT(&given.Value()) == VT_UNKNOWN) {
        SetConnection(given.Object());
    } else {
        ThrowMisuse(AdoMisuse::InvalidArgument);
    }
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

STDMETHODIMP RecordsetObject::putref_Source(IDispatch*) {
    return Refuse(L"Source = command");
}

STDMETHODIMP RecordsetObject::put_Source(BSTR source) {
    return Guard([&] {
        RequireClosed();
        source_ = FromBstr(source);
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
        const Argument statement(source);
        if (statement.IsText())
            source_ = statement.Text();
        else if (statement.Object())
            throw ComError(E_NOTIMPL, L"Command objects are not available in the ADO for Wine.");
        else if (!statement.IsMissing())
            ThrowMisuse(AdoMisuse::InvalidArgument);
        if (!Argument(connection).IsMissing())
            SetConnection(connection);
        const std::shared_ptr<Session> session = SessionOf(connection_.Get());
        if (!session)
            ThrowMisuse(AdoMisuse::InvalidConnection);
        if (source_.empty())
            throw ComError(kNoCommand, L"Command text was not set for the command object.");
        Outcome outcome = session->Execute(source_, KindOfCommand(options));
        if (cursorType != adOpenUnspecified)
            cursorType_ = cursorType;
        if (lockType != adLockUnspecified)
            lockType_ = lockType;
        cursor_->rows = std::move(outcome.rows);
        cursor_->session = session;
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
