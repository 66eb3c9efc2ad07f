// SPDX-License-Identifier: MIT
// The members of a command that this ADO does not have: streams, dialects, names as markers.
#pragma once

#include "ado/objects/ado_object.h"
#include "ado/objects/command_source.h"

namespace vndesk::ado {

template <class Derived>
class CommandRefused : public AdoObject<Derived, _Command,
                                        InterfaceList<Command25, Command15, _ADO>, ICommandSource> {
public:
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(Cancel)
    ADO_REFUSED(putref_CommandStream, IUnknown*)
    ADO_REFUSED(get_CommandStream, VARIANT*)
    ADO_REFUSED(put_Dialect, BSTR)
    ADO_REFUSED(get_Dialect, BSTR*)
    ADO_REFUSED(put_NamedParameters, VARIANT_BOOL)
    ADO_REFUSED(get_NamedParameters, VARIANT_BOOL*)
};

} // namespace vndesk::ado
