// SPDX-License-Identifier: MIT
// The members of a connection that this ADO does not have: time-outs, modes.
#pragma once

#include "ado/objects/ado_object.h"
#include "ado/objects/session_source.h"

namespace vndesk::ado {

template <class Derived>
class ConnectionRefused
    : public AdoObject<Derived, _Connection, InterfaceList<Connection15, _ADO>, ISessionSource> {
public:
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
    ADO_REFUSED(Cancel)
};

} // namespace vndesk::ado
