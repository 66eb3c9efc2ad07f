// SPDX-License-Identifier: MIT
#include "check/machine.h"

#include <vector>

#include "comkit/base/com_error.h"
#include "comkit/base/handles.h"

namespace vndesk::check {

std::wstring WineVersion() {
    const auto version = reinterpret_cast<const char*(__cdecl*)()>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version"));
    if (!version)
        return {};
    const std::string text = version();
    return {text.begin(), text.end()};
}

std::optional<std::wstring> RegistryText(HKEY root, const std::wstring& key, const wchar_t* name,
                                         REGSAM view) {
    const UniqueKey opened = OpenKey(root, key, KEY_READ | view);
    wchar_t text[2048] = L"";
    DWORD size = sizeof text;
    if (!opened || RegGetValueW(opened.get(), nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size) !=
                       ERROR_SUCCESS)
        return {};
    return text;
}

std::wstring Unquoted(std::wstring path) {
    if (path.size() >= 2 && path.front() == L'"' && path.back() == L'"')
        return path.substr(1, path.size() - 2);
    return path;
}

bool FileExists(const std::wstring& path) {
    // A bare name is looked for as the loader does.
    wchar_t found[MAX_PATH * 4];
    const DWORD length = SearchPathW(nullptr, path.c_str(), nullptr, MAX_PATH * 4, found, nullptr);
    if (!length || length >= MAX_PATH * 4)
        return false;
    const DWORD attributes = GetFileAttributesW(found);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

int BitsOfFile(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return 0;
    const auto readAt = [file](DWORD offset, void* to, DWORD size) {
        DWORD read = 0;
        return SetFilePointer(file, static_cast<LONG>(offset), nullptr, FILE_BEGIN) == offset &&
               ReadFile(file, to, size, &read, nullptr) && read == size;
    };
    IMAGE_DOS_HEADER dos = {};
    struct {
        DWORD signature;
        IMAGE_FILE_HEADER header;
    } image = {};
    const bool read = readAt(0, &dos, sizeof dos) && dos.e_magic == IMAGE_DOS_SIGNATURE &&
                      readAt(static_cast<DWORD>(dos.e_lfanew), &image, sizeof image) &&
                      image.signature == IMAGE_NT_SIGNATURE;
    CloseHandle(file);
    if (!read)
        return 0;
    switch (image.header.Machine) {
    case IMAGE_FILE_MACHINE_I386:
        return 32;
    case IMAGE_FILE_MACHINE_AMD64:
        return 64;
    default:
        return 0;
    }
}

std::wstring VersionOfFile(const std::wstring& path) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
    std::vector<BYTE> data(size);
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!size || !GetFileVersionInfoW(path.c_str(), 0, size, data.data()) ||
        !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&fixed), &length) || !fixed)
        return {};
    return std::to_wstring(HIWORD(fixed->dwFileVersionMS)) + L"." +
           std::to_wstring(LOWORD(fixed->dwFileVersionMS)) + L"." +
           std::to_wstring(HIWORD(fixed->dwFileVersionLS)) + L"." +
           std::to_wstring(LOWORD(fixed->dwFileVersionLS));
}

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40];
    StringFromGUID2(guid, text, 40);
    return text;
}

bool Same(const std::wstring& left, const std::wstring& right) {
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::wstring ErrorText(HRESULT code) {
    wchar_t number[16];
    swprintf(number, 16, L"0x%08lX", static_cast<unsigned long>(code));
    const std::wstring message = SystemMessage(code);
    return message.empty() ? number : number + (L": " + message);
}

} // namespace vndesk::check
