// SPDX-License-Identifier: MIT
// Facts about this machine and its files that several probes ask for.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace vndesk::check {

#ifdef _WIN64
inline constexpr int kBits = 64;
inline constexpr REGSAM kOtherView = KEY_WOW64_32KEY;
#else
inline constexpr int kBits = 32;
inline constexpr REGSAM kOtherView = KEY_WOW64_64KEY;
#endif
inline constexpr int kOtherBits = 96 - kBits;
inline const std::wstring kBitsText = std::to_wstring(kBits);

// Empty where there is no Wine.
std::wstring WineVersion();

// A text of the registry, with environment variables in their place. nullptr: the key's own value.
std::optional<std::wstring> RegistryText(HKEY root, const std::wstring& key,
                                         const wchar_t* name = nullptr, REGSAM view = 0);

// A file named in the registry: without quotes around it.
std::wstring Unquoted(std::wstring path);
bool FileExists(const std::wstring& path);
// 32 or 64; 0 for what is no program or library, or cannot be read.
int BitsOfFile(const std::wstring& path);
// "1.0.0.0"; empty where the file has none.
std::wstring VersionOfFile(const std::wstring& path);

std::wstring GuidText(REFGUID guid);

// Paths and names, without regard to case.
bool Same(const std::wstring& left, const std::wstring& right);

// "0x80040154: Class not registered"
std::wstring ErrorText(HRESULT code);

} // namespace vndesk::check
