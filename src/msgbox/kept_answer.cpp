// SPDX-License-Identifier: MIT
#include "msgbox/kept_answer.h"

#include <windows.h>

namespace vndesk {

namespace {

constexpr wchar_t kValue[] = L"DontShow";

} // namespace

std::optional<NoticeAnswer> KeptAnswer(const std::wstring& key) {
    DWORD answer = 0;
    DWORD bytes = sizeof answer;
    if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), kValue, RRF_RT_REG_DWORD, nullptr, &answer,
                     &bytes) != ERROR_SUCCESS ||
        answer == 0 || answer >= kNoticeAnswers)
        return std::nullopt;
    return static_cast<NoticeAnswer>(answer);
}

void KeepAnswer(const std::wstring& key, NoticeAnswer answer) {
    const auto number = static_cast<DWORD>(answer);
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), kValue, REG_DWORD, &number, sizeof number);
}

void ForgetAnswer(const std::wstring& key) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key.c_str(), kValue);
}

} // namespace vndesk
