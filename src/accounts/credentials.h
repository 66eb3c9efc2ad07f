// SPDX-License-Identifier: MIT
// Whether a name and a password belong to a user: what the logon dialog asks, and hosts without a
// window.
#pragma once

#include <optional>
#include <string>

#include "data/connect/database.h"

namespace vndesk {

struct LogonAnswer {
    enum Verdict {
        Accepted,
        Refused,
        Locked,  // until closedUntil
        Delayed, // to be asked again after waitSeconds; nothing has been looked at
    };

    Verdict verdict = Refused;
    long userCode = 0;          // whose name it is, whatever the verdict; 0 for nobody's
    std::wstring userName = {}; // as the database has it
    long groupCode = 0;
    bool mustChange = false;
    std::optional<Moment> closedUntil = {}; // UTC
    long waitSeconds = 0;
    std::optional<long> triesLeft = {}; // before the user is locked
};

// Looks the user up by the name and judges the password by the settings: hash or number, locks,
// upgrade, records. Throws the provider's error.
LogonAnswer CheckCredentials(const Database& database, const std::wstring& name,
                             const std::wstring& password);

// The same, waiting where the user is delayed. The user's Code, or 0.
long VerifiedUser(const Database& database, const std::wstring& name, const std::wstring& password);

// The same for a user who says the present password before changing it: wrong ones count and are
// recorded as those of a logon, and the right one is no logon.
LogonAnswer CheckPresentPassword(const Database& database, long userCode,
                                 const std::wstring& password);

} // namespace vndesk
