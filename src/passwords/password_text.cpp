// SPDX-License-Identifier: MIT
#include "passwords/password_text.h"

#include <algorithm>

#include "comkit/base/com_error.h"
#include "comkit/base/library.h"

namespace vndesk {

namespace {

// Form C of a text in UTF-16 is at most three times as long, and so is its UTF-8.
constexpr std::size_t kMostGrowth = 3;
constexpr std::size_t kLongestText = 0x1000000;

using NormalizeText = int WINAPI(NORM_FORM, const wchar_t*, int, wchar_t*, int);

// Not imported, because programs that never ask for a password should not load it.
NormalizeText* FindNormalizeText() {
    NormalizeText* found = nullptr;
    Library(L"normaliz.dll").Find(found, "NormalizeString");
    return found;
}

std::wstring_view View(const Wiped<wchar_t>& text) {
    return {text.Data(), text.Size()};
}

} // namespace

Wiped<wchar_t> NormalForm(std::wstring_view text) {
    if (text.size() > kLongestText)
        throw ComError(E_INVALIDARG);
    Wiped<wchar_t> normal(text.size() * kMostGrowth);
    normal.Shorten(0);
    if (text.empty())
        return normal;
    static NormalizeText* const normalize = FindNormalizeText();
    const int length = normalize(NormalizationC, text.data(), static_cast<int>(text.size()),
                                 normal.Data(), static_cast<int>(text.size() * kMostGrowth));
    if (length > 0) {
        normal.Shorten(static_cast<std::size_t>(length));
        return normal;
    }
    if (GetLastError() != ERROR_NO_UNICODE_TRANSLATION)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    std::copy(text.begin(), text.end(), normal.Data());
    normal.Shorten(text.size());
    return normal;
}

Wiped<unsigned char> PasswordBytes(std::wstring_view password) {
    const Wiped<wchar_t> normal = NormalForm(password);
    Wiped<unsigned char> bytes(normal.Size() * kMostGrowth);
    if (normal.Size() == 0)
        return bytes;
    const int length = WideCharToMultiByte(
        CP_UTF8, 0, normal.Data(), static_cast<int>(normal.Size()),
        reinterpret_cast<char*>(bytes.Data()), static_cast<int>(bytes.Size()), nullptr, nullptr);
    if (length <= 0)
        throw ComError(HRESULT_FROM_WIN32(GetLastError()));
    bytes.Shorten(static_cast<std::size_t>(length));
    return bytes;
}

bool AreSamePassword(std::wstring_view left, std::wstring_view right) {
    return View(NormalForm(left)) == View(NormalForm(right));
}

PasswordVerdict JudgeNewPassword(std::wstring_view password, std::wstring_view userName,
                                 long leastLength) {
    return JudgePassword(View(NormalForm(password)), View(NormalForm(userName)), leastLength);
}

} // namespace vndesk
