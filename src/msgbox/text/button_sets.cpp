// SPDX-License-Identifier: MIT
#include "msgbox/text/button_sets.h"

#include <iterator>

#include "msgbox/text/captions.h"

namespace vndesk {

namespace {

constexpr Answer kOk = {texts::kMsgOk, L"OK"};
constexpr Answer kCancel = {texts::kMsgCancel, L"CAN"};
constexpr Answer kAbort = {texts::kMsgAbort, L"ABO"};
constexpr Answer kRetry = {texts::kMsgRetry, L"RET"};
// Ignore shares its tag with Abort: the buttons' two mappings tell them apart.
constexpr Answer kIgnore = {texts::kMsgIgnore, L"ABO"};
constexpr Answer kYes = {texts::kMsgYes, L"YES"};
constexpr Answer kNo = {texts::kMsgNo, L"NO"};

constexpr ButtonSet kSets[] = {
    {kOk, {}, {}},        {kOk, kCancel, {}}, {kAbort, kRetry, kIgnore},
    {kYes, kNo, kCancel}, {kYes, kNo, {}},    {kRetry, kCancel, {}},
};

} // namespace

const ButtonSet* FindButtonSet(long buttons) {
    return buttons >= 0 && buttons < static_cast<long>(std::size(kSets)) ? &kSets[buttons]
                                                                         : nullptr;
}

std::array<double, 3> ButtonLefts(int count, double formWidth,
                                  const std::array<double, 3>& widths) {
    const auto [w1, w2, w3] = widths;
    std::array<double, 3> lefts = {};
    switch (count) {
    case 1:
        lefts[0] = (formWidth - w1) / 2;
        break;
    case 2:
        lefts[0] = (formWidth - w1 - w2) / 2 - 50;
        lefts[1] = lefts[0] + w1 + 100;
        break;
    case 3:
        lefts[0] = (formWidth - w1 - w2 - w3) / 2 - 50;
        lefts[1] = lefts[0] + w1 + 50;
        lefts[2] = lefts[1] + w2 + 50;
        break;
    default:
        break;
    }
    return lefts;
}

} // namespace vndesk
