// SPDX-License-Identifier: MIT
// Twenty hosts write while the server is killed and the standby takes over, with one connection
// string all the time. What each host was told of each of its writes is compared with what is there
// at the end.
#include <array>
#include <map>

#include "cluster/cluster.h"
#include "data/connect/transaction.h"
#include "faults/player.h"
#include "support/dice.h"
#include "support/forms/administration.h"
#include "support/in_threads.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

constexpr int kHosts = 20;
constexpr DWORD kPatience = 1500000;
constexpr wchar_t kLost[] =
    L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra.";

// The list behind the form could not be read any more.
constexpr wchar_t kWritten[] = L"Đã ghi, nhưng không đọc lại được.";

enum class Told { Done, Failed, Lost };

// How a host writes, what there is of a write at the end, and whether it asks to be told of lost
// answers: 1.0 cannot tell them from failures.
enum class Kind { Record, User, Group, UserAsIn10 };
struct Way {
    const char* name;
    const wchar_t* count; // of each mark
};
constexpr Way kWays[] = {
    {"records written without a window", L"select subject,count(*) from vnaudit group by subject"},
    {"users added in the form", L"select name,count(*) from \"user\" group by name"},
    {"groups added in the form", L"select name,count(*) from groups group by name"},
    {"users added in the form, without settings",
     L"select name,count(*) from \"user\" group by name"}};

struct Write {
    int host;
    Kind kind;
    std::wstring mark;
    Told told;
    ULONGLONG begin, end;
};

// One host in a thread of its own, with objects and connections of its own.
class Host {
public:
    Host(int number, const std::wstring& connection)
        : number_(number), connection_(connection.c_str()), kind_(number < 8    ? Kind::Record
                                                                  : number < 13 ? Kind::User
                                                                  : number < 17 ? Kind::Group
                                                                                : Kind::UserAsIn10),
          logon_(kind_ == Kind::UserAsIn10
                     ? LogonWith({})
                     : LogonWith({.ConnectionErrors = vnErrorsShowReason}, 3)) {}

    Write WriteOnce() {
        const std::wstring mark =
            L"h" + std::to_wstring(number_) + L"." + std::to_wstring(++count_);
        const ULONGLONG begin = GetTickCount64();
        const Told told = kind_ == Kind::Record ? Record(mark) : InForm(mark);
        return {number_, kind_, mark, told, begin, GetTickCount64()};
    }

private:
    Told Record(const std::wstring& mark) {
        const HRESULT answer = logon_->WriteAudit(connection_, _bstr_t(L"import"),
                                                  _bstr_t(mark.c_str()), _bstr_t(), _bstr_t());
        return SUCCEEDED(answer) ? Told::Done : answer == kAnswerLost ? Told::Lost : Told::Failed;
    }

    Told InForm(const std::wstring& mark) {
        bool confirmed = false;
        const std::vector<Step> steps = Steps(mark, confirmed);
        const Player player(steps, kManyForms);
        BSTR connection = connection_.GetBSTR();
        EXPECT_SUCCEEDED(kind_ == Kind::Group ? logon_->ShowGroup(&connection)
                                              : logon_->UserManager(&connection));
        EXPECT_TRUE(player.EverythingClosed());
        const auto& messages = player.Messages();
        if (std::ranges::count(messages, kLost))
            return Told::Lost;
        if (std::ranges::any_of(messages, [](auto& text) { return text.starts_with(kWritten); }))
            return Told::Done;
        // Where the form did not come so far, nothing was asked to be written.
        return confirmed && messages.empty() ? Told::Done : Told::Failed;
    }

    std::vector<Step> Steps(const std::wstring& mark, bool& confirmed) const {
        const auto fill = [&](HWND form, const wchar_t* box, const wchar_t* text) {
            SetBox(form, box, text);
        };
        if (kind_ == Kind::Group)
            return {{L"FmGrp", [](HWND groups) { Press(groups, L"CmdAdd"); }},
                    {L"FmGrp", [&, fill, mark](HWND groups) {
                         fill(groups, L"txtName", mark.c_str());
                         fill(groups, L"TxtDesc", mark.c_str());
                         confirmed = true;
                         Press(groups, L"CmdWrite");
                     }}};
        return {{L"FrmMenu", [](HWND list) { Press(list, L"CmdAdd"); }},
                {L"FrmInput", [&, fill, mark](HWND editor) {
                     // Groups that could not be read cannot be chosen.
                     if (SendMessageW(FindControl(editor, L"TxtIdGroup"), CB_GETCOUNT, 0, 0) == 0)
                         return Press(editor, L"CMDCAN");
                     fill(editor, L"TxtUser", mark.c_str());
                     ChooseItem(editor, L"TxtIdGroup", 0);
                     fill(editor, L"TxtPass", L"abc");
                     fill(editor, L"txtConfirm", L"abc");
                     confirmed = true;
                     Press(editor, L"CmdOk");
                 }}};
    }

    const int number_;
    _bstr_t connection_;
    const Kind kind_;
    const Microsoft::WRL::ComPtr<ILogon2> logon_;
    int count_ = 0;
};

class WritingHosts : public Cluster {
protected:
    void Run(const SampleDatabase& database, int rounds, uint64_t seed) {
        std::atomic<bool> over{false};
        InThreads(kHosts + 1, COINIT_APARTMENTTHREADED, kPatience, [&](int number) {
            if (number == kHosts) {
                Dice dice(seed);
                for (int round = 0; round < rounds; ++round)
                    Strike(dice);
                over = true;
                return;
            }
            Host host(number, database.ConnectionString());
            while (!over) {
                const Write write = host.WriteOnce();
                const std::scoped_lock writing(lock_);
                writes_.push_back(write);
            }
        });
    }

    // What is there of each write, whatever its host was told.
    void ExpectWhatWasTold(const SampleDatabase& database) const {
        for (size_t kind = 0; kind < std::size(kWays); ++kind) {
            SCOPED_TRACE(kWays[kind].name);
            std::map<std::wstring, std::wstring> there;
            for (const auto& row : database.Query(kWays[kind].count))
                there[row[0].value_or(L"")] = row[1].value_or(L"");
            std::array<std::array<int, 2>, 3> counts = {};
            for (const Write& write : writes_) {
                if (write.kind != static_cast<Kind>(kind))
                    continue;
                const auto found = there.find(write.mark);
                const bool present = found != there.end();
                ++counts[static_cast<size_t>(write.told)][present];
                if (!present && write.told == Told::Done) {
                    ADD_FAILURE() << ToUtf8(write.mark) << " is absent, done "
                                  << AroundKills(write.end);
                }
                if (present) {
                    EXPECT_EQ(L"1", found->second) << ToUtf8(write.mark);
                }
            }
            const auto& [done, failed, lost] = counts;
            EXPECT_GT(done[true], 0);
            if (static_cast<Kind>(kind) != Kind::UserAsIn10) {
                EXPECT_EQ(0, failed[true]);
            }
            TellFigures(kWays[kind].name, ": told done ", done[true], " and absent ", done[false],
                        "; told failed ", failed[true] + failed[false], ", of these present ",
                        failed[true], "; told that the answer is lost ", lost[true] + lost[false],
                        ", of these present ", lost[true]);
        }
    }

    std::string AroundKills(ULONGLONG time) const {
        std::string text;
        for (const ULONGLONG kill : kills_)
            text += std::to_string(static_cast<long long>(time - kill)) + " ";
        return text + "ms after the kills";
    }

    // The time from a kill to the end of the next write that was done.
    void TellGaps() const {
        std::string gaps;
        for (const ULONGLONG kill : kills_) {
            ULONGLONG next = ~0ull;
            for (const Write& write : writes_)
                if (write.told == Told::Done && write.begin >= kill)
                    next = std::min(next, write.end);
            ASSERT_NE(~0ull, next) << "nothing was written after a kill";
            gaps += (gaps.empty() ? "" : ", ") + std::to_string(next - kill);
        }
        TellFigures(kHosts, " hosts, ", writes_.size(), " writes, ", kills_.size(),
                    " kills; ms from a kill to the end of the next write: ", gaps);
    }

private:
    // At some moment between the writes of every host.
    void Strike(Dice& dice) {
        AwaitEach();
        Sleep(static_cast<DWORD>(dice.Roll(300)));
        kills_.push_back(GetTickCount64());
        FailOver();
        AwaitEach();
        if (FullRun())
            Rejoin();
    }
    // Until each host has been told once more that something is done.
    void AwaitEach() {
        const auto counts = [this] {
            const std::scoped_lock reading(lock_);
            std::map<int, int> done;
            for (const Write& write : writes_)
                done[write.host] += write.told == Told::Done;
            return done;
        };
        std::map<int, int> before = counts();
        EXPECT_TRUE(WaitUntil(
            [&] {
                std::map<int, int> now = counts();
                for (int host = 0; host < kHosts; ++host)
                    if (now[host] <= before[host])
                        return false;
                return true;
            },
            120000));
    }

    std::mutex lock_;
    std::vector<Write> writes_;
    std::vector<ULONGLONG> kills_;
};

TEST_F(WritingHosts, WereToldTheTruthAboutEveryWrite) {
    const SampleDatabase database = SampleDatabase::Server();
    Upgrade(database, L"audit");
    Run(database, Rounds(1, 20), 1);
    ExpectWhatWasTold(database);
    TellGaps();
}

} // namespace
} // namespace vndesk::test
