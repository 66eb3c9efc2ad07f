// SPDX-License-Identifier: MIT
#include "data/connect/transaction.h"

#include <comutil.h>

#include <algorithm>

#include "comkit/base/com_error.h"
#include "data/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// States in which a connection breaks, among others: a driver that connects again by itself answers
// what is asked next.
constexpr std::wstring_view kBroken[] = {L"08", L"40003", L"57P01", L"57P02", L"57P03"};

bool TellsOfBreak(Errors& errors) {
    long count = 0;
    CheckHr(errors.get_Count(&count));
    for (long i = 0; i < count; ++i) {
        ComPtr<Error> error;
        _bstr_t state;
        CheckHr(errors.get_Item(_variant_t(i), &error));
        CheckHr(error->get_SQLState(state.GetAddress()));
        const std::wstring_view told(state, state.length());
        if (std::ranges::any_of(kBroken, [&](auto code) { return told.starts_with(code); }))
            return true;
    }
    return false;
}

// A connection that still answers has answered the commit too: by its error.
bool IsBroken(const AdoConnection& connection) {
    bool broken = false;
    Trap([&] {
        ComPtr<Errors> errors;
        CheckHr(connection->get_Errors(&errors));
        broken = TellsOfBreak(*errors.Get());
    });
    return broken || !Answers(connection);
}

} // namespace

Transaction::Transaction(const Database& database)
    : connection_(database.connection), tellsLostAnswers_(database.settings.TellsLostAnswers()) {
    if (!connection_)
        throw ComError(E_UNEXPECTED);
    long level = 0;
    CheckCall(connection_->BeginTrans(&level), connection_.Get(), __uuidof(_Connection));
    open_ = true;
}

// What cannot be taken back now goes with the connection.
Transaction::~Transaction() {
    if (open_)
        connection_->RollbackTrans();
}

void Transaction::Commit() {
    const ErrorState error = Trap(
        [&] { CheckCall(connection_->CommitTrans(), connection_.Get(), __uuidof(_Connection)); });
    if (error) {
        if (tellsLostAnswers_ && IsBroken(connection_))
            throw ComError(kAnswerLost, ToUncText(texts::kAnswerLost, kToUnicode));
        throw ComError(error.code, error.description);
    }
    open_ = false;
    // A driver that has noticed that its connection is gone may have nothing to commit any more,
    // and be content with that.
    if (tellsLostAnswers_ && !Answers(connection_))
        throw ComError(kAnswerLost, ToUncText(texts::kAnswerLost, kToUnicode));
}

} // namespace vndesk
