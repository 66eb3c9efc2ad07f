// SPDX-License-Identifier: MIT
// Names that no user has are answered as if they had one, so that the answers do not tell which
// names there are.
#pragma once

#include <map>
#include <string>

#include "accounts/credentials.h"
#include "accounts/text/lock_out.h"

namespace vndesk {

// Of one logon dialog.
class UnknownNames {
public:
    // The answer itself where it is about a user.
    LogonAnswer AsIfKnown(const LogonAnswer& answer, const std::wstring& name,
                          const Settings& settings);

private:
    std::map<std::wstring, Tries> tries_; // by the name in capitals
};

} // namespace vndesk
