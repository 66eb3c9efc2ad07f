// SPDX-License-Identifier: MIT
// Calls members of an object by name, as scripts and old Basic programs do.
#pragma once
#include <comdef.h>
#include <initializer_list>
#include <string>
#include <vector>
#include <wrl/client.h>

namespace vndesk::test {

struct LateResult {
    HRESULT hr = S_OK; // what Invoke or GetIDsOfNames returned
    _variant_t value;
    HRESULT exceptionCode = 0; // filled for DISP_E_EXCEPTION
    std::wstring exceptionSource;
    std::wstring exceptionText;
};

// An argument that the callee may change, as a Basic variable of type Variant.
_variant_t ByRef(VARIANT& variable);
// The same for typed variables.
_variant_t ByRef(BSTR& variable);
_variant_t ByRef(long& variable);
_variant_t ByRefBool(VARIANT_BOOL& variable);

class LateBound {
public:
    LateBound() = default;
    explicit LateBound(IDispatch* object) : object_(object) {}
    explicit LateBound(const _variant_t& object); // throws when it holds no object
    static LateBound Create(const wchar_t* progId);

    // Arguments in the order of the call. Call, Get, Put and PutObject throw std::runtime_error
    // with the error's code and text; Try hands the result back.
    using Arguments = std::vector<_variant_t>;
    LateResult Try(const wchar_t* member, WORD kind, const Arguments& arguments) const;
    LateResult TryCall(const wchar_t* member, const Arguments& arguments = {}) const;
    _variant_t Call(const wchar_t* member, const Arguments& arguments = {}) const;
    _variant_t Get(const wchar_t* member, const Arguments& arguments = {}) const;
    void Put(const wchar_t* member, const _variant_t& value) const;
    void PutObject(const wchar_t* member, const _variant_t& value) const; // Set x.member = value

    IDispatch* Dispatch() const { return object_.Get(); }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Microsoft::WRL::ComPtr<IDispatch> object_;
};

} // namespace vndesk::test
