// SPDX-License-Identifier: MIT
// A list control of a host, reached by the names of its members at run time.
#pragma once

#include <comutil.h>
#include <oaidl.h>
#include <wrl/client.h>

#include <initializer_list>
#include <string>

namespace vndesk {

// Throws ComError where the object lacks a member or refuses a call.
class LateBoundList {
public:
    explicit LateBoundList(IDispatch* list) : list_(list) {}

    void AddItem(const std::wstring& text);
    void RemoveItem(long index);
    void Clear();
    long NewIndex();
    long ListCount();
    long ListIndex();
    void SetListIndex(long index);
    long ItemData(long index);
    void SetItemData(long index, long data);
    // For lists whose item data are of another type.
    void SetItemData(long index, const VARIANT& data);
    bool Selected(long index);
    void SetText(long index, const std::wstring& text);

private:
    // Arguments in the order in which they are written.
    _variant_t Call(const wchar_t* member, WORD flags,
                    std::initializer_list<_variant_t> arguments = {});

    Microsoft::WRL::ComPtr<IDispatch> list_;
};

} // namespace vndesk
