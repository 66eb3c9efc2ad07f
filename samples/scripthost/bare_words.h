// SPDX-License-Identifier: MIT
// The members of WScript as bare words. Windows' own script host has none, so that scripts use
// such words as variables: what a script assigns to one is its variable from then on.
#pragma once
#include <map>

#include "host_object.h"

namespace vndesk {

class BareWords final : public ScriptObject {
public:
    explicit BareWords(ScriptObject* host) : host_(host) {}

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override {
        if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))
            return parameters->cArgs == 1 ? VariantCopyInd(&variables_[id], &parameters->rgvarg[0])
                                          : DISP_E_BADPARAMCOUNT;
        const auto variable = variables_.find(id);
        if (variable != variables_.end() && !parameters->cArgs && result)
            return VariantCopy(result, &variable->second);
        return ScriptObject::Invoke(id, iid, locale, flags, parameters, result, exception, wrong);
    }

    std::pair<const Member*, size_t> Members() const override { return host_->Members(); }
    HRESULT Call(DISPID id, const Arguments& arguments, VARIANT* result,
                 std::wstring& error) override {
        return host_->Call(id, arguments, result, error);
    }

private:
    ~BareWords() override {
        for (auto& [id, value] : variables_)
            VariantClear(&value);
    }

    Microsoft::WRL::ComPtr<ScriptObject> host_;
    std::map<DISPID, VARIANT> variables_; // a new one is VT_EMPTY
};

} // namespace vndesk
