// SPDX-License-Identifier: MIT
#include "logon/refusal_text.h"

#include "accounts/local_time.h"
#include "logon/text/captions.h"

namespace vndesk {

std::wstring RefusalText(const LogonAnswer& answer, const wchar_t* refused) {
    if (answer.closedUntil)
        return texts::kLogonLockedUntil + LocalTimeText(*answer.closedUntil) +
               texts::kLogonLockedBecause;
    if (!answer.triesLeft)
        return refused;
    return std::wstring(refused) + L"\r\n" + texts::kLogonTriesLeft +
           std::to_wstring(*answer.triesLeft) + texts::kLogonTries;
}

} // namespace vndesk
