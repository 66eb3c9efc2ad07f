// SPDX-License-Identifier: MIT
#include "msgbox/text/notice_answers.h"

#include <algorithm>

#include "msgbox/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

using enum NoticeAnswer;

// By the numbers of the button sets; None ends a row.
constexpr NoticeAnswer kSets[][3] = {
    {Ok, None, None},  {Ok, Cancel, None}, {Abort, Retry, Ignore},
    {Yes, No, Cancel}, {Yes, No, None},    {Retry, Cancel, None},
};

constexpr const wchar_t* kCaptions[kNoticeAnswers] = {
    L"",
    texts::kMsgOk,
    texts::kMsgCancel,
    texts::kMsgAbort,
    texts::kMsgRetry,
    texts::kMsgIgnore,
    texts::kMsgYes,
    texts::kMsgNo,
};

bool Has(const std::vector<NoticeAnswer>& answers, NoticeAnswer answer) {
    return std::ranges::find(answers, answer) != answers.end();
}

} // namespace

std::vector<NoticeAnswer> AnswersOf(long buttons) {
    const bool known = buttons >= 0 && buttons < static_cast<long>(std::size(kSets));
    std::vector<NoticeAnswer> answers;
    for (const NoticeAnswer answer : kSets[known ? buttons : 0])
        if (answer != None)
            answers.push_back(answer);
    return answers;
}

std::wstring CaptionOf(NoticeAnswer answer) {
    return ToUncText(kCaptions[static_cast<size_t>(answer)], kToUnicode);
}

NoticeAnswer DefaultAmong(const std::vector<NoticeAnswer>& answers, NoticeAnswer wanted) {
    return Has(answers, wanted) ? wanted : answers.front();
}

NoticeAnswer WayOutAmong(const std::vector<NoticeAnswer>& answers, NoticeAnswer wanted) {
    if (Has(answers, wanted))
        return wanted;
    if (answers.size() == 1)
        return answers.front();
    return Has(answers, Cancel) ? Cancel : None;
}

} // namespace vndesk
