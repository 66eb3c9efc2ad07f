// SPDX-License-Identifier: MIT
// Upper case as the platform has it, letters of Vietnamese included.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

inline std::wstring UpperCase(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

} // namespace vndesk
