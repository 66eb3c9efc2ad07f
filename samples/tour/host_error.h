// SPDX-License-Identifier: MIT
// A COM call that failed, with the text that the called object has left about it.
#pragma once
#include <windows.h>
#include <oleauto.h>

#include <string>

struct HostError {
    HRESULT code;
    std::wstring description;
};

// Throws HostError for a failed call. Ask right after the call: the text is kept per thread.
inline void Check(HRESULT code) {
    if (SUCCEEDED(code))
        return;
    HostError error = {code, L""};
    IErrorInfo* info = nullptr;
    BSTR text = nullptr;
    if (GetErrorInfo(0, &info) == S_OK) {
        if (SUCCEEDED(info->GetDescription(&text)) && text)
            error.description = text;
        SysFreeString(text);
        info->Release();
    }
    throw error;
}
