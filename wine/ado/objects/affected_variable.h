// SPDX-License-Identifier: MIT
// A host's variable for the number of records affected, in a late call: left out, of some type, or
// holding anything from before. Wine's ITypeInfo::Invoke would turn the number into the type of
// what is left out, which fails.
#pragma once

#include <windows.h>
#include <oleauto.h>

namespace vndesk::ado {

// Takes the place of the argument while it lives.
class AffectedVariable {
public:
    explicit AffectedVariable(VARIANT& argument) : argument_(argument), original_(argument) {
        VariantInit(&count_);
        V_VT(&argument_) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&argument_) = &count_;
    }
    ~AffectedVariable() {
        argument_ = original_;
        if (V_VT(&count_) != VT_I4)
            return;
        if (V_VT(&original_) == (VT_BYREF | VT_I4)) {
            *V_I4REF(&original_) = V_I4(&count_);
        } else if (V_VT(&original_) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(&original_)) {
            VariantClear(V_VARIANTREF(&original_));
            *V_VARIANTREF(&original_) = count_;
        }
    }
    AffectedVariable(const AffectedVariable&) = delete;
    AffectedVariable& operator=(const AffectedVariable&) = delete;

private:
    VARIANT& argument_;
    const VARIANT original_;
    VARIANT count_;
};

} // namespace vndesk::ado
