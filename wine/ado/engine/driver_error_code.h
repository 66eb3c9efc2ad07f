// SPDX-License-Identifier: MIT
// The HRESULT that hosts expect for a driver's error.
#pragma once

#include <windows.h>

#include <string_view>

namespace vndesk::ado {

HRESULT ErrorCodeOf(std::wstring_view sqlState, std::wstring_view description) noexcept;

} // namespace vndesk::ado
