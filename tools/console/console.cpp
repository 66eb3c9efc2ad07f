// SPDX-License-Identifier: MIT
#include "console/console.h"

namespace vndesk::console {

void Print(DWORD stream, std::wstring_view text) {
    const HANDLE output = GetStdHandle(stream);
    DWORD mode = 0, written = 0;
    if (GetConsoleMode(output, &mode) &&
        WriteConsoleW(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
        return;
    const std::string bytes = Utf8Of(text);
    WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

Language UserLanguage() {
    switch (PRIMARYLANGID(GetUserDefaultUILanguage())) {
    case LANG_VIETNAMESE:
        return Language::Vietnamese;
    case LANG_FRENCH:
        return Language::French;
    default:
        return Language::English;
    }
}

std::wstring ConnectionStringOf(const std::wstring& word) {
    if (word != L"-")
        return word;
    std::string bytes;
    char byte = 0;
    DWORD read = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &read, nullptr) && read == 1 &&
           byte != '\n' && byte != '\r')
        bytes += byte;
    const int length = static_cast<int>(bytes.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(),
                        static_cast<int>(text.size()));
    return text;
}

std::string Utf8Of(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

} // namespace vndesk::console
