// SPDX-License-Identifier: MIT
#include "cluster/writing_hosts.h"

#include <algorithm>
#include <array>
#include <map>

#include "data/connect/transaction.h"
#include "faults/player.h"
#include "support/forms/administration.h"
#include "support/in_threads.h"
#include "support/reliability.h"
#include "support/security_settings.h"

namespace vndesk::test {

namespace {

constexpr DWORD kWholeRun = 1500000;
constexpr wchar_t kLost[] =
    L"Mất kết nối khi đang ghi: không biết đã ghi được hay chưa. Hãy mở lại để kiểm tra.";

// The list behind the form could not be read any more.
constexpr wchar_t kWritten[] = L"Đã ghi, nhưng không đọc lại được.";

// The group that is renamed all the time; this stays.
constexpr wchar_t kEdited[] = L"Phòng kế toán";

} // namespace

// What there is of the writes of a kind at the end, by their marks.
struct WritingHosts::Way {
    const char* name;
    const wchar_t* count;
};
const WritingHosts::Way WritingHosts::kWays[] = {
    {"records written without a window", L"select subject,count(*) from vnaudit group by subject"},
    {"users added in the form", L"select name,count(*) from \"user\" group by name"},
    {"groups added in the form", L"select name,count(*) from groups group by name"},
    {"one group renamed in the form, with records",
     L"select subject,count(*) from vnaudit where \"action\"='group-edit' group by subject"},
    {"users added in the form, without settings",
     L"select name,count(*) from \"user\" group by name"}};

// One host in a thread of its own, with objects and connections of its own.
class WritingHosts::Host {
public:
    Host(int number, const std::wstring& connection)
        : number_(number), connection_(connection.c_str()), kind_(KindOf(number)),
          logon_(kind_ == Kind::UserAsIn10 ? LogonWith({})
                                           : LogonWith({.Audit = kind_ == Kind::Edit,
                                                        .ConnectionErrors = vnErrorsShowReason},
                                                       3)) {}

    Write WriteOnce() {
        const std::wstring mark =
            L"h" + std::to_wstring(number_) + L"." + std::to_wstring(++count_);
        const ULONGLONG begin = GetTickCount64();
        const Told told = kind_ == Kind::Record ? Record(mark) : InForm(mark);
        return {number_, kind_, mark, told, begin, GetTickCount64()};
    }

private:
    static Kind KindOf(int number) {
        return number < 7    ? Kind::Record
               : number < 11 ? Kind::User
               : number < 14 ? Kind::Group
               : number < 17 ? Kind::Edit
                             : Kind::UserAsIn10;
    }

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
        const HRESULT answer = kind_ == Kind::Group || kind_ == Kind::Edit
                                   ? logon_->ShowGroup(&connection)
                                   : logon_->UserManager(&connection);
        EXPECT_TRUE(player.EverythingClosed());
        // Without a server there is no table of records either, which a host is told.
        if (FAILED(answer)) {
            EXPECT_EQ(Kind::Edit, kind_);
            return Told::Failed;
        }
        const auto& messages = player.Messages();
        if (std::ranges::count(messages, kLost))
            return Told::Lost;
        if (std::ranges::any_of(messages, [](auto& text) { return text.starts_with(kWritten); }))
            return Told::Done;
        // Where the form did not come so far, nothing was asked to be written.
        return confirmed && messages.empty() ? Told::Done : Told::Failed;
    }

    std::vector<Step> Steps(const std::wstring& mark, bool& confirmed) const {
        const auto begin = [this](HWND groups) {
            if (kind_ == Kind::Group)
                return Press(groups, L"CmdAdd");
            // Of groups that could not be read none can be edited.
            const auto items = ListTexts(FindControl(groups, L"Lv1"));
            const auto edited = std::ranges::find_if(
                items, [](const std::wstring& item) { return item.find(kEdited) != item.npos; });
            if (edited == items.end())
                PostMessageW(groups, WM_CLOSE, 0, 0);
            else
                ChooseItem(groups, L"Lv1", static_cast<int>(edited - items.begin()));
        };
        if (kind_ == Kind::Group || kind_ == Kind::Edit)
            return {{L"FmGrp", begin}, {L"FmGrp", [&, mark](HWND groups) {
                                            SetBox(groups, L"txtName", mark.c_str());
                                            if (kind_ == Kind::Group)
                                                SetBox(groups, L"TxtDesc", mark.c_str());
                                            confirmed = true;
                                            Press(groups, L"CmdWrite");
                                        }}};
        return {{L"FrmMenu", [](HWND list) { Press(list, L"CmdAdd"); }},
                {L"FrmInput", [&, mark](HWND editor) {
                     // Groups that could not be read cannot be chosen.
                     if (SendMessageW(FindControl(editor, L"TxtIdGroup"), CB_GETCOUNT, 0, 0) == 0)
                         return Press(editor, L"CMDCAN");
                     SetBox(editor, L"TxtUser", mark.c_str());
                     ChooseItem(editor, L"TxtIdGroup", 0);
                     SetBox(editor, L"TxtPass", L"abc");
                     SetBox(editor, L"txtConfirm", L"abc");
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

WritingHosts::WritingHosts(ConnectionOf connection)
    : connection_(std::move(connection)), begun_(kWritingHosts) {}

void WritingHosts::Run(const std::function<void()>& trouble) {
    WarmUp();
    std::atomic<bool> over{false};
    InThreads(kWritingHosts + 1, COINIT_APARTMENTTHREADED, kWholeRun, [&](int number) {
        if (number < kWritingHosts)
            return WriteUntil(over, number);
        trouble();
        over = true;
    });
}

// What a process does once is done before there are threads: Wine loads drivers, fonts and input
// methods with the first connection and the first window, and now and then a dozen threads that do
// so at once leave its heap broken, which ends or hangs the process.
void WritingHosts::WarmUp() const {
    const std::wstring connection = connection_(0);
    for (const int host : {-1, kWritingHosts})
        Host(host, connection).WriteOnce();
}

void WritingHosts::WriteUntil(const std::atomic<bool>& over, int number) {
    Host host(number, connection_(number));
    while (!over) {
        {
            const std::scoped_lock writing(lock_);
            begun_[static_cast<size_t>(number)] = GetTickCount64();
        }
        const Write write = host.WriteOnce();
        const std::scoped_lock writing(lock_);
        writes_.push_back(write);
    }
}

std::vector<int> WritingHosts::Done() const {
    const std::scoped_lock reading(lock_);
    std::vector<int> done(kWritingHosts);
    for (const Write& write : writes_)
        done[static_cast<size_t>(write.host)] += write.told == Told::Done;
    return done;
}

void WritingHosts::AwaitEach() {
    const std::vector<int> before = Done();
    EXPECT_TRUE(WaitUntil(
        [&] {
            const std::vector<int> now = Done();
            return std::ranges::equal(before, now, std::less());
        },
        120000))
        << WhoWaits();
}

std::string WritingHosts::WhoWaits() const {
    const std::scoped_lock reading(lock_);
    std::string text = "ms since each host began to write:";
    for (const ULONGLONG begun : begun_)
        text += " " + std::to_string(GetTickCount64() - begun);
    return text;
}

void WritingHosts::Strike(const std::function<void()>& kill) {
    AwaitEach();
    Sleep(static_cast<DWORD>(dice_.Roll(300)));
    kills_.push_back(GetTickCount64());
    kill();
    AwaitEach();
}

void WritingHosts::ExpectWhatWasTold(const SampleDatabase& database) const {
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

std::string WritingHosts::AroundKills(ULONGLONG time) const {
    std::string text;
    for (const ULONGLONG kill : kills_)
        text += std::to_string(static_cast<long long>(time - kill)) + " ";
    return text + "ms after the kills";
}

void WritingHosts::TellGaps() const {
    std::string gaps;
    for (const ULONGLONG kill : kills_) {
        ULONGLONG next = ~0ull;
        for (const Write& write : writes_)
            if (write.told == Told::Done && write.begin >= kill)
                next = std::min(next, write.end);
        ASSERT_NE(~0ull, next) << "nothing was written after a kill";
        gaps += (gaps.empty() ? "" : ", ") + std::to_string(next - kill);
    }
    TellFigures(kWritingHosts, " hosts, ", writes_.size(), " writes, ", kills_.size(),
                " kills; ms from a kill to the end of the next write: ", gaps);
}

} // namespace vndesk::test
