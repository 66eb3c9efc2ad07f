// SPDX-License-Identifier: MIT
#include "ado/objects/ado_object.h"

#include "ado/engine/ado_error.h"
#include "comkit/base/variant.h"

namespace vndesk::ado {

Argument::Argument(const VARIANT& given) {
    VariantInit(&value_);
    value_ = Resolved(given).Detach();
}

bool Argument::IsMissing() const {
    return V_VT(&value_) == VT_EMPTY ||
           (V_VT(&value_) == VT_ERROR && V_ERROR(&value_) == DISP_E_PARAMNOTFOUND);
}

IUnknown* Argument::Object() const {
    return V_VT(&value_) == VT_DISPATCH || V_VT(&value_) == VT_UNKNOWN ? V_UNKNOWN(&value_)
                                                                       : nullptr;
}

long Argument::Number() const {
    VARIANT number;
    VariantInit(&number);
    if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&value_), 0, VT_I4)))
        ThrowMisuse(AdoMisuse::InvalidArgument);
    return V_I4(&number);
}

} // namespace vndesk::ado
