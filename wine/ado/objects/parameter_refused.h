// SPDX-License-Identifier: MIT
// The members of a parameter that this ADO does not have: values in pieces.
#pragma once

#include "ado/objects/ado_object.h"
#include "ado/objects/parameter_list.h"

namespace vndesk::ado {

template <class Derived>
class ParameterRefused
    : public AdoObject<Derived, _Parameter, InterfaceList<_ADO>, IParameterSource> {
public:
    ADO_REFUSED(get_Properties, Properties**)
    ADO_REFUSED(AppendChunk, VARIANT)
};

} // namespace vndesk::ado
