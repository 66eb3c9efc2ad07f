// SPDX-License-Identifier: MIT
// One argument of a late-bound call, brought to its declared type for the length of the call.
#pragma once

#include <windows.h>
#include <comutil.h>

namespace vndesk {

class Coerced {
public:
    // Whether an argument needs it. By value the platform's call turns it well but for unsigned
    // numbers and for null texts behind references.
    static bool Needs(const VARIANT& argument, VARTYPE type);

    // Throws for what cannot be turned into the type.
    Coerced(VARIANT* argument, VARTYPE type);
    ~Coerced() { *argument_ = original_; }
    Coerced(const Coerced&) = delete;
    Coerced& operator=(const Coerced&) = delete;

    // Puts what the member has set into the caller's variable, in the variable's own type where it
    // has one. What the member left alone is not touched: it may lose by being turned twice.
    void WriteBack();

private:
    bool IsSet() const;

    VARIANT* const argument_;
    const VARIANT original_;
    // What the member is given and may change.
    _variant_t value_;
    // The same as it was before, with a text of its own.
    _variant_t before_;
    // Where the text lay.
    BSTR place_ = nullptr;
};

} // namespace vndesk
