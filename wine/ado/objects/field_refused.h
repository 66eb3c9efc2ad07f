// SPDX-License-Identifier: MIT
// The members of a field that this ADO does not have: writing, attributes, what is behind a value.
#pragma once

#include "ado/objects/ado_object.h"

namespace vndesk::ado {

template <class Derived>
class FieldRefused : public AdoObject<Derived, Field, InterfaceList<Field20, _ADO>> {
public:
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(get_ActualSize, ADO_LONGPTR*)
    ADO_REFUSED(get_Attributes, LONG*)
    ADO_REFUSED(put_Attributes, LONG)
    ADO_REFUSED(put_DefinedSize, ADO_LONGPTR)
    ADO_REFUSED(put_Type, DataTypeEnum)
    ADO_REFUSED(put_Value, VARIANT)
    ADO_REFUSED(get_Precision, unsigned char*)
    ADO_REFUSED(put_Precision, unsigned char)
    ADO_REFUSED(get_NumericScale, unsigned char*)
    ADO_REFUSED(put_NumericScale, unsigned char)
    ADO_REFUSED(AppendChunk, VARIANT)
    ADO_REFUSED(GetChunk, LONG, VARIANT*)
    ADO_REFUSED(get_OriginalValue, VARIANT*)
    ADO_REFUSED(get_UnderlyingValue, VARIANT*)
    ADO_REFUSED(get_DataFormat, IUnknown**)
    ADO_REFUSED(putref_DataFormat, IUnknown*)
    ADO_REFUSED(get_Status, LONG*)
};

} // namespace vndesk::ado
