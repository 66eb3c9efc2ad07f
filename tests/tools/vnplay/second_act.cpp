// SPDX-License-Identifier: MIT
#include "tools/vnplay/second_act.h"

#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kWrongPassword[] = L"sai mat khau";
constexpr int kTries = 5; // of the tour's settings

void LockOut(Tour& tour, const Person& user) {
    for (int left = kTries - 1; left > 0; --left)
        tour.BeTold(user.name, kWrongPassword, L"Còn " + std::to_wstring(left) + L" lần thử.",
                    left == kTries - 1 ? L"tries left" : nullptr);
    Say(L"* " + user.name + L" was refused, and told how many tries were left");
    tour.BeTold(user.name, kWrongPassword, L" do nhập sai mật khẩu nhiều lần.", L"locked");
    Say(L"* The fifth wrong password locked the user");
}

void Unlock(Tour& tour) {
    const HWND list = tour.OpenByKey('U', L"FrmMenu", L"Lv");
    tour.Picture(L"users with a locked one");
    PressLetter(list, 'K');
    WaitReady(list, L"Lv", kLimit);
    tour.Picture(L"users after unlocking");
    CloseForm(list);
}

} // namespace

void PlaySecondAct(Tour& tour, const Person& user, const Person& administrator) {
    tour.EnterConfirms();
    LockOut(tour, user);
    tour.LogOn(administrator.name, administrator.password);
    Unlock(tour);
    Say(L"* The administrator saw that in the list of users, and unlocked the user");
    tour.LogOn(user.name, user.password);
    Say(L"* " + user.name +
        L" has logged on with the same password; the database has its hash now");
    tour.Quit();
}

} // namespace vndesk::test
