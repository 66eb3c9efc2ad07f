// SPDX-License-Identifier: MIT
#include "ado/objects/parameter_object.h"

#include "ado/engine/ado_error.h"
#include "ado/engine/parameter_value.h"

namespace vndesk::ado {

void ParameterObject::Define(std::wstring name, DataTypeEnum type, ParameterDirectionEnum direction,
                             ADO_LONGPTR size, const VARIANT& value) {
    state_->name = std::move(name);
    state_->size = size;
    SetType(type);
    SetDirection(direction);
    SetValue(value);
}

void ParameterObject::SetType(DataTypeEnum type) {
    if (!IsParameterType(type))
        ThrowMisuse(AdoMisuse::InvalidArgument);
    state_->type = type;
}

void ParameterObject::SetDirection(ParameterDirectionEnum direction) {
    if (direction < adParamUnknown || direction > adParamReturnValue)
        ThrowMisuse(AdoMisuse::InvalidArgument);
    state_->direction = direction;
}

void ParameterObject::SetValue(const VARIANT& value) {
    _variant_t plain = PlainValue(value);
    // Type and size may still change: what holds is looked at again when the command runs.
    if (state_->type != adEmpty)
        TypedValue(plain, state_->type, state_->size);
    state_->value = std::move(plain);
}

STDMETHODIMP ParameterObject::get_Name(BSTR* name) {
    return Get(name, [&](BSTR& out) { out = ToBstr(state_->name); });
}

STDMETHODIMP ParameterObject::put_Name(BSTR name) {
    return Guard([&] { state_->name = FromBstr(name); });
}

STDMETHODIMP ParameterObject::get_Value(VARIANT* value) {
    return Get(value, [&](VARIANT& out) { CheckHr(VariantCopy(&out, &state_->value)); });
}

STDMETHODIMP ParameterObject::put_Value(VARIANT value) {
    return Guard([&] { SetValue(value); });
}

STDMETHODIMP ParameterObject::put_Type(DataTypeEnum type) {
    return Guard([&] { SetType(type); });
}

STDMETHODIMP ParameterObject::put_Direction(ParameterDirectionEnum direction) {
    return Guard([&] { SetDirection(direction); });
}

STDMETHODIMP ParameterObject::get_Type(DataTypeEnum* type) {
    return Get(type, [&](DataTypeEnum& out) { out = state_->type; });
}

STDMETHODIMP ParameterObject::get_Direction(ParameterDirectionEnum* direction) {
    return Get(direction, [&](ParameterDirectionEnum& out) { out = state_->direction; });
}

STDMETHODIMP ParameterObject::get_Precision(BYTE* precision) {
    return Get(precision, [&](BYTE& out) { out = state_->precision; });
}

STDMETHODIMP ParameterObject::put_Precision(BYTE precision) {
    state_->precision = precision;
    return S_OK;
}

STDMETHODIMP ParameterObject::get_NumericScale(BYTE* scale) {
    return Get(scale, [&](BYTE& out) { out = state_->scale; });
}

STDMETHODIMP ParameterObject::put_NumericScale(BYTE scale) {
    state_->scale = scale;
    return S_OK;
}

STDMETHODIMP ParameterObject::get_Size(ADO_LONGPTR* size) {
    return Get(size, [&](ADO_LONGPTR& out) { out = state_->size; });
}

STDMETHODIMP ParameterObject::put_Size(ADO_LONGPTR size) {
    state_->size = size;
    return S_OK;
}

STDMETHODIMP ParameterObject::get_Attributes(LONG* attributes) {
    return Get(attributes, [&](LONG& out) { out = state_->attributes; });
}

STDMETHODIMP ParameterObject::put_Attributes(LONG attributes) {
    state_->attributes = attributes;
    return S_OK;
}

} // namespace vndesk::ado
