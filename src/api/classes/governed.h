// SPDX-License-Identifier: MIT
// The property Settings of the classes that a clsSettings governs.
#pragma once

#include "api/classes/settings_source.h"
#include "comkit/base/bstr.h"
#include "comkit/object/dispatch.h"
#include "vndesk_idl.h"

namespace vndesk {

// `Base` is the class's base on its newest interface, `Published` the interface of 1.0 that this
// inherits and that is answered for ever.
template <class Base, class Published> class Governed : public Base {
public:
    STDMETHODIMP get_Settings(ISettings** value) override {
        return this->Guard([&] { settings_.CopyTo(&ClearedOut(value)); });
    }
    STDMETHODIMP put_Settings(ISettings* value) override { return Take(value); }
    STDMETHODIMP putref_Settings(ISettings* value) override { return Take(value); }

    // As hosts of 1.0 know it.
    static REFIID ErrorInterface() { return __uuidof(Published); }

protected:
    void* Find(REFIID iid) override {
        if (iid == __uuidof(Published))
            return static_cast<Published*>(this);
        return Base::Find(iid);
    }

    // As they are now: an operation asks once.
    Settings CurrentSettings() const { return source_ ? source_->Values() : Settings(); }

private:
    HRESULT Take(ISettings* value) {
        return this->Guard([&] {
            ComPtr<ISettingsSource> source;
            if (value && FAILED(value->QueryInterface(IID_PPV_ARGS(&source))))
                throw ComError(E_INVALIDARG, L"The settings are no VnDesk.clsSettings.");
            settings_ = value;
            source_ = source;
        });
    }

    ComPtr<ISettings> settings_;
    ComPtr<ISettingsSource> source_;
};

} // namespace vndesk
