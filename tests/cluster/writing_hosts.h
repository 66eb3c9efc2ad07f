// SPDX-License-Identifier: MIT
// Twenty hosts that write while servers come and go, each with one connection string all the time.
// What each host was told of each of its writes is compared with what is there at the end.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "support/dice.h"
#include "support/sample_database.h"

namespace vndesk::test {

inline constexpr int kWritingHosts = 20;

class WritingHosts {
public:
    // By the number of a host: what it connects with.
    using ConnectionOf = std::function<std::wstring(int host)>;
    explicit WritingHosts(ConnectionOf connection);

    // They write until `trouble` returns.
    void Run(const std::function<void()>& trouble);

    // For `trouble`. Until each host has been told once more that something is done.
    void AwaitEach();
    // At some moment between the writes of every host.
    void Strike(const std::function<void()>& kill);

    // What is there of each write, whatever its host was told.
    void ExpectWhatWasTold(const SampleDatabase& database) const;
    // The time from a kill to the end of the next write that was done.
    void TellGaps() const;

private:
    // How a host writes, and whether it asks to be told of lost answers: 1.0 cannot tell them from
    // failures.
    enum class Kind { Record, User, Group, Edit, UserAsIn10 };
    enum class Told { Done, Failed, Lost };
    struct Write {
        int host;
        Kind kind;
        std::wstring mark;
        Told told;
        ULONGLONG begin, end;
    };
    struct Way;
    class Host;
    static const Way kWays[];

    void WarmUp() const;
    void WriteUntil(const std::atomic<bool>& over, int number);
    std::vector<int> Done() const;
    std::string WhoWaits() const;
    std::string AroundKills(ULONGLONG time) const;

    const ConnectionOf connection_;
    mutable std::mutex lock_;
    std::vector<Write> writes_;
    std::vector<ULONGLONG> begun_; // when each host began its last write
    std::vector<ULONGLONG> kills_;
    Dice dice_{1};
};

} // namespace vndesk::test
