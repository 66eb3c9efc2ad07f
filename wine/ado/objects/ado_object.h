// SPDX-License-Identifier: MIT
// The base of ADO's objects: dual interfaces in long chains of inheritance, and members that this
// ADO does not have.
#pragma once

#include <windows.h>

#include <string>

#include <msado15_backcompat.h>

#include "comkit/base/bstr.h"
#include "comkit/object/dispatch.h"

namespace vndesk::ado {

// `Inherited` lists the interfaces between Dual and IDispatch.
template <class Derived, class Dual, class Inherited, class... Others>
class AdoObject : public DualObject<Derived, Dual, Others...> {
    using Base = DualObject<Derived, Dual, Others...>;

public:
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        const HRESULT called =
            Base::Invoke(member, iid, lcid, flags, parameters, result, exception, badArgument);
        // Counts on x64: script engines know no 64-bit integers.
        if (SUCCEEDED(called) && result && V_VT(result) == VT_I8)
            VariantChangeType(result, result, 0, VT_I4);
        return called;
    }

protected:
    void* Find(REFIID iid) override {
        void* found = Base::Find(iid);
        return found ? found : this->FindInherited(iid, Inherited());
    }

    // Guard for getters: refuses a null pointer and clears what it points to first.
    template <class Out, class Body> HRESULT Get(Out* out, Body&& body) noexcept {
        if (!out)
            return E_POINTER;
        *out = Out();
        return Base::Guard([&] { body(*out); });
    }

    // `member` may carry its accessor's prefix.
    HRESULT Refuse(std::wstring member) noexcept {
        return Base::Guard([&] {
            for (const std::wstring prefix : {L"get_", L"put_", L"putref_"})
                if (member.rfind(prefix, 0) == 0)
                    member.erase(0, prefix.size());
            throw ComError(E_NOTIMPL, Derived::kProgId + (L"." + member) +
                                          L" is not available in the ADO for Wine.");
        });
    }
};

// A member that this ADO does not have, with the parameters of its declaration.
#define ADO_REFUSED(member, ...)                                                                   \
    STDMETHODIMP member(__VA_ARGS__) override {                                                    \
        return this->Refuse(L## #member);                                                          \
    }

// What an optional argument of type VARIANT carries, references followed.
class Argument {
public:
    explicit Argument(const VARIANT& given);
    ~Argument() { VariantClear(&value_); }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;

    bool IsMissing() const;
    bool IsText() const { return V_VT(&value_) == VT_BSTR; }
    std::wstring Text() const { return FromBstr(V_BSTR(&value_)); }
    // Null when it is no object.
    IUnknown* Object() const;
    // Throws ADO's error 3001 when it is no number.
    long Number() const;
    const VARIANT& Value() const { return value_; }

private:
    VARIANT value_;
};

} // namespace vndesk::ado
