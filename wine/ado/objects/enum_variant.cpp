// SPDX-License-Identifier: MIT
#include "ado/objects/enum_variant.h"

#include <oleauto.h>

#include <algorithm>

namespace vndesk::ado {

namespace {

class ObjectEnumerator final : public ComObject<IEnumVARIANT> {
public:
    ObjectEnumerator(std::vector<ComPtr<IDispatch>> objects, std::size_t position)
        : objects_(std::move(objects)), position_(position) {}

    STDMETHODIMP Next(ULONG wanted, VARIANT* values, ULONG* delivered) override {
        if (!values || (!delivered && wanted != 1))
            return E_POINTER;
        ULONG count = 0;
        for (; count < wanted && position_ < objects_.size(); ++count, ++position_) {
            V_VT(&values[count]) = VT_DISPATCH;
            objects_[position_].CopyTo(&V_DISPATCH(&values[count]));
        }
        if (delivered)
            *delivered = count;
        return count == wanted ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = objects_.size() - position_;
        position_ += std::min<std::size_t>(left, count);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        position_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (!copy)
            return E_POINTER;
        try {
            *copy = MakeCom<ObjectEnumerator>(objects_, position_).Detach();
            return S_OK;
        } catch (...) {
            *copy = nullptr;
            return E_OUTOFMEMORY;
        }
    }

private:
    std::vector<ComPtr<IDispatch>> objects_;
    std::size_t position_;
};

} // namespace

ComPtr<IUnknown> EnumerateObjects(std::vector<ComPtr<IDispatch>> objects) {
    return MakeCom<ObjectEnumerator>(std::move(objects), 0u);
}

} // namespace vndesk::ado
