// SPDX-License-Identifier: MIT
#include "ado/objects/given_values.h"

#include "ado/engine/ado_error.h"
#include "ado/objects/ado_object.h"
#include "comkit/base/variant.h"

namespace vndesk::ado {

std::vector<_variant_t> GivenValues(const VARIANT* given) {
    if (!given)
        return {};
    const Argument argument(*given);
    if (argument.IsMissing())
        return {};
    if (V_VT(&argument.Value()) != (VT_ARRAY | VT_VARIANT))
        return {argument.Value()};
    std::vector<_variant_t> values;
    SAFEARRAY* array = V_ARRAY(&argument.Value());
    if (SafeArrayGetDim(array) != 1)
        ThrowMisuse(AdoMisuse::InvalidArgument);
    const auto* elements = static_cast<const VARIANT*>(array->pvData);
    for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i)
        values.push_back(Resolved(elements[i]));
    return values;
}

} // namespace vndesk::ado
