// SPDX-License-Identifier: MIT
// Twenty hosts write while the server is killed and the standby takes over.
#include "cluster/cluster.h"
#include "cluster/writing_hosts.h"
#include "support/reliability.h"
#include "support/security_settings.h"

namespace vndesk::test {
namespace {

class Failover : public Cluster {};

TEST_F(Failover, TellsWritingHostsTheTruthAboutEveryWrite) {
    const SampleDatabase database = SampleDatabase::Server();
    Upgrade(database, L"audit");
    WritingHosts hosts([&](int) { return database.ConnectionString(); });
    hosts.Run([&] {
        for (int round = 0; round < Rounds(1, 20); ++round) {
            hosts.Strike([&] { FailOver(); });
            if (FullRun())
                Rejoin();
        }
    });
    hosts.ExpectWhatWasTold(database);
    hosts.TellGaps();
}

} // namespace
} // namespace vndesk::test
