// SPDX-License-Identifier: MIT
#include "comkit/server/class_factory.h"

#include "comkit/object/com_object.h"

namespace vndesk {

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
public:
    explicit ClassFactory(const ClassEntry& entry) : entry_(entry) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        try {
            return entry_.create(iid, object);
        } catch (...) {
            return ReportCurrentError(IID_IClassFactory, entry_.progId);
        }
    }

    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? LockModule() : UnlockModule();
        return S_OK;
    }

private:
    const ClassEntry& entry_;
};

} // namespace

HRESULT GetClassFactory(REFCLSID clsid, REFIID iid, void** factory) noexcept {
    if (!factory)
        return E_POINTER;
    *factory = nullptr;
    for (const ClassEntry& entry : moduleInfo.classes)
        if (*entry.clsid == clsid)
            try {
                return MakeCom<ClassFactory>(entry)->QueryInterface(iid, factory);
            } catch (...) {
                return CurrentError().code;
            }
    return CLASS_E_CLASSNOTAVAILABLE;
}

} // namespace vndesk
