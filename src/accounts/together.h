// SPDX-License-Identifier: MIT
// Writes that belong together where more is written than one statement of 1.0.
#pragma once

#include "data/connect/transaction.h"

namespace vndesk {

// All or nothing, in one transaction. A host that asks for neither accounts nor records, nor to be
// told of lost answers, gets its one statement as it always was, without one.
template <class Writes> void Together(const Database& database, Writes writes) {
    const Settings& settings = database.settings;
    if (!settings.KeepsAccounts() && !settings.Audit && !settings.TellsLostAnswers())
        return writes();
    Transaction transaction(database);
    writes();
    transaction.Commit();
}

} // namespace vndesk
