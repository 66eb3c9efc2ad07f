// SPDX-License-Identifier: MIT
#include "msgbox/text/return_codes.h"

#include "msgbox/text/captions.h"

namespace vndesk {

namespace {

struct Rule {
    std::wstring_view tag;
    std::wstring_view caption;
    long code;
};

// "NO " with its blank matches no button's tag, and "ABO" stands twice: both are relied upon.
constexpr Rule kLenient[] = {
    {L"OK", texts::kMsgOk, 1},      {L"CAN", texts::kMsgCancel, 2}, {L"YES", texts::kMsgYes, 6},
    {L"NO ", texts::kMsgNo, 7},     {L"ABO", texts::kMsgAbort, 3},  {L"RET", texts::kMsgRetry, 4},
    {L"ABO", texts::kMsgIgnore, 5},
};

constexpr Rule kExact[] = {
    {L"OK", {}, 1},  {L"CAN", {}, 2}, {L"YES", {}, 6}, {L"NO", {}, 7},
    {L"ABO", {}, 3}, {L"RET", {}, 4}, {L"IGN", {}, 5},
};

} // namespace

long GetReturn(std::wstring_view text, std::wstring_view tag) {
    long code = 0;
    for (const Rule& rule : kLenient)
        if (tag == rule.tag || text.find(rule.caption) != std::wstring_view::npos)
            code = rule.code;
    return code;
}

long GetReturn1(std::wstring_view tag) {
    long code = 0;
    for (const Rule& rule : kExact)
        if (tag == rule.tag)
            code = rule.code;
    return code;
}

} // namespace vndesk
