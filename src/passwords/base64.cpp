// SPDX-License-Identifier: MIT
#include "passwords/base64.h"

#include <windows.h>

#include <wincrypt.h>

#include "comkit/base/com_error.h"
#include "comkit/base/library.h"

namespace vndesk {

namespace {

constexpr DWORD kOneLine = CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF;

struct Conversions {
    decltype(&CryptBinaryToStringW) ToText = nullptr;
    decltype(&CryptStringToBinaryW) ToBytes = nullptr;
};

Conversions FindAll() {
    const Library library(L"crypt32.dll");
    Conversions found;
    library.Find(found.ToText, "CryptBinaryToStringW");
    library.Find(found.ToBytes, "CryptStringToBinaryW");
    return found;
}

const Conversions& Functions() {
    static const Conversions found = FindAll();
    return found;
}

} // namespace

std::wstring ToBase64(std::span<const unsigned char> bytes) {
    // With the zero at the end, which is not counted when the text is written.
    std::wstring text((bytes.size() + 2) / 3 * 4 + 1, L'\0');
    auto length = static_cast<DWORD>(text.size());
    if (!Functions().ToText(bytes.data(), static_cast<DWORD>(bytes.size()), kOneLine, text.data(),
                            &length))
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    text.resize(length);
    return text;
}

void FromBase64(const std::wstring& text, std::span<unsigned char> bytes) {
    auto length = static_cast<DWORD>(bytes.size());
    if (!Functions().ToBytes(text.c_str(), static_cast<DWORD>(text.size()), CRYPT_STRING_BASE64,
                             bytes.data(), &length, nullptr, nullptr))
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    if (length != bytes.size())
        throw ComError(HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
}

} // namespace vndesk
