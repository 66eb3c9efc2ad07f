// SPDX-License-Identifier: MIT
// A node is killed while every form is open, and while twenty hosts write on all three.
#include <set>

#include "cluster/writing_hosts.h"
#include "faults/uses.h"
#include "galera/galera.h"
#include "support/engine_variant.h"
#include "support/in_threads.h"
#include "support/meeting.h"
#include "support/reliability.h"
#include "support/security_settings.h"

namespace vndesk::test {
namespace {

constexpr DWORD kAllForms = 120000;

class KilledNode : public Galera {
protected:
    // Uses whose form is open when the node is killed: the others open their connection later.
    // Varnok knows no languages but 1.0's.
    static std::vector<Use> UsesWithForms() {
        std::vector<Use> uses = AllUses();
        for (const Use& use : ToldUses())
            if (FullRun() || std::string(use.name) == "GroupDeletedRecorded")
                uses.push_back(use);
        std::erase_if(uses, [](const Use& use) {
            return use.steps.empty() || std::string_view(use.name).starts_with("FindShow");
        });
        return uses;
    }

    // What each tells when all goes well.
    static std::vector<Played> PlayedWell(const std::vector<Use>& uses) {
        const SampleDatabase model = SampleDatabase::Embedded();
        MakeSmall(model);
        std::vector<Played> well(uses.size());
        InThreads(static_cast<int>(uses.size()), COINIT_APARTMENTTHREADED, kAllForms, [&](int use) {
            const SampleDatabase elsewhere = SampleDatabase::Embedded();
            EXPECT_TRUE(CopyFileW(model.File().c_str(), elsewhere.File().c_str(), FALSE));
            well[static_cast<size_t>(use)] = Play(uses[static_cast<size_t>(use)], elsewhere);
        });
        return well;
    }
};

TEST_F(KilledNode, IsToldInEveryOpenFormAndNothingIsWritten) {
    const std::vector<Use> uses = UsesWithForms();
    const std::vector<Played> well = PlayedWell(uses);
    const VariantInUse variant("MariaDbBound");
    const SampleDatabase database = SampleDatabase::Galera();
    MakeSmall(database);
    const std::wstring before = Contents(database);
    Meeting meeting(static_cast<int>(uses.size()));
    std::vector<Played> played(uses.size());
    InThreads(static_cast<int>(uses.size()), COINIT_APARTMENTTHREADED, kAllForms, [&](int use) {
        played[static_cast<size_t>(use)] = Play(uses[static_cast<size_t>(use)], database,
                                                [&] { meeting.Arrive([this] { Kill(1); }); });
    });
    for (size_t i = 0; i < uses.size(); ++i) {
        SCOPED_TRACE(uses[i].name);
        ExpectTold(uses[i], well[i], played[i]);
    }
    EXPECT_EQ(before, Contents(database));

    for (const Use& use : AllUses())
        if (const std::set<std::string> next = {"Logon", "UserAdded", "RightsWritten", "Search",
                                                "ItemPicked"};
            next.contains(use.name)) {
            SCOPED_TRACE(use.name);
            EXPECT_EQ(use.answer, Play(use, database).answer);
        }
    EXPECT_NE(before, Contents(database));
    Restore();
    ExpectSameEverywhere(database);
}

TEST_F(KilledNode, DoesNotKeepWritingHostsFromTheTruthAboutEveryWrite) {
    const VariantInUse variant("MariaDbBound");
    const SampleDatabase database = SampleDatabase::Galera();
    Upgrade(database, L"audit");
    WritingHosts hosts(
        [&](int host) { return From(host % kNodes + 1, database.ConnectionString()); });
    hosts.Run([&] {
        for (int round = 0; round < Rounds(1, 20); ++round) {
            hosts.Strike([&] { Kill(round % kNodes + 1); });
            Restore();
        }
    });
    hosts.ExpectWhatWasTold(database);
    hosts.TellGaps();
    ExpectSameEverywhere(database);
}

} // namespace
} // namespace vndesk::test
