// SPDX-License-Identifier: MIT
// The error that a call has left for its thread.
#pragma once
#include <comutil.h>
#include <windows.h>

#include <string>
#include <wrl/client.h>

namespace vndesk::test {

// Its description; the error is taken with it.
inline std::wstring LastErrorText() {
    Microsoft::WRL::ComPtr<IErrorInfo> info;
    _bstr_t text;
    if (GetErrorInfo(0, &info) == S_OK)
        info->GetDescription(text.GetAddress());
    return {static_cast<const wchar_t*>(text) ? static_cast<const wchar_t*>(text) : L""};
}

} // namespace vndesk::test
