// SPDX-License-Identifier: MIT
// Several writes that belong together.
#pragma once

#include "data/connect/database.h"

namespace vndesk {

// 0x80040215, as the reference tells hosts: the connection broke before the commit was answered, so
// that nobody knows whether it was made. The description says so to the user.
inline constexpr HRESULT kAnswerLost = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x215);

// Taken back at the end unless it was committed.
class Transaction {
public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // Throws the provider's error, or kAnswerLost where the settings ask to be told.
    void Commit();

private:
    const AdoConnection connection_;
    const bool tellsLostAnswers_;
    bool open_ = false;
};

} // namespace vndesk
