// SPDX-License-Identifier: MIT
// Which answers a message box offers, by the numbers of Visual Basic's MsgBox.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace vndesk {

enum class NoticeAnswer : long { None, Ok, Cancel, Abort, Retry, Ignore, Yes, No };
inline constexpr size_t kNoticeAnswers = 8;

// Unicode, by answer; empty: the library's own.
using NoticeCaptions = std::array<std::wstring, kNoticeAnswers>;

// The answers of a button set from left to right; OK alone for a number that names none.
std::vector<NoticeAnswer> AnswersOf(long buttons);

// The library's caption of an answer in Unicode, with the letter behind Alt marked.
std::wstring CaptionOf(NoticeAnswer answer);

// The answer among these that is asked for, or else the one that is usual: as the default button
// the first one, as the way out Cancel or the only one. None: there is no way out but an answer.
NoticeAnswer DefaultAmong(const std::vector<NoticeAnswer>& answers, NoticeAnswer wanted);
NoticeAnswer WayOutAmong(const std::vector<NoticeAnswer>& answers, NoticeAnswer wanted);

} // namespace vndesk
