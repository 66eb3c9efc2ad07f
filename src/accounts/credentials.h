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

// Whether the password is the user's; nothing is counted or recorded.
bool IsPasswordOf(const Database& database, long userCode, const std::wstring& password);

} // namespace vndesk
