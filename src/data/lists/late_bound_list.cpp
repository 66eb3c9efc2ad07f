// SPDX-License-Identifier: MIT
#include "data/lists/late_bound_list.h"

#include <algorithm>
#include <vector>

#include "comkit/base/com_error.h"
#include "data/connect/values.h"

namespace vndesk {

_variant_t LateBoundList::Call(const wchar_t* member, WORD flags,
                               std::initializer_list<_variant_t> arguments) {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = 0;
    CheckHr(list_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
    // DISPPARAMS has the last argument first.
    std::vector<_variant_t> reversed(arguments);
    std::reverse(reversed.begin(), reversed.end());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    if (flags == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    _variant_t result;
    CheckHr(list_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &result, nullptr,
                          nullptr));
    return result;
}

void LateBoundList::AddItem(const std::wstring& text) {
    Call(L"AddItem", DISPATCH_METHOD, {text.c_str()});
}
void LateBoundList::RemoveItem(long index) {
    Call(L"RemoveItem", DISPATCH_METHOD, {index});
}
void LateBoundList::Clear() {
    Call(L"Clear", DISPATCH_METHOD);
}
long LateBoundList::NewIndex() {
    return NullToInteger(Call(L"NewIndex", DISPATCH_PROPERTYGET));
}
long LateBoundList::ListCount() {
    return NullToInteger(Call(L"ListCount", DISPATCH_PROPERTYGET));
}
long LateBoundList::ListIndex() {
    return NullToInteger(Call(L"ListIndex", DISPATCH_PROPERTYGET));
}
void LateBoundList::SetListIndex(long index) {
    Call(L"ListIndex", DISPATCH_PROPERTYPUT, {index});
}
long LateBoundList::ItemData(long index) {
    return NullToInteger(Call(L"ItemData", DISPATCH_PROPERTYGET, {index}));
}
void LateBoundList::SetItemData(long index, long data) {
    Call(L"ItemData", DISPATCH_PROPERTYPUT, {index, data});
}
void LateBoundList::SetItemData(long index, const VARIANT& data) {
    Call(L"ItemData", DISPATCH_PROPERTYPUT, {index, data});
}
bool LateBoundList::Selected(long index) {
    return NullToInteger(Call(L"Selected", DISPATCH_PROPERTYGET, {index})) != 0;
}
void LateBoundList::SetText(long index, const std::wstring& text) {
    Call(L"List", DISPATCH_PROPERTYPUT, {index, text.c_str()});
}

} // namespace vndesk
