// SPDX-License-Identifier: MIT
// Operations of several threads at the same moment, each with a database of its own: none may see
// another one's. All forms are open before the first goes on.
#include <comutil.h>

#include <atomic>

#include "support/in_threads.h"
#include "support/forms/font_in_use.h"
#include "support/forms/search.h"
#include "support/forms/thread_script.h"

namespace vndesk::test {
namespace {

constexpr int kThreads = 4;
constexpr int kTextField = 0;
constexpr int kFirstPredicate = 0;

// Every other one is on the server, where there is one.
SampleDatabase DatabaseOf(int number) {
    return number % 2 && SampleDatabase::ServerAvailable() ? SampleDatabase::Server()
                                                           : SampleDatabase::Embedded();
}

class OperationsInThreads : public testing::Test {
protected:
    void SetUp() override {
        for (int i = 0; i < kThreads; ++i)
            databases_.push_back(DatabaseOf(i));
    }

    using Operation = std::function<void(int number, BSTR* connect)>;

    // Runs the operation in all threads at once while this one serves its apartment.
    void Run(const Operation& operation) {
        arrived_ = 0;
        InThreads(kThreads, COINIT_APARTMENTTHREADED, 2 * kProcessStart, [&](int number) {
            _bstr_t connect(databases_[static_cast<size_t>(number)].ConnectionString().c_str());
            operation(number, &connect.GetBSTR());
        });
    }

    // Presses a button once all threads have come to the same form.
    Step Together(const wchar_t* form, const wchar_t* button) {
        return {form, [=](HWND window) { Press(window, button); },
                [this](HWND) { return arrived_ == kThreads; }};
    }
    Step Fill(const wchar_t* form, std::function<void(HWND)> fill) {
        return {form, [this, fill = std::move(fill)](HWND window) {
                    fill(window);
                    ++arrived_;
                }};
    }

    std::wstring Read(int number, const std::wstring& statement) const {
        return databases_[static_cast<size_t>(number)].ScalarText(statement);
    }
    void Execute(int number, const std::wstring& statement) const {
        databases_[static_cast<size_t>(number)].Execute(statement);
    }

    // That of all controls on forms that are prepared.
    const FontInUse font_{{kHouseFont, 9}};
    std::vector<SampleDatabase> databases_;
    std::atomic<int> arrived_{0};
};

std::wstring Named(const wchar_t* word, int number) {
    return word + std::to_wstring(number);
}

TEST_F(OperationsInThreads, EachLogsOnAtItsOwnDatabase) {
    for (int i = 0; i < kThreads; ++i)
        Execute(i, L"update \"user\" set name='" + Named(L"chủ", i) + L"' where code=3");
    Run([&](int number, BSTR* connect) {
        const ThreadScript user({Fill(L"FrmLogon",
                                      [=](HWND form) {
                                          SetBox(form, L"TxtUser", Named(L"chủ", number).c_str());
                                          SetBox(form, L"TxtPass", L"abc");
                                      }),
                                 Together(L"FrmLogon", L"CmdOk")});
        long code = -1;
        EXPECT_SUCCEEDED(CreateLogon()->ShowLogon(connect, &code));
        EXPECT_EQ(3, code);
    });
}

TEST_F(OperationsInThreads, EachAddsItsUserToItsOwnDatabase) {
    Run([&](int number, BSTR* connect) {
        const ThreadScript user({{L"FrmMenu", [](HWND form) { Press(form, L"CmdAdd"); }},
                                 Fill(L"FrmInput",
                                      [=](HWND form) {
                                          SetBox(form, L"TxtUser", Named(L"mới", number).c_str());
                                          SendMessageW(Control(form, L"TxtIdGroup"), CB_SETCURSEL,
                                                       0, 0);
                                          SetBox(form, L"TxtPass", L"abc");
                                          SetBox(form, L"txtConfirm", L"abc");
                                      }),
                                 Together(L"FrmInput", L"CmdOk"),
                                 {L"FrmMenu", [](HWND form) { Press(form, L"CmdExit"); }}});
        EXPECT_SUCCEEDED(CreateLogon()->UserManager(connect));
    });
    for (int i = 0; i < kThreads; ++i) {
        EXPECT_EQ(L"8", Read(i, L"select count(*) from \"user\""));
        EXPECT_EQ(Named(L"mới", i), Read(i, L"select name from \"user\" where code>9"));
    }
}

TEST_F(OperationsInThreads, EachGivesTheRightsOfItsOwnDatabase) {
    Run([&](int number, BSTR* connect) {
        const ThreadScript user(
            {{L"FmGrp", [](HWND form) { Press(form, L"CmdPms"); }},
             Fill(L"FrPms",
                  [=](HWND form) {
                      const HWND commands = Control(form, L"LstSubMenu");
                      for (int i = 0; i < RowCount(form, L"LstSubMenu"); ++i) {
                          LVITEMW item = {};
                          item.stateMask = LVIS_STATEIMAGEMASK;
                          item.state = INDEXTOSTATEIMAGEMASK(number + 1 == i ? 2 : 1);
                          SendMessageW(commands, LVM_SETITEMSTATE, static_cast<WPARAM>(i),
                                       reinterpret_cast<LPARAM>(&item));
                      }
                  }),
             Together(L"FrPms", L"CmdOk"),
             {L"FmGrp", [](HWND form) { Press(form, L"CmdExit"); }}});
        EXPECT_SUCCEEDED(CreateLogon()->ShowGroup(connect));
    });
    for (int i = 0; i < kThreads; ++i)
        EXPECT_EQ(std::to_wstring((2 << i) % 16), Read(i, L"select p1 from groups order by code"));
}

TEST_F(OperationsInThreads, EachSearchesInItsOwnDatabase) {
    Run([&](int number, BSTR* connect) {
        const ThreadScript user({Fill(L"FrmFind",
                                      [=](HWND form) {
                                          FillSearch(form, kTextField, kFirstPredicate,
                                                     Named(L"K", number).c_str());
                                      }),
                                 Together(L"FrmFind", L"CmdOk")});
        const _bstr_t condition(
            LateBound::Create(L"VnDesk.Varnok").Call(L"FindShow", {*connect, L"KhachHang"}));
        const std::wstring wanted = Named(L"K", number);
        EXPECT_NE(std::wstring::npos, std::wstring(condition).find(wanted));
    });
}

} // namespace
} // namespace vndesk::test
