// SPDX-License-Identifier: MIT
// One argument of a late-bound call, brought to its declared type for the length of the call.
#pragma once

#include <windows.h>
#include <comutil.h>

namespace vndesk {

class Coerced {
public:
    // Whether an argument needs it. ITypeInfo::Invoke converts arguments by value itself, except to
    // unsigned numbers and from null texts behind references.
    static bool Needs(const VARIANT& argument, VARTYPE type);

    // Throws for a value that cannot be converted to the type.
    Coerced(VARIANT* argument, VARTYPE type);
    ~Coerced() { *argument_ = original_; }
    Coerced(const Coerced&) = delete;
    Coerced& operator=(const Coerced&) = delete;

    // Writes what the member has set to the caller's variable, converted to the variable's type if
    // it has one. What the member left alone is not written: two conversions could change it.
    void WriteBack();

private:
    bool IsSet() const;

    VARIANT* const argument_;
    const VARIANT original_;
    // The argument as the member gets and may change it.
    _variant_t value_;
    // A copy of it from before the call.
    _variant_t before_;
    // The text's BSTR before the call.
    BSTR place_ = nullptr;
};

} // namespace vndesk
