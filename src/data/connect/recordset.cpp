// SPDX-License-Identifier: MIT
#include "data/connect/recordset.h"

#include "comkit/base/com_error.h"
#include "data/connect/command.h"
#include "data/connect/plain_message.h"
#include "data/connect/values.h"
#include "data/text/statements.h"

namespace vndesk {

namespace {

_variant_t Missing() {
    return _variant_t(DISP_E_PARAMNOTFOUND, VT_ERROR);
}

} // namespace

_Recordset& Recordset::Ado() {
    if (!recordset_)
        throw ComError(E_UNEXPECTED);
    return *recordset_.Get();
}

void Recordset::Check(HRESULT code) {
    CheckCall(code, recordset_.Get(), __uuidof(_Recordset));
}

void Recordset::Create(const Database& database) {
    CLSID clsid;
    CheckHr(CLSIDFromProgID(L"ADODB.Recordset", &clsid));
    ForgetFields();
    recordset_.Reset();
    CheckHr(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&recordset_)));
    Check(recordset_->putref_ActiveConnection(database.connection.Get()));
    connection_ = database.connection;
}

void Recordset::Open(const Statement& statement) {
    if (!statement.values.empty()) {
        // A command brings a record set of its own: one that has a connection cannot take it over.
        recordset_ = RunCommand(connection_, statement);
        return;
    }
    Check(Ado().Open(_variant_t(statement.text.c_str()), Missing(),
                     static_cast<CursorTypeEnum>(kAdoUnspecified),
                     static_cast<LockTypeEnum>(kAdoUnspecified), kAdoUnspecified));
}

void Recordset::Close() {
    ForgetFields();
    Check(Ado().Close());
}

bool Recordset::Eof() {
    VARIANT_BOOL eof = VARIANT_FALSE;
    Check(Ado().get_EOF(&eof));
    return eof != VARIANT_FALSE;
}

void Recordset::MoveFirst() {
    Check(Ado().MoveFirst());
}
void Recordset::MoveNext() {
    Check(Ado().MoveNext());
}
void Recordset::MoveLast() {
    Check(Ado().MoveLast());
}

void Recordset::ForgetFields() {
    columns_.clear();
    named_.clear();
    fields_.Reset();
}

ComPtr<Fields> Recordset::AllFields() {
    if (!fields_)
        Check(Ado().get_Fields(&fields_));
    return fields_;
}

ComPtr<Field> Recordset::FieldOf(const _variant_t& item) {
    ComPtr<Field> field;
    CheckCall(AllFields()->get_Item(item, &field), fields_.Get(), __uuidof(Fields));
    return field;
}

_variant_t Recordset::Value(Field& field) {
    _variant_t value;
    CheckCall(field.get_Value(&value), &field, __uuidof(Field));
    return value;
}

_variant_t Recordset::Value(long index) {
    if (index < 0)
        return Value(*FieldOf(_variant_t(index)).Get());
    const auto column = static_cast<size_t>(index);
    if (column >= columns_.size())
        columns_.resize(column + 1);
    if (!columns_[column])
        columns_[column] = FieldOf(_variant_t(index));
    return Value(*columns_[column].Get());
}

_variant_t Recordset::Value(const wchar_t* name) {
    auto found = named_.find(name);
    if (found == named_.end())
        found = named_.emplace(name, FieldOf(_variant_t(name))).first;
    return Value(*found->second.Get());
}

std::wstring Recordset::FieldName(long index) {
    const ComPtr<Field> field = FieldOf(_variant_t(index));
    _bstr_t name;
    CheckCall(field->get_Name(name.GetAddress()), field.Get(), __uuidof(Field));
    return {static_cast<const wchar_t*>(name), name.length()};
}

long Recordset::FieldCount() {
    long count = 0;
    CheckCall(AllFields()->get_Count(&count), fields_.Get(), __uuidof(Fields));
    return count;
}

long OpenRecordset(const Database& database, Recordset& recordset, const Statement& statement,
                   std::wstring* description) {
    const ErrorState error = Trap([&] {
        recordset.Create(database);
        recordset.Open(statement);
    });
    if (error)
        PlainMessage(error.description);
    if (description)
        *description = error.description;
    return error.code;
}

long CountRecords(Recordset& recordset) {
    long count = 0;
    const auto rewind = [&] { recordset.MoveFirst(); };
    Trap(rewind);
    Trap([&] {
        for (; !recordset.Eof(); recordset.MoveNext())
            ++count;
    });
    Trap(rewind);
    return count;
}

long LastValue(const Database& database, std::wstring_view table, std::wstring_view column,
               Failure failure) {
    Recordset recordset;
    long value = 0;
    Trap([&] {
        const Statement statement =
            OwnStatement(LastValueStatement(table, column), database.Style());
        if (failure == Failure::Shown) {
            OpenRecordset(database, recordset, statement);
        } else {
            recordset.Create(database);
            recordset.Open(statement);
        }
        if (CountRecords(recordset) > 0) {
            recordset.MoveLast();
            value = NullToInteger(recordset.Value(0L));
        }
        recordset.Close();
    });
    return value;
}

} // namespace vndesk
