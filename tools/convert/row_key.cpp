// SPDX-License-Identifier: MIT
#include "convert/row_key.h"

#include <algorithm>

#include "comkit/base/com_error.h"
#include "data/connect/values.h"

namespace vndesk::convert {

namespace {

bool IsNull(const VARIANT& value) {
    return V_VT(&value) == VT_NULL || V_VT(&value) == VT_EMPTY;
}

std::wstring Hex(const VARIANT& bytes) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    void* data = nullptr;
    std::wstring text;
    CheckHr(SafeArrayAccessData(V_ARRAY(&bytes), &data));
    for (ULONG i = 0; i < V_ARRAY(&bytes)->rgsabound[0].cElements; ++i) {
        const BYTE byte = static_cast<const BYTE*>(data)[i];
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    SafeArrayUnaccessData(V_ARRAY(&bytes));
    return text;
}

std::wstring TextOfValue(const VARIANT& value) {
    return V_VT(&value) == (VT_ARRAY | VT_UI1) ? Hex(value) : NullToText(value);
}

} // namespace

bool HasNull(const Values& key) {
    return std::any_of(key.begin(), key.end(),
                       [](const _variant_t& value) { return IsNull(value); });
}

std::wstring KeyText(const Values& key) {
    std::wstring text;
    for (const _variant_t& value : key) {
        const std::wstring part = TextOfValue(value);
        // With its length: no part can be read as another one's end.
        text += std::to_wstring(part.size()) + L":" + part;
    }
    return text;
}

std::wstring ShownKey(const std::vector<Column>& columns, const Values& key) {
    std::wstring text;
    for (std::size_t i = 0; i < key.size(); ++i)
        text += (text.empty() ? L"" : L", ") + columns[i].name + L"=" + TextOfValue(key[i]);
    return text;
}

} // namespace vndesk::convert
