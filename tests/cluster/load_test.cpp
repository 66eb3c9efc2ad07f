// SPDX-License-Identifier: MIT
// Many hosts on one server with many users: all log on again and again, and give rights in the
// forms. Nothing is refused and nothing is lost; how many calls a second the machine makes, and how
// long the slowest takes, is told and not judged.
#include <algorithm>
#include <cstdio>
#include <mutex>

#include "cluster/cluster.h"
#include "faults/player.h"
#include "support/forms/administration.h"
#include "support/in_threads.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

constexpr int kGroups = 20;
constexpr DWORD kPatience = 1500000;

// How long calls took, in milliseconds.
class Times {
public:
    template <class Call> void Measure(Call call) {
        const ULONGLONG begin = GetTickCount64();
        call();
        Add(GetTickCount64() - begin);
    }
    void Add(ULONGLONG time) {
        const std::scoped_lock writing(lock_);
        times_.push_back(time);
    }
    std::string Figures(ULONGLONG begin) {
        const ULONGLONG whole = GetTickCount64() - begin;
        std::ranges::sort(times_);
        std::ostringstream text;
        text << times_.size() << " in " << whole << " ms, " << times_.size() * 1000 / whole
             << " a second, median " << times_.at(times_.size() / 2) << " ms, slowest "
             << times_.back() << " ms";
        return text.str();
    }

private:
    std::mutex lock_;
    std::vector<ULONGLONG> times_;
};

class Load : public Cluster {
protected:
    bool NeedsStandby() const override { return false; }

    // Each host in a thread of its own, with objects of its own; every call has its own connection.
    void Run(int hosts,
             const std::function<void(int number, ILogon2& logon, BSTR connection)>& work) {
        InThreads(hosts, COINIT_APARTMENTTHREADED, kPatience, [&](int number) {
            const auto logon =
                LogonWith({.Audit = true, .LockAfter = 3, .ConnectionErrors = vnErrorsRaise}, 3);
            const _bstr_t connection(database_->ConnectionString().c_str());
            work(number, *logon.Get(), connection);
        });
    }

    void Fill() {
        database_ = std::make_unique<SampleDatabase>(SampleDatabase::Server());
        Upgrade(*database_, L"accounts");
        Upgrade(*database_, L"audit");
        const auto rows = [](int count) {
            return L" from generate_series(1," + std::to_wstring(count) + L") as s(n)";
        };
        database_->Execute(L"insert into \"user\"(code,name,\"dec\",idgroup,password) select "
                           L"999+n,'may'||n,'Số '||n,2,1401" +
                           rows(Rounds(20000, 100000)));
        database_->Execute(L"insert into groups(code,name,des,p1,p2,p3) select 99+n,'nhom'||n,'',0,"
                           L"0,0" +
                           rows(kGroups));
        database_->Execute(L"analyze");
    }

    std::wstring Records(const wchar_t* action) const {
        return database_->ScalarText(
            std::wstring(L"select count(*) from vnaudit where \"action\"='") + action + L"'");
    }

    // Turns the first command of the first bar round.
    void GiveRights(int number, ILogon2& logon, BSTR connection, Times& times) {
        ULONGLONG pressed = 0;
        const std::wstring group = L"nhom" + std::to_wstring(number % kGroups + 1) + L"-";
        const std::vector<Step> steps = {
            {L"FmGrp",
             [&](HWND groups) {
                 const auto items = ListTexts(FindControl(groups, L"Lv1"));
                 const auto found = std::ranges::find(items, group);
                 ChooseItem(groups, L"Lv1", static_cast<int>(found - items.begin()));
                 Press(groups, L"CmdPms");
             }},
            {L"FrPms", [&](HWND rights) {
                 const HWND commands = FindControl(rights, L"LstSubMenu");
                 ListView_SetCheckState(commands, 0, !ListView_GetCheckState(commands, 0));
                 pressed = GetTickCount64();
                 Press(rights, L"CmdOk");
             }}};
        const Player player(steps, kManyForms);
        EXPECT_SUCCEEDED(logon.ShowGroup(&connection));
        times.Add(GetTickCount64() - pressed);
        EXPECT_TRUE(player.EverythingClosed());
        for (const std::wstring& message : player.Messages())
            EXPECT_NE(std::wstring::npos, message.find(L"đã được sửa ở máy khác"))
                << ToUtf8(message);
    }

    std::unique_ptr<SampleDatabase> database_;
};

TEST_F(Load, OfManyHostsLosesNothing) {
    Fill();
    const int hosts = Rounds(40, 200), logons = Rounds(1, 10), forms = Rounds(2, 200);
    Times onLogon, onRights;
    const ULONGLONG begin = GetTickCount64();
    Run(hosts, [&](int number, ILogon2& logon, BSTR connection) {
        const long user = 1000 + number * 97;
        const _bstr_t name((L"may" + std::to_wstring(user - 999)).c_str()), password(L"abc");
        for (int i = 0; i < logons; ++i)
            onLogon.Measure([&] {
                long code = 0;
                EXPECT_SUCCEEDED(logon.VerifyPassword(connection, name, password, &code));
                EXPECT_EQ(user, code);
            });
    });
    TellFigures(hosts, " hosts in threads, logons: ", onLogon.Figures(begin));
    EXPECT_EQ(std::to_wstring(hosts * logons), Records(L"logon"));

    const ULONGLONG formsBegin = GetTickCount64();
    Run(forms, [&](int number, ILogon2& logon, BSTR connection) {
        GiveRights(number, logon, connection, onRights);
    });
    TellFigures(forms,
                " hosts in threads, rights given in the form: ", onRights.Figures(formsBegin));
    // Who writes over another one's tick with the same one has changed nothing, and leaves no
    // record.
    EXPECT_NE(L"0", Records(L"rights"));
}

} // namespace
} // namespace vndesk::test
