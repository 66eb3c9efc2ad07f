// SPDX-License-Identifier: MIT
// Times of the database as users read them.
#pragma once

#include <string>

#include "data/text/statement.h"

namespace vndesk {

// UTC as the time of this machine, in TCVN3: hours and minutes, with the day where it is not today.
std::wstring LocalTimeText(Moment utc);

} // namespace vndesk
