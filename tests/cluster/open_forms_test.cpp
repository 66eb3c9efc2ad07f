// SPDX-License-Identifier: MIT
// The server is killed while every form is open, and the standby takes over: who reads or writes
// then is told, nothing has been written, and the next call works with the same connection string.
#include <set>

#include "cluster/cluster.h"
#include "data/stores/options.h"
#include "faults/uses.h"
#include "support/forms/search.h"
#include "support/in_threads.h"
#include "support/meeting.h"
#include "support/reliability.h"

namespace vndesk::test {
namespace {

constexpr DWORD kPatience = 120000;

class OpenForms : public Cluster {
protected:
    // Uses with a form: the others open their connection when the standby has taken over.
    static std::vector<Use> UsesWithForms() {
        std::vector<Use> uses = AllUses();
        for (const Use& use : ToldUses())
            if (FullRun() || std::string(use.name) == "GroupDeletedRecorded")
                uses.push_back(use);
        std::erase_if(uses, [](const Use& use) { return use.steps.empty(); });
        return uses;
    }

    // Conditions for a server mark their texts.
    static Use OnServer(Use use) {
        if (const size_t text = use.answer.find(L"  =  '"); text != std::wstring::npos)
            use.answer.insert(text + 5, L"N");
        return use;
    }

    // Settings have no form: they are written and read on a connection that was open before.
    static Use SettingsOnAnOpenConnection(const std::function<void()>& meanwhile) {
        return {.name = "Settings",
                .call = [meanwhile](const SampleDatabase&, const std::wstring& connection) {
                    constexpr OptionName option = {L"BaoCao", L"SoDongMoiTrang"};
                    Database opened = OpenConnection(connection);
                    meanwhile();
                    const bool refused = SetOption(opened, option, L"50", L"", false) != 0;
                    std::wstring answer = refused ? L"refused " : L"written ";
                    answer += GetOption(opened, option, L"thay");
                    CloseConnection(opened);
                    return answer;
                }};
    }
};

TEST_F(OpenForms, TellOfAServerThatWasKilledAndWriteNothing) {
    const SampleDatabase database = SampleDatabase::Server();
    MakeSmall(database);
    const std::wstring before = Contents(database);
    const SampleDatabase model = SampleDatabase::Embedded();
    MakeSmall(model);
    const std::vector<Use> uses = UsesWithForms();
    const int forms = static_cast<int>(uses.size());
    Meeting meeting(forms + 1);
    const auto meanwhile = [&] { meeting.Arrive([this] { FailOver(); }); };
    std::vector<Played> well(uses.size()), played(uses.size());
    Played settings;
    InThreads(forms + 1, COINIT_APARTMENTTHREADED, kPatience, [&](int number) {
        if (number == forms) {
            settings = Play(SettingsOnAnOpenConnection(meanwhile), database);
            return;
        }
        const auto use = static_cast<size_t>(number);
        const SampleDatabase elsewhere = SampleDatabase::Embedded();
        EXPECT_TRUE(CopyFileW(model.File().c_str(), elsewhere.File().c_str(), FALSE));
        well[use] = Play(uses[use], elsewhere);
        played[use] = Play(uses[use], database, meanwhile);
    });
    for (size_t i = 0; i < uses.size(); ++i) {
        SCOPED_TRACE(uses[i].name);
        EXPECT_EQ(uses[i].answer, well[i].answer);
        ExpectTold(OnServer(uses[i]), well[i], played[i]);
    }
    EXPECT_EQ(L"refused thay", settings.answer);
    EXPECT_FALSE(settings.messages.empty());
    EXPECT_EQ(before, Contents(database));

    for (const Use& use : AllUses())
        if (const std::set<std::string> next = {"Logon", "UserAdded", "RightsWritten", "Search",
                                                "FindShowWithPicker", "ItemPicked"};
            next.contains(use.name)) {
            SCOPED_TRACE(use.name);
            EXPECT_EQ(OnServer(use).answer, Play(use, database).answer);
            if (use.probe) {
                EXPECT_EQ(use.probed, database.ScalarText(use.probe));
            }
        }
}

// A search keeps the connection on which its commands run.
class Searches : public Cluster {
protected:
    static ComPtr<ISearch2> NewSearch(const SampleDatabase& database) {
        const auto search = NewObject<ISearch2>(L"VnDesk.clsSearch");
        EXPECT_SUCCEEDED(
            search->put_ActiveConnection(_variant_t(database.ConnectionString().c_str())));
        EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
        return search;
    }
    static HRESULT RunCommand(ISearch2& search) {
        ComPtr<IDispatch> command;
        ComPtr<_Command> executed;
        ComPtr<_Recordset> found;
        EXPECT_SUCCEEDED(
            search.CreateCommand(_bstr_t(L"Select Count(*) From KhachHang"), Missing(), &command));
        EXPECT_SUCCEEDED(command.As(&executed));
        return executed->Execute(nullptr, nullptr, adCmdText, &found);
    }
};

TEST_F(Searches, WhoseConnectionIsGoneOpenItAgain) {
    const SampleDatabase database = SampleDatabase::Server();
    const auto forCommands = NewSearch(database), forForms = NewSearch(database);
    EXPECT_SUCCEEDED(RunCommand(*forCommands.Get()));
    EXPECT_SUCCEEDED(RunCommand(*forForms.Get()));
    FailOver();
    EXPECT_SUCCEEDED(RunCommand(*forCommands.Get()));
    const std::vector<Step> steps = {{L"FrmFind", [](HWND form) {
                                          SendMessageW(ListOf(form, L"CmbPredicate(0)"), WM_KEYDOWN,
                                                       VK_DOWN, 0);
                                          SetBox(form, L"MskValue(0)", L"KH001");
                                          Press(form, L"CmdOk");
                                      }}};
    const Player player(steps);
    long modal = 1;
    EXPECT_SUCCEEDED(forForms->Show(&modal, Missing()));
    EXPECT_EQ(0u, player.Messages().size());
    EXPECT_NE(L"", ResultOf(*forForms.Get()));
}

} // namespace
} // namespace vndesk::test
