// SPDX-License-Identifier: MIT
// The find dialog opened and closed again and again in one process.
#include "support/forms/search.h"

#include "support/reliability.h"
#include "support/leaks.h"

namespace vndesk::test {
namespace {

// Closes the dialog from inside its own modal loop, after a change of field has read the operators
// anew.
class Closing {
public:
    Closing() : timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Step)) {}
    ~Closing() { KillTimer(nullptr, timer_); }

private:
    static void CALLBACK Step(HWND, UINT, UINT_PTR, DWORD) {
        const HWND form = GetActiveWindow();
        if (!form || WindowName(form) != L"FrmFind")
            return;
        const HWND fields = ListOf(form, L"CmbFld(0)");
        SendMessageW(fields, WM_KEYDOWN, VK_DOWN, 0);
        PostMessageW(form, WM_CLOSE, 0, 0);
    }

    UINT_PTR timer_;
};

TEST(SearchLeaks, FindDialogsGiveEverythingBack) {
    const Closing closing;
    const SampleDatabase database = SampleDatabase::Embedded();
    const auto search = CreateSearch();
    EXPECT_SUCCEEDED(search->put_ActiveConnection(_variant_t(database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    ExpectFlat("find dialogs", 5, Rounds(100, 1000), [&] {
        long modal = 1;
        ASSERT_SUCCEEDED(search->Show(&modal, Missing()));
    });
}

TEST(SearchLeaks, SearchesInOneCallGiveEverythingBack) {
    const Closing closing;
    const SampleDatabase database = SampleDatabase::Embedded();
    const LateBound varnok = LateBound::Create(L"VnDesk.Varnok");
    ExpectFlat("searches in one call", 5, Rounds(20, 1000), [&] {
        const auto condition =
            varnok.Call(L"FindShow", {database.ConnectionString().c_str(), L"KhachHang"});
        EXPECT_EQ(_bstr_t(L""), _bstr_t(condition)) << "the dialog was cancelled";
    });
}

} // namespace
} // namespace vndesk::test
