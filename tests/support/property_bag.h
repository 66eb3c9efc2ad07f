// SPDX-License-Identifier: MIT
// A property bag in memory, with the order in which it was written and asked.
#pragma once
#include <comutil.h>
#include <map>
#include <string>
#include <vector>
#include <windows.h>
#include <ocidl.h>

namespace vndesk::test {

// Lives on the stack.
class PropertyBag final : public IPropertyBag {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        asked.push_back(name);
        const auto found = values.find(name);
        if (found == values.end())
            return E_INVALIDARG;
        const VARTYPE wanted = value->vt;
        VariantInit(value);
        return VariantChangeType(value, &found->second, 0, wanted);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override {
        written.push_back(name);
        values[name] = *value;
        return S_OK;
    }

    std::map<std::wstring, _variant_t> values;
    std::vector<std::wstring> written, asked;
};

} // namespace vndesk::test
