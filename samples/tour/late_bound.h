// SPDX-License-Identifier: MIT
// A COM object called by names, as scripts do it: no header and no import library are needed.
// Failed calls throw HostError.
#pragma once
#include <windows.h>
#include <comutil.h>

#include <initializer_list>

#include <wrl/client.h>

class LateBound {
public:
    explicit LateBound(const wchar_t* progId);
    explicit LateBound(const _variant_t& object);

    _variant_t Call(const wchar_t* method, std::initializer_list<_variant_t> arguments = {});
    _variant_t Get(const wchar_t* property, std::initializer_list<_variant_t> arguments = {});
    void Put(const wchar_t* property, const _variant_t& value);

private:
    _variant_t Invoke(const wchar_t* name, WORD kind, std::initializer_list<_variant_t> arguments);

    Microsoft::WRL::ComPtr<IDispatch> object_;
};
