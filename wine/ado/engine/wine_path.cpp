// SPDX-License-Identifier: MIT
#include "ado/engine/wine_path.h"

#include <windows.h>

#include "ado/text/utf8.h"

namespace vndesk::ado {

bool RunsUnderWine() noexcept {
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

std::wstring UnixPath(const std::wstring& path) {
    using Translate = char*(__cdecl*)(const wchar_t*);
    const auto translate = reinterpret_cast<Translate>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name"));
    char* translated = translate ? translate(path.c_str()) : nullptr;
    if (!translated) // not under Wine, or the folder does not exist
        return path;
    std::wstring result = FromUtf8(translated);
    HeapFree(GetProcessHeap(), 0, translated);
    return result;
}

} // namespace vndesk::ado
