// SPDX-License-Identifier: MIT
#include "late_bound.h"

#include <vector>

#include "host_error.h"

LateBound::LateBound(const wchar_t* progId) {
    CLSID clsid;
    Check(CLSIDFromProgID(progId, &clsid));
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object_)));
}

LateBound::LateBound(const _variant_t& object) {
    if (object.vt != VT_DISPATCH || !object.pdispVal)
        throw HostError{DISP_E_TYPEMISMATCH, L"An object was expected."};
    object_ = object.pdispVal;
}

_variant_t LateBound::Call(const wchar_t* method, std::initializer_list<_variant_t> arguments) {
    return Invoke(method, DISPATCH_METHOD, arguments);
}

_variant_t LateBound::Get(const wchar_t* property, std::initializer_list<_variant_t> arguments) {
    return Invoke(property, DISPATCH_PROPERTYGET, arguments);
}

void LateBound::Put(const wchar_t* property, const _variant_t& value) {
    Invoke(property, DISPATCH_PROPERTYPUT, {value});
}

_variant_t LateBound::Invoke(const wchar_t* name, WORD kind,
                             std::initializer_list<_variant_t> arguments) {
    DISPID id;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    Check(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
    // DISPPARAMS has the last argument first.
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    DISPID put = DISPID_PROPERTYPUT;
    if (kind == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    _variant_t result;
    EXCEPINFO exception = {};
    const HRESULT code = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                         &result, &exception, nullptr);
    const _bstr_t source(exception.bstrSource, false), text(exception.bstrDescription, false),
        help(exception.bstrHelpFile, false);
    if (code == DISP_E_EXCEPTION)
        throw HostError{exception.scode, text.length() ? static_cast<const wchar_t*>(text) : L""};
    Check(code);
    return result;
}
