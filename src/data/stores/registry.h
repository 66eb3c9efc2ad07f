// SPDX-License-Identifier: MIT
// Values in the Windows registry, through its ANSI functions. Failures of single writes are not
// reported.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "comkit/base/handles.h"

namespace vndesk {

// An open key; closed with its owner. One that could not be opened takes no writes.
class RegistryKey {
public:
    static RegistryKey Open(HKEY root, std::wstring_view path);
    static RegistryKey Create(HKEY root, std::wstring_view path);

    explicit operator bool() const { return key_ != nullptr; }

    // The value as text, numbers in decimal; empty when it is missing or longer than 1024 bytes.
    std::wstring Read(std::wstring_view name) const;
    void Write(std::wstring_view name, std::wstring_view text) const;

private:
    explicit RegistryKey(HKEY key) : key_(key) {}

    UniqueKey key_;
};

// Nothing when there is no such key.
std::optional<std::wstring> ReadRegistry(HKEY root, std::wstring_view path, std::wstring_view name);
// Makes the key when it is missing.
void WriteRegistry(HKEY root, std::wstring_view path, std::wstring_view name,
                   std::wstring_view text);

} // namespace vndesk
