// SPDX-License-Identifier: MIT
// Bound values as parameters of ADO.
#pragma once

#include <comutil.h>

#include "data/connect/ado.h"
#include "data/text/statement.h"

namespace vndesk {

// A value as ADO takes it. Null has a type, which providers ask for.
struct AdoValue {
    DataTypeEnum type;
    long size;
    _variant_t value;
    AdoValue(DataTypeEnum dataType, long length) : type(dataType), size(length) {
        V_VT(&value) = VT_NULL;
    }
};

AdoValue ToAdoValue(const BoundValue& bound);

} // namespace vndesk
