// SPDX-License-Identifier: MIT
// The connection breaks while a commit is being answered: nobody can know whether it was made, and
// that is what the user is told. Every commit waits for the standby; the server is killed
// meanwhile.
#include <algorithm>
#include <set>

#include "cluster/cluster.h"
#include "data/connect/transaction.h"
#include "faults/uses.h"
#include "support/forms/host.h"
#include "support/in_threads.h"
#include "support/meeting.h"
#include "support/reliability.h"
#include "support/security_settings.h"

namespace vndesk::test {
namespace {

constexpr DWORD kPatience = 120000;
constexpr wchar_t kTold[] =
    L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra.";

class LostAnswers : public Cluster, public testing::WithParamInterface<bool> {
protected:
    // Engines show a double with and without them.
    static std::wstring WithoutDecimals(std::wstring number) {
        if (number.ends_with(L".0"))
            number.resize(number.size() - 2);
        return number;
    }

    static std::vector<Use> UsesHere() {
        std::vector<Use> uses = ToldUses();
        std::erase_if(uses, [](const Use& use) {
            const std::set<std::string> quick = {"UserAddedRecorded", "GroupAddedRecorded",
                                                 "RightsWrittenRecorded"};
            return !FullRun() && !quick.contains(use.name);
        });
        uses.push_back({.name = "HostRecordedWithoutAWindow",
                        .call = WriteAudit,
                        .probe = L"select count(*) from vnaudit",
                        .probed = L"1"});
        return uses;
    }

    // An error of its own tells a host.
    static std::wstring WriteAudit(const SampleDatabase&, const std::wstring& connection) {
        const auto logon = LogonWith({.ConnectionErrors = vnErrorsRaise});
        EXPECT_EQ(kAnswerLost, logon->WriteAudit(_bstr_t(connection.c_str()), _bstr_t(L"import"),
                                                 _bstr_t(L"KhachHang"), _bstr_t(), _bstr_t(L"31")));
        Microsoft::WRL::ComPtr<IErrorInfo> error;
        _bstr_t description;
        EXPECT_EQ(S_OK, GetErrorInfo(0, &error));
        EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
        EXPECT_STREQ(kTold, description);
        return L"raised";
    }

    // Waits until so many commits are not being answered.
    static bool AreWaiting(const SampleDatabase& database, int commits) {
        OdbcSession look(database.OdbcString());
        return WaitUntil(
            [&] {
                return look.ScalarText(L"select count(*) from pg_stat_activity where "
                                       L"wait_event='SyncRep'") == std::to_wstring(commits);
            },
            60000);
    }

    // All uses at once, each in a database of its own; what each told.
    std::vector<Played> PlayAll(const std::vector<Use>& uses,
                                const std::vector<SampleDatabase>& databases, bool arrives) {
        std::vector<Played> played(uses.size());
        const int count = static_cast<int>(uses.size());
        Meeting meeting(count);
        InThreads(count + 1, COINIT_APARTMENTTHREADED, kPatience, [&](int number) {
            if (number == count) {
                EXPECT_TRUE(AreWaiting(databases[0], count));
                FailOver();
                return;
            }
            const auto i = static_cast<size_t>(number);
            played[i] =
                Play(uses[i], databases[i], [&] { meeting.Arrive([&] { StopAnswers(arrives); }); });
        });
        return played;
    }
};

TEST_P(LostAnswers, AreToldAsSuchAndTheFormsShowWhatHolds) {
    const bool arrives = GetParam();
    const SampleDatabase small = SampleDatabase::Server();
    MakeSmall(small);
    const std::vector<Use> uses = UsesHere();
    std::vector<SampleDatabase> databases;
    for (size_t i = 0; i < uses.size(); ++i)
        databases.push_back(small.Copy());
    const std::wstring before = Contents(small);
    const std::vector<Played> played = PlayAll(uses, databases, arrives);
    for (size_t i = 0; i < uses.size(); ++i) {
        SCOPED_TRACE(uses[i].name);
        if (uses[i].steps.empty()) {
            EXPECT_EQ(L"raised", played[i].answer);
        } else {
            EXPECT_EQ(1, std::ranges::count(played[i].messages, kTold));
        }
        if (arrives)
            EXPECT_EQ(WithoutDecimals(uses[i].probed),
                      WithoutDecimals(databases[i].ScalarText(uses[i].probe)));
        else
            EXPECT_EQ(before, Contents(databases[i]));
    }
}

INSTANTIATE_TEST_SUITE_P(Commits, LostAnswers, testing::Bool(), [](const auto& info) {
    return info.param ? "ThatWereMade" : "ThatWereNotMade";
});

} // namespace
} // namespace vndesk::test
