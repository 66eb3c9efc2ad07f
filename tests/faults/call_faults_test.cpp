// SPDX-License-Identifier: MIT
// Each use of the library, with each of its calls to ADO failing once, failing for good, or doing
// its work and failing all the same. Every time the forms close, the host has its answer or the
// neutral one, the database holds what was written or what it held before, the user has been told,
// and nothing stays behind. VNDESK_RELIABILITY=full tries every call, else some of them are tried.
#include <gtest/gtest.h>

#include <algorithm>

#include "faults/faulty_ado.h"
#include "faults/kept_database.h"
#include "support/reliability.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

constexpr size_t kSomeCalls = 5; // of a use, without VNDESK_RELIABILITY=full

const char* NameOf(Fault fault) {
    switch (fault) {
    case Fault::Once:
        return "fails once";
    case Fault::FromThenOn:
        return "fails from then on";
    case Fault::Unconfirmed:
        return "works and fails all the same";
    }
    return "";
}

// Calls whose failure the user is told of: what opens and what writes. What reads rows that have
// been opened ends in silence.
bool IsTold(const std::string& call) {
    for (const char* told :
         {"new Connection", "Connection.Provider", "Connection.Open", "Connection.Execute",
          "new Recordset", "Recordset.ActiveConnection", "Recordset.Open", "new Command",
          "Command.ActiveConnection", "Command.CommandText", "Command.Parameters",
          "Command.CreateParameter", "Parameters.Append", "Command.Execute", "Command.Open",
          "Connection.BeginTrans", "Connection.CommitTrans"})
        if (call == told)
            return true;
    return false;
}

class CallFaults : public testing::TestWithParam<Use> {
protected:
    Played PlayWith(size_t call, Fault fault = Fault::Once) {
        ado_.Begin(call, fault);
        const Played played = Play(GetParam(), database_.Sample());
        EXPECT_EQ(0, ado_.Objects());
        return played;
    }

    // Without a fault.
    void PlayWell() {
        const Use& use = GetParam();
        well_ = PlayWith(0);
        calls_ = ado_.Calls();
        EXPECT_EQ(use.answer, well_.answer);
        if (use.probe) {
            EXPECT_EQ(use.probed, database_.Sample().ScalarText(use.probe));
            EXPECT_EQ(use.writes, ado_.Writes());
        }
        after_ = database_.Now();
        EXPECT_EQ(use.probe != nullptr, after_ != database_.Before());
        database_.Restore();
    }

    void PlayBadly(size_t call, Fault fault) {
        const Use& use = GetParam();
        const std::string& name = calls_.at(call - 1);
        SCOPED_TRACE("call " + std::to_string(call) + ", " + name + ", " + NameOf(fault));
        const Played played = PlayWith(call, fault);
        ++faults_;
        EXPECT_TRUE(played.answer == use.answer || played.answer == use.neutral)
            << ToUtf8(played.answer);
        const bool written = ado_.Writes() > 0;
        const std::wstring now = database_.Now();
        if (now != database_.Before()) {
            EXPECT_TRUE(written);
            if (use.writesUnchecked)
                EXPECT_TRUE(IsTold(name) && fault == Fault::Once);
            else if (use.addsUncounted && now != after_)
                EXPECT_TRUE(name == "Recordset.EOF" && fault == Fault::Once);
            else
                EXPECT_EQ(after_, now);
            database_.Restore();
        } else if (written) {
            EXPECT_TRUE(use.mayUpdateNothing || use.recorded);
        }
        if (use.recorded && played.answer == use.neutral) {
            // Without a form the error may come after a write, which has been taken back.
            EXPECT_TRUE(!written || use.steps.empty());
            return;
        }
        if (IsTold(name) && !(use.raisesTheFirst && call == 1) &&
            !(use.refusedProviderIsSilent && name == "Connection.Provider") &&
            !(use.tellsNoFailedWrite && name == "Connection.Execute") &&
            !(use.asksAfterWriting && WritesBefore(call))) {
            EXPECT_TRUE(played.TellsMoreThan(well_));
        }
    }

    bool WritesBefore(size_t call) const {
        const auto end = calls_.begin() + static_cast<std::ptrdiff_t>(call) - 1;
        return std::find(calls_.begin(), end,
                         GetParam().recorded ? "Connection.CommitTrans" : "Connection.Execute") !=
               end;
    }

    // Between a change and the end of its transaction.
    bool IsInTransaction(size_t call) const {
        const auto here = calls_.begin() + static_cast<std::ptrdiff_t>(call) - 1;
        return std::find(calls_.begin(), here + 1, "Connection.BeginTrans") != here + 1 &&
               std::find(here, calls_.end(), "Connection.CommitTrans") != calls_.end();
    }

    // Some of the calls, spread over the use; all of them, and all that write, when asked.
    bool IsTried(size_t call, Fault fault) const {
        const std::string& name = calls_.at(call - 1);
        if (name == "Connection.Execute" || name == "Command.Execute" ||
            name == "Connection.CommitTrans")
            return true;
        if (fault == Fault::Unconfirmed)
            return false;
        if (fault == Fault::Once && IsInTransaction(call))
            return true;
        const size_t stride = std::max<size_t>(1, calls_.size() / kSomeCalls);
        const size_t offset = fault == Fault::Once ? 0 : stride / 2;
        return FullRun() || call % stride == offset % stride;
    }

    FaultyAdo ado_;
    const KeptDatabase database_;
    std::wstring after_;
    Played well_;
    std::vector<std::string> calls_; // of the use when all goes well
    int faults_ = 0;
};

TEST_P(CallFaults, LeaveTheDatabaseWholeAndNothingBehind) {
    // The first windows of a kind fill caches that stay.
    PlayWell();
    for (const Fault fault : {Fault::FromThenOn, Fault::Once}) {
        const size_t stride = std::max<size_t>(2, calls_.size() / 3);
        for (size_t call = 1; call <= calls_.size(); call += stride)
            PlayBadly(call, fault);
        PlayWell();
    }
    const Holdings before;
    faults_ = 0;
    for (const Fault fault : {Fault::Once, Fault::FromThenOn, Fault::Unconfirmed})
        for (size_t call = 1; call <= calls_.size(); ++call)
            if (IsTried(call, fault))
                PlayBadly(call, fault);
    PlayWell(); // the counts were taken after one
    before.ExpectBack(GetParam().name, calls_.size(), faults_);
}

constexpr auto kNameOfUse = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(Uses, CallFaults, testing::ValuesIn(AllUses()), kNameOfUse);
INSTANTIATE_TEST_SUITE_P(RecordedUses, CallFaults, testing::ValuesIn(RecordedUses()), kNameOfUse);

} // namespace
} // namespace vndesk::test
