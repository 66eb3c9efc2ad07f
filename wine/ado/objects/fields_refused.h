// SPDX-License-Identifier: MIT
// The members of the Fields collection that this ADO does not have: changing the columns.
#pragma once

#include "ado/objects/ado_object.h"

namespace vndesk::ado {

template <class Derived>
class FieldsRefused
    : public AdoObject<Derived, Fields, InterfaceList<Fields20, Fields15, _Collection>> {
public:
    ADO_REFUSED(_Append, BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum)
    ADO_REFUSED(Delete, VARIANT)
    ADO_REFUSED(Append, BSTR, DataTypeEnum, ADO_LONGPTR, FieldAttributeEnum, VARIANT)
    ADO_REFUSED(Update)
    ADO_REFUSED(Resync, ResyncEnum)
    ADO_REFUSED(CancelUpdate)
};

} // namespace vndesk::ado
