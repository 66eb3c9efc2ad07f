// SPDX-License-Identifier: MIT
#include "data/stores/registry.h"

#include "data/stores/ansi_text.h"
#include "data/text/registry_value.h"

namespace vndesk {

namespace {

constexpr REGSAM kReadAndWrite = 0x2003F;
constexpr DWORD kLongestValue = 1024;

} // namespace

RegistryKey RegistryKey::Open(HKEY root, std::wstring_view path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, ToAnsi(path).c_str(), 0, kReadAndWrite, &key) != ERROR_SUCCESS)
        key = nullptr;
    return RegistryKey(key);
}

RegistryKey RegistryKey::Create(HKEY root, std::wstring_view path) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(root, ToAnsi(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        kReadAndWrite, nullptr, &key, nullptr) != ERROR_SUCCESS)
        key = nullptr;
    return RegistryKey(key);
}

std::wstring RegistryKey::Read(std::wstring_view name) const {
    char data[kLongestValue];
    DWORD size = sizeof data, type = REG_NONE;
    if (RegQueryValueExA(key_.get(), ToAnsi(name).c_str(), nullptr, &type,
                         reinterpret_cast<BYTE*>(data), &size) != ERROR_SUCCESS)
        return {};
    const std::string_view kept = WithoutFinalZero({data, size});
    return type == kRegistryNumber ? NumberText(kept) : FromAnsi(kept);
}

void RegistryKey::Write(std::wstring_view name, std::wstring_view text) const {
    // RegSetValueExA counts a zero byte after the data as text: keep it non-zero.
    const std::string data = ToAnsi(text) + '.';
    RegSetValueExA(key_.get(), ToAnsi(name).c_str(), 0, kRegistryText,
                   reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size() - 1));
}

std::optional<std::wstring> ReadRegistry(HKEY root, std::wstring_view path,
                                         std::wstring_view name) {
    const RegistryKey key = RegistryKey::Open(root, path);
    if (!key)
        return std::nullopt;
    return key.Read(name);
}

void WriteRegistry(HKEY root, std::wstring_view path, std::wstring_view name,
                   std::wstring_view text) {
    RegistryKey key = RegistryKey::Open(root, path);
    if (!key) {
        RegistryKey::Create(root, path);
        key = RegistryKey::Open(root, path);
    }
    if (key)
        key.Write(name, text);
}

} // namespace vndesk
