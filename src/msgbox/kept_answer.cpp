// SPDX-License-Identifier: MIT
#include "msgbox/kept_answer.h"

#include <windows.h>

#include <optional>

#include "msgbox/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

constexpr wchar_t kValue[] = L"DontShow";

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

// Who backs out has decided nothing.
bool IsDecided(const Notice& notice, NoticeAnswer answer) {
    return answer != NoticeAnswer::Cancel || AnswersOf(notice.buttons).size() == 1;
}

} // namespace

NoticeAnswer ShowUnlessAnswered(Notice& notice, const std::wstring& key) {
    if (const auto kept = KeptAnswer(key))
        return *kept;
    if (notice.checkText.empty())
        notice.checkText = ToUncText(texts::kMsgDontShow, kToUnicode);
    const NoticeAnswer given = ShowNotice(notice);
    if (notice.checked && IsDecided(notice, given))
        KeepAnswer(key, given);
    return given;
}

void ForgetAnswer(const std::wstring& key) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key.c_str(), kValue);
}

} // namespace vndesk
