// SPDX-License-Identifier: MIT
#include "support/late_bound.h"

#include <utility>

#include "support/text.h"

namespace vndesk::test {
namespace {

_variant_t Reference(VARTYPE type, void* target) {
    VARIANT v = {};
    v.vt = static_cast<VARTYPE>(VT_BYREF | type);
    v.byref = target;
    return _variant_t(v); // copies the pointer, not its target
}

std::wstring Take(BSTR text) {
    std::wstring copy(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

_variant_t Unless(const LateResult& result, const wchar_t* member) {
    if (FAILED(result.hr))
        Fail(std::wstring(member) + L": " + FromUtf8(HrText(result.hr)) +
             (result.exceptionCode
                  ? L" " + FromUtf8(HrText(result.exceptionCode)) + L": " + result.exceptionText
                  : L""));
    return result.value;
}

} // namespace

_variant_t ByRef(VARIANT& variable) {
    return Reference(VT_VARIANT, &variable);
}
_variant_t ByRef(BSTR& variable) {
    return Reference(VT_BSTR, &variable);
}
_variant_t ByRef(long& variable) {
    return Reference(VT_I4, &variable);
}
_variant_t ByRefBool(VARIANT_BOOL& variable) {
    return Reference(VT_BOOL, &variable);
}

LateBound::LateBound(const _variant_t& object) {
    if (object.vt == VT_DISPATCH)
        object_ = object.pdispVal;
    else if (object.vt == VT_UNKNOWN && object.punkVal)
        object.punkVal->QueryInterface(IID_PPV_ARGS(&object_));
    if (!object_)
        Fail(L"the value is no object");
}

LateBound LateBound::Create(const wchar_t* progId) {
    CLSID clsid;
    LateBound created;
    HRESULT hr = CLSIDFromProgID(progId, &clsid);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&created.object_));
    if (FAILED(hr))
        Fail(L"cannot create " + std::wstring(progId) + L": " + FromUtf8(HrText(hr)));
    return created;
}

LateResult LateBound::Try(const wchar_t* member, WORD kind, const Arguments& arguments) const {
    LateResult result;
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(member);
    result.hr = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result.hr))
        return result;

    Arguments reversed(arguments.rbegin(), arguments.rend());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {};
    parameters.rgvarg = reversed.data(); // _variant_t is a VARIANT and nothing more
    parameters.cArgs = static_cast<UINT>(reversed.size());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    EXCEPINFO exception = {};
    UINT wrong = 0;
    result.hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &result.value,
                                &exception, &wrong);
    if (result.hr == DISP_E_EXCEPTION) {
        if (exception.pfnDeferredFillIn)
            exception.pfnDeferredFillIn(&exception);
        result.exceptionCode = exception.scode;
        result.exceptionSource = Take(exception.bstrSource);
        result.exceptionText = Take(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }
    return result;
}

LateResult LateBound::TryCall(const wchar_t* member, const Arguments& arguments) const {
    return Try(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

_variant_t LateBound::Call(const wchar_t* member, const Arguments& arguments) const {
    return Unless(TryCall(member, arguments), member);
}

_variant_t LateBound::Get(const wchar_t* member, const Arguments& arguments) const {
    return Unless(Try(member, DISPATCH_PROPERTYGET, arguments), member);
}

void LateBound::Put(const wchar_t* member, const _variant_t& value) const {
    Unless(Try(member, DISPATCH_PROPERTYPUT, {value}), member);
}

void LateBound::PutObject(const wchar_t* member, const _variant_t& value) const {
    Unless(Try(member, DISPATCH_PROPERTYPUTREF, {value}), member);
}

} // namespace vndesk::test
