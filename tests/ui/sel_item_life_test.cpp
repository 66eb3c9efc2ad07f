// SPDX-License-Identifier: MIT
// Selection boxes when windows and objects go while they are bound, when the focus goes elsewhere,
// and from a script.
#include "ui/lookup_host.h"

#include "support/reliability.h"
#include "support/script_host.h"
#include "ui/leaks.h"

namespace vndesk::test {
namespace {

class SelItemLife : public testing::Test {
protected:
    // A picked or typed code as the user gives it.
    void TypeCode(const wchar_t* code) const {
        host_.form.Enter(L"txtSelID", code);
        PressKey(VK_TAB);
    }
    // What the boxes of the form do when nothing is bound to them.
    void ExpectPlainBoxes() const {
        const StatementTrace trace;
        host_.form.Enter(L"TxtSel", L"ab");
        const int presses = host_.form.DefaultPresses();
        PressKey(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return host_.form.DefaultPresses() == presses + 1; }));
        TypeCode(L"A1");
        WaitReady(host_.form.Window(), L"TxtOther");
        host_.form.Settle();
        EXPECT_EQ(trace.All(), Lines{});
    }

    const Catalogue catalogue_{false};
    LookupHost host_{catalogue_.database};
};

TEST_F(SelItemLife, PropertiesGiveBackWhatTheyWereGiven) {
    const auto item = CreateSelItem();
    EXPECT_EQ(Read(item, &ISelItem::get_SelName), L"");
    EXPECT_EQ(Read(item, &ISelItem::get_SelID), L"");
    EXPECT_EQ(Read(item, &ISelItem::get_SqlName), L"");
    EXPECT_EQ(Read(item, &ISelItem::get_SqlID), L"");
    EXPECT_EQ(Read(item, &ISelItem::get_SearchText), L"");
    EXPECT_SUCCEEDED(item->put_SqlName(_bstr_t(L"Where Tên")));
    EXPECT_SUCCEEDED(item->put_SqlID(_bstr_t(L"Where Mã")));
    EXPECT_SUCCEEDED(item->put_SearchText(_bstr_t(L"Ấm")));
    EXPECT_EQ(Read(item, &ISelItem::get_SqlName), L"Where Tên");
    EXPECT_EQ(Read(item, &ISelItem::get_SqlID), L"Where Mã");
    EXPECT_EQ(Read(item, &ISelItem::get_SearchText), L"Ấm");
    EXPECT_EQ(item->get_SelName(nullptr), E_POINTER);
    _variant_t connection(L"Driver=Mẫu"), null, read;
    EXPECT_SUCCEEDED(item->put_ActiveConnection(connection));
    null.vt = VT_NULL;
    EXPECT_EQ(item->put_ActiveConnection(null), DISP_E_TYPEMISMATCH);
    EXPECT_SUCCEEDED(item->get_ActiveConnection(&read));
    EXPECT_EQ(read, connection);
}

TEST_F(SelItemLife, OnlyWindowsOfTheThreadCanBeBound) {
    EXPECT_EQ(host_.item->SetTextSel(0x7FFFFFF0), E_INVALIDARG);
    ComPtr<IErrorInfo> error;
    _bstr_t description;
    ASSERT_EQ(GetErrorInfo(0, &error), S_OK);
    EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
    EXPECT_STREQ(description, L"The text box is not a window of the calling thread.");

    std::atomic<long> foreign{0};
    std::atomic<bool> tried{false};
    std::thread other([&] {
        const HWND edit = CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                          nullptr, nullptr);
        foreign = HandleOf(edit);
        PumpUntil([&] { return tried.load(); }, 30000);
        DestroyWindow(edit);
    });
    EXPECT_TRUE(PumpUntil([&] { return foreign != 0; }, 30000));
    EXPECT_EQ(host_.item->SetTextSelID(foreign), E_INVALIDARG);
    tried = true;
    other.join();
    // The refused calls have left the bindings as they were.
    host_.form.Run([&] {
        TypeCode(L"A1");
        WaitReady(host_.form.Window(), L"TxtLast");
        EXPECT_EQ(host_.SelID(), L"A1");
    });
}

TEST_F(SelItemLife, BindingNoWindowUnbinds) {
    EXPECT_SUCCEEDED(host_.item->SetTextSel(0));
    EXPECT_SUCCEEDED(host_.item->SetTextSelID(0));
    host_.form.Run([&] { ExpectPlainBoxes(); });
}

TEST_F(SelItemLife, BindingAnotherBoxLetsTheFirstGo) {
    EXPECT_SUCCEEDED(host_.item->SetTextSelID(HandleOf(host_.form.Box(L"TxtOther"))));
    host_.form.Run([&] {
        TypeCode(L"khong co");
        WaitReady(host_.form.Window(), L"TxtOther");
        SetBox(host_.form.Window(), L"TxtOther", L"A1");
        PressKey(VK_TAB);
        EXPECT_TRUE(WaitUntil([&] { return host_.SelID() == L"A1"; }));
        EXPECT_EQ(host_.form.Text(L"txtSelID"), L"khong co");
    });
}

TEST_F(SelItemLife, NameBoxAloneWorksWithoutACodeBox) {
    EXPECT_SUCCEEDED(host_.item->SetTextSelID(0));
    host_.form.Run([&] {
        host_.form.Enter(L"TxtSel", L"ab");
        PressKey(VK_RETURN);
        const int tabs = host_.form.Tabs();
        ChooseInPicker(L"abaca");
        host_.form.WaitMovedOn(tabs, L"txtSelID");
        EXPECT_EQ(host_.SelID(), L"A1");
        EXPECT_EQ(host_.form.Text(L"txtSelID"), L"");
        EXPECT_EQ(host_.Changes(), 1);
    });
}

TEST_F(SelItemLife, BoxesOfAnAnsiHostShowEveryLetter) {
    const HWND ansi = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 160,
                                      300, 26, host_.form.Window(), nullptr, nullptr, nullptr);
    EXPECT_SUCCEEDED(host_.item->SetTextSel(HandleOf(ansi)));
    host_.form.Run([&] {
        TypeCode(L"Đ2");
        WaitReady(host_.form.Window(), L"TxtLast");
        EXPECT_EQ(TextOf(ansi), L"ĐÈN PIN");
    });
    host_.Drop();
    SetWindowTextW(ansi, L"Ấm");
    EXPECT_EQ(TextOf(ansi), L"Ấm");
}

TEST_F(SelItemLife, ReleasedObjectLeavesPlainBoxes) {
    host_.Drop();
    host_.form.Run([&] { ExpectPlainBoxes(); });
}

TEST_F(SelItemLife, DestroyedBoxesAreForgotten) {
    DestroyWindow(host_.form.Box(L"txtSelID"));
    host_.form.Run([&] {
        host_.form.Enter(L"TxtSel", L"ab");
        PressKey(VK_RETURN);
        const int tabs = host_.form.Tabs();
        ChooseInPicker(L"abaca");
        host_.form.WaitMovedOn(tabs, L"TxtOther");
        EXPECT_EQ(host_.SelID(), L"A1");
        host_.form.Do([&] {
            DestroyWindow(host_.form.Box(L"TxtSel"));
            EXPECT_SUCCEEDED(host_.item->Clear());
        });
        EXPECT_EQ(host_.SelID(), L"");
    });
    host_.Drop();
}

TEST_F(SelItemLife, BoxDestroyedWhileThePickerIsOpenEndsThePickQuietly) {
    host_.form.Run([&] {
        host_.form.Enter(L"TxtSel", L"ab");
        PressKey(VK_RETURN);
        WaitForPicker();
        host_.form.Do([&] { DestroyWindow(host_.form.Box(L"TxtSel")); });
        ChooseInPicker(L"abaca");
        EXPECT_TRUE(WaitUntil([&] { return host_.SelID() == L"A1"; }));
        EXPECT_EQ(host_.form.Text(L"txtSelID"), L"A1");
    });
}

TEST_F(SelItemLife, ObjectReleasedWhileThePickerIsOpenEndsThePickQuietly) {
    host_.form.Run([&] {
        host_.form.Enter(L"TxtSel", L"ab");
        PressKey(VK_RETURN);
        WaitForPicker();
        host_.form.Do([&] { host_.Drop(); });
        ChooseInPicker(L"abaca");
        WaitReady(host_.form.Window(), L"TxtSel");
        EXPECT_EQ(host_.form.Text(L"TxtSel"), L"ab");
        EXPECT_EQ(host_.Changes(), 0);
        ExpectPlainBoxes();
    });
}

TEST_F(SelItemLife, HandlerOfChangeMayReleaseTheObject) {
    host_.sink.onChange = [&] { host_.Drop(); };
    host_.form.Run([&] {
        TypeCode(L"A1");
        EXPECT_TRUE(WaitUntil([&] { return host_.Changes() == 1; }));
        host_.form.Settle();
        EXPECT_EQ(host_.form.Text(L"TxtSel"), L"abaca");
        ExpectPlainBoxes();
    });
}

TEST_F(SelItemLife, FocusGoneToAnotherWindowOfTheProgramIsNoLeaving) {
    const LookupForm second;
    const StatementTrace trace;
    SetForegroundWindow(host_.form.Window());
    SetFocus(host_.form.Box(L"TxtSel"));
    host_.form.Run([&] {
        host_.form.Enter(L"txtSelID", L"khong co");
        host_.form.Do([&] { SetForegroundWindow(second.Window()); });
        second.Do([&] { SetFocus(second.Box(L"TxtSel")); });
        WaitReady(second.Window(), L"TxtSel");
        host_.form.Settle();
        EXPECT_EQ(trace.All(), Lines{});
        // Back, and on: now it counts.
        host_.form.Do([&] {
            SetForegroundWindow(host_.form.Window());
            SetFocus(host_.form.Box(L"txtSelID"));
        });
        WaitReady(host_.form.Window(), L"txtSelID");
        PressKey(VK_TAB);
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số khong co không tồn tại");
        WaitReady(host_.form.Window(), L"txtSelID");
        SetBox(host_.form.Window(), L"txtSelID", L"");
    });
}

TEST_F(SelItemLife, FocusGoneToAnotherThreadIsNoLeaving) {
    const StatementTrace trace;
    host_.form.Run([&] {
        host_.form.Enter(L"txtSelID", L"khong co");
        // A window of the script's own thread, as one of another program.
        const HWND elsewhere = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 500, 20, 100,
                                               100, nullptr, nullptr, nullptr, nullptr);
        SetForegroundWindow(elsewhere);
        SetFocus(elsewhere);
        EXPECT_TRUE(PumpUntil([&] { return FocusWindow(host_.form.Window()) == nullptr; }));
        host_.form.Settle();
        EXPECT_EQ(trace.All(), Lines{});
        DestroyWindow(elsewhere);
        host_.form.Do([&] {
            SetForegroundWindow(host_.form.Window());
            SetFocus(host_.form.Box(L"txtSelID"));
        });
        WaitReady(host_.form.Window(), L"txtSelID");
        EXPECT_EQ(trace.All(), Lines{});
    });
}

TEST_F(SelItemLife, TwoPairsOnOneFormTellOneMistakeOnce) {
    const auto second = CreateSelItem();
    EXPECT_SUCCEEDED(second->SetTextSelID(HandleOf(host_.form.Box(L"TxtOther"))));
    EXPECT_SUCCEEDED(second->put_SqlID(_bstr_t(L"Select Ma,Ten From DanhMuc Where Ma")));
    EXPECT_SUCCEEDED(
        second->put_ActiveConnection(_variant_t(catalogue_.database.ConnectionString().c_str())));
    host_.form.Run([&] {
        // Both boxes hold a code that does not exist.
        host_.form.Do([&] { SetWindowTextW(host_.form.Box(L"TxtOther"), L"sai 2"); });
        TypeCode(L"sai 1");
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số sai 1 không tồn tại");
        WaitReady(host_.form.Window(), L"txtSelID");
        host_.form.Settle();
        EXPECT_EQ(TopWindows().front(), host_.form.Window());
        TypeText(L"A1");
        PressKey(VK_TAB);
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số sai 2 không tồn tại")
            << "the second Tab leaves the second box";
        WaitReady(host_.form.Window(), L"TxtOther");
        SetBox(host_.form.Window(), L"TxtOther", L"");
    });
}

TEST_F(SelItemLife, WithoutAConnectionTheErrorIsShownAndNothingIsFound) {
    EXPECT_SUCCEEDED(host_.item->put_ActiveConnection(_variant_t(L"")));
    host_.form.Run([&] {
        TypeCode(L"A1");
        EXPECT_NE(ClosePlainMessage(), L"");
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số A1 không tồn tại");
        WaitReady(host_.form.Window(), L"txtSelID");
        SetBox(host_.form.Window(), L"txtSelID", L"");
    });
}

TEST_F(SelItemLife, ScriptBindsBoxesAndHearsOfTheChange) {
    ScriptRunner script;
    script.SetArguments({std::to_wstring(HandleOf(host_.form.Box(L"TxtSel"))),
                         std::to_wstring(HandleOf(host_.form.Box(L"txtSelID"))),
                         catalogue_.database.ConnectionString()});
    host_.Drop();
    script.AddObject(L"item", CreateSelItem().Get());
    script.RunOk(LR"(
        item.SetTextSel WScript.Arguments(0)
        item.SetTextSelID WScript.Arguments(1)
        item.ActiveConnection = WScript.Arguments(2)
        item.SqlName = "Select Ma,Ten From DanhMuc Where Ten"
        item.SqlID = "Select Ma,Ten From DanhMuc Where Ma"
        Connect item, "item_"
        Sub item_Change()
            Echo item.SelID & ": " & item.SelName
        End Sub
    )");
    host_.form.Run([&] {
        TypeCode(L"Đ1");
        EXPECT_TRUE(WaitUntil([&] { return script.Lines().size() == 1; }));
        WaitReady(host_.form.Window(), L"TxtLast");
        host_.form.Enter(L"TxtSel", L"Áo");
        PressKey(VK_RETURN);
        ChooseInPicker(L"Áo sơ mi");
        EXPECT_TRUE(WaitUntil([&] { return script.Lines().size() == 2; }));
    });
    EXPECT_EQ(script.Lines(), (Lines{L"Đ1: Đèn bàn", L"A2: Áo sơ mi"}));
}

// Closes the picker from inside its own modal loop.
void CALLBACK ClosePicker(HWND, UINT, UINT_PTR, DWORD) {
    for (const HWND window : TopWindows())
        if (WindowName(window) == L"FmSelHang")
            PostMessageW(window, WM_CLOSE, 0, 0);
}

TEST_F(SelItemLife, PickersGiveEverythingBack) {
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, ClosePicker);
    const HWND name = host_.form.Box(L"TxtSel");
    ExpectFlat("item pickers", 15, Rounds(100, 1000), [&] {
        SetWindowTextW(name, L"ab");
        SendMessageW(name, WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_EQ(TextOf(name), L"") << "the picker was cancelled";
    });
    KillTimer(nullptr, timer);
}

} // namespace
} // namespace vndesk::test
