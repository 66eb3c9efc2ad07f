// SPDX-License-Identifier: MIT
#include "support/text.h"

#include <cstdio>
#include <stdexcept>

namespace vndesk::test {

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string result(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(),
                        static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

std::wstring FromUtf8(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring result(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(),
                        static_cast<int>(result.size()));
    return result;
}

std::string HrText(HRESULT hr) {
    wchar_t message[256] = L"";
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                            FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                        nullptr, static_cast<DWORD>(hr), 0, message, 256, nullptr);
    char number[16];
    snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(hr));
    std::wstring text(message, length);
    while (!text.empty() && text.back() == L' ')
        text.pop_back();
    return text.empty() ? number : std::string(number) + " (" + ToUtf8(text) + ")";
}

std::wstring ReadUtf8File(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        Fail(L"cannot open " + path);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    const BOOL ok = ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    if (!ok || read != bytes.size())
        Fail(L"cannot read " + path);
    std::string_view text = bytes;
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    return FromUtf8(text);
}

void Fail(std::wstring_view message) {
    throw std::runtime_error(ToUtf8(message));
}

} // namespace vndesk::test
