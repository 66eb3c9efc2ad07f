// SPDX-License-Identifier: MIT
// UTF-8 <-> UTF-16 for output and files of the tests, and readable HRESULTs.
#pragma once
#include <string>
#include <string_view>
#include <windows.h>

namespace vndesk::test {

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

// "0x80020009 (Exception occurred.)"
std::string HrText(HRESULT hr);

// A whole UTF-8 file, without its byte order mark. Throws std::runtime_error.
std::wstring ReadUtf8File(const std::wstring& path);

// What a helper of this library throws when the thing under test does not come up to it.
// Carries UTF-8, so that GoogleTest prints it as it is.
[[noreturn]] void Fail(std::wstring_view message);

} // namespace vndesk::test
