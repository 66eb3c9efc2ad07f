// SPDX-License-Identifier: MIT
// The connection breaks while a commit is being answered: nobody can know whether it was made, and
// that is what the user is told. Every commit waits for the standby; the server is killed
// meanwhile.
#include "cluster/cluster.h"
#include "data/connect/transaction.h"
#include "faults/uses.h"
#include "support/forms/host.h"
#include "support/in_threads.h"
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
    std::vector<Use> uses = ToldUses();
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

TEST_P(LostAnswers, AreAnErrorOfTheirOwnForCallsWithoutAWindow) {
    const SampleDatabase database = SampleDatabase::Server();
    MakeSmall(database);
    HRESULT answer = S_OK;
    _bstr_t description;
    InThreads(2, COINIT_APARTMENTTHREADED, kPatience, [&](int number) {
        if (number == 1) {
            EXPECT_TRUE(AreWaiting(database, 1));
            FailOver();
            return;
        }
        const auto logon = LogonWith({.ConnectionErrors = vnErrorsRaise});
        const _bstr_t connection(database.ConnectionString().c_str());
        StopAnswers(GetParam());
        answer = logon->WriteAudit(connection, _bstr_t(L"import"), _bstr_t(L"KhachHang"),
                                   _bstr_t(L""), _bstr_t(L"31"));
        Microsoft::WRL::ComPtr<IErrorInfo> error;
        ASSERT_EQ(S_OK, GetErrorInfo(0, &error));
        EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
    });
    EXPECT_EQ(kAnswerLost, answer);
    EXPECT_STREQ(kTold, description);
    EXPECT_EQ(GetParam() ? L"1" : L"0", database.ScalarText(L"select count(*) from vnaudit"));
}

INSTANTIATE_TEST_SUITE_P(Commits, LostAnswers, testing::Bool(), [](const auto& info) {
    return info.param ? "ThatWereMade" : "ThatWereNotMade";
});

} // namespace
} // namespace vndesk::test
