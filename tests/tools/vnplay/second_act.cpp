// SPDX-License-Identifier: MIT
#include "tools/vnplay/second_act.h"

#include "support/keys.h"
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

// The program's own form: a customer by letters without accents, an amount that is read out.
void WriteReceipt(Tour& tour) {
    constexpr wchar_t kTyped[] = L"anh duong", kFound[] = L"Cửa hàng điện máy Ánh Dương";
    const HWND form = tour.OpenDialog('T', L"Phiếu thu");
    PressKey(VK_RETURN); // from the code to the name
    TypeText(kTyped);
    PressKey(VK_F4);
    const HWND picker = WaitForForm(L"FmSelHang", kLimit);
    WaitReady(picker, {}, kLimit);
    tour.Picture(L"customers found");
    PressKey(VK_RETURN);
    WaitForClose(picker, kLimit);
    WaitReady(form, {}, kLimit);
    Require(WaitUntil([=] { return HasChild(form, kFound); }, kLimit),
            L"the customer is not taken over");
    PressKey(VK_RETURN); // to the amount
    TypeText(L"38250000");
    Require(
        WaitUntil(
            [=] { return HasChild(form, L"Ba mươi tám triệu hai trăm năm mươi nghìn đồng chẵn"); },
            kLimit),
        L"the amount is not read out");
    tour.Picture(L"receipt");
    PressKey(VK_RETURN); // to the button, which takes it
    PressKey(VK_RETURN);
    WaitForClose(form, kLimit);
}

} // namespace

void PlaySecondAct(Tour& tour, const Person& user, const Person& administrator) {
    LockOut(tour, user);
    tour.LogOn(administrator.name, administrator.password);
    Unlock(tour);
    Say(L"* The administrator saw that in the list of users, and unlocked the user");
    tour.LogOn(user.name, user.password);
    Say(L"* " + user.name +
        L" has logged on with the same password; the database has its hash now");
    WriteReceipt(tour);
    Say(L"* A receipt: the customer found by letters without accents, the amount in words");
    tour.Quit();
}

} // namespace vndesk::test
