// SPDX-License-Identifier: MIT
// Upper case by CharUpperBuff, which knows Vietnamese letters too.
#pragma once

#include <windows.h>

#include <string>

namespace vndesk {

inline std::wstring UpperCase(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

} // namespace vndesk
