// SPDX-License-Identifier: MIT
#include "data/stores/ansi_text.h"

#include <windows.h>

namespace vndesk {

std::string ToAnsi(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string result(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), length,
                                                                    nullptr, 0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, result.data(),
                        static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

std::wstring FromAnsi(std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring result(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(),
                        static_cast<int>(result.size()));
    return result;
}

std::wstring WithAnsiApostrophes(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& letter : result)
        if (ToAnsi({&letter, 1}) == "'")
            letter = L'\'';
    return result;
}

} // namespace vndesk
