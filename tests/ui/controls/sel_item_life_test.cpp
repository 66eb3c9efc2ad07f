// SPDX-License-Identifier: MIT
// Selection boxes when windows and objects go while they are bound, when the focus goes elsewhere,
// and from a script.
#include "support/forms/lookup_host.h"

#include "support/reliability.h"
#include "support/script_host.h"
#include "support/leaks.h"

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
        EXPECT_EQ(Lines{}, trace.All());
    }

    const Catalogue catalogue_{false};
    LookupHost host_{catalogue_.database};
};

TEST_F(SelItemLife, PropertiesGiveBackWhatTheyWereGiven) {
    const auto item = CreateSelItem();
    EXPECT_EQ(L"", Read(item, &ISelItem::get_SelName));
    EXPECT_EQ(L"", Read(item, &ISelItem::get_SelID));
    EXPECT_EQ(L"", Read(item, &ISelItem::get_SqlName));
    EXPECT_EQ(L"", Read(item, &ISelItem::get_SqlID));
    EXPECT_EQ(L"", Read(item, &ISelItem::get_SearchText));
    EXPECT_SUCCEEDED(item->put_SqlName(_bstr_t(L"Where Tên")));
    EXPECT_SUCCEEDED(item->put_SqlID(_bstr_t(L"Where Mã")));
    EXPECT_SUCCEEDED(item->put_SearchText(_bstr_t(L"Ấm")));
    EXPECT_EQ(L"Where Tên", Read(item, &ISelItem::get_SqlName));
    EXPECT_EQ(L"Where Mã", Read(item, &ISelItem::get_SqlID));
    EXPECT_EQ(L"Ấm", Read(item, &ISelItem::get_SearchText));
    EXPECT_EQ(E_POINTER, item->get_SelName(nullptr));
    _variant_t connection(L"Driver=Mẫu"), null, read;
    EXPECT_SUCCEEDED(item->put_ActiveConnection(connection));
    null.vt = VT_NULL;
    EXPECT_EQ(DISP_E_TYPEMISMATCH, item->put_ActiveConnection(null));
    EXPECT_SUCCEEDED(item->get_ActiveConnection(&read));
    EXPECT_EQ(connection, read);
}

TEST_F(SelItemLife, OnlyWindowsOfTheThreadCanBeBound) {
    EXPECT_EQ(E_INVALIDARG, host_.item->SetTextSel(0x7FFFFFF0));
    ComPtr<IErrorInfo> error;
    _bstr_t description;
    ASSERT_EQ(S_OK, GetErrorInfo(0, &error));
    EXPECT_SUCCEEDED(error->GetDescription(description.GetAddress()));
    EXPECT_STREQ(L"The text box is not a window of the calling thread.", description);

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
    EXPECT_EQ(E_INVALIDARG, host_.item->SetTextSelID(foreign));
    tried = true;
    other.join();
    // The refused calls have left the bindings as they were.
    host_.form.Run([&] {
        TypeCode(L"A1");
        WaitReady(host_.form.Window(), L"TxtLast");
        EXPECT_EQ(L"A1", host_.SelID());
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
        EXPECT_EQ(L"khong co", host_.form.Text(L"txtSelID"));
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
        EXPECT_EQ(L"A1", host_.SelID());
        EXPECT_EQ(L"", host_.form.Text(L"txtSelID"));
        EXPECT_EQ(1, host_.Changes());
    });
}

TEST_F(SelItemLife, BoxesOfAnAnsiHostShowEveryLetter) {
    const HWND ansi = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 160,
                                      300, 26, host_.form.Window(), nullptr, nullptr, nullptr);
    EXPECT_SUCCEEDED(host_.item->SetTextSel(HandleOf(ansi)));
    host_.form.Run([&] {
        TypeCode(L"Đ2");
        WaitReady(host_.form.Window(), L"TxtLast");
        EXPECT_EQ(L"ĐÈN PIN", TextOf(ansi));
    });
    host_.Drop();
    SetWindowTextW(ansi, L"Ấm");
    EXPECT_EQ(L"Ấm", TextOf(ansi));
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
        EXPECT_EQ(L"A1", host_.SelID());
        host_.form.Do([&] {
            DestroyWindow(host_.form.Box(L"TxtSel"));
            EXPECT_SUCCEEDED(host_.item->Clear());
        });
        EXPECT_EQ(L"", host_.SelID());
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
        EXPECT_EQ(L"A1", host_.form.Text(L"txtSelID"));
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
        EXPECT_EQ(L"ab", host_.form.Text(L"TxtSel"));
        EXPECT_EQ(0, host_.Changes());
        ExpectPlainBoxes();
    });
}

TEST_F(SelItemLife, HandlerOfChangeMayReleaseTheObject) {
    host_.sink.onChange = [&] { host_.Drop(); };
    host_.form.Run([&] {
        TypeCode(L"A1");
        EXPECT_TRUE(WaitUntil([&] { return host_.Changes() == 1; }));
        host_.form.Settle();
        EXPECT_EQ(L"abaca", host_.form.Text(L"TxtSel"));
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
        EXPECT_EQ(Lines{}, trace.All());
        // Back, and on: now it counts.
        host_.form.Do([&] {
            SetForegroundWindow(host_.form.Window());
            SetFocus(host_.form.Box(L"txtSelID"));
        });
        WaitReady(host_.form.Window(), L"txtSelID");
        PressKey(VK_TAB);
        EXPECT_EQ(L"Mã số khong co không tồn tại", ClosePlainMessage(L"Thông báo"));
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
        EXPECT_EQ(Lines{}, trace.All());
        DestroyWindow(elsewhere);
        host_.form.Do([&] {
            SetForegroundWindow(host_.form.Window());
            SetFocus(host_.form.Box(L"txtSelID"));
        });
        WaitReady(host_.form.Window(), L"txtSelID");
        EXPECT_EQ(Lines{}, trace.All());
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
        EXPECT_EQ(L"Mã số sai 1 không tồn tại", ClosePlainMessage(L"Thông báo"));
        WaitReady(host_.form.Window(), L"txtSelID");
        host_.form.Settle();
        EXPECT_EQ(host_.form.Window(), TopWindows().front());
        TypeText(L"A1");
        PressKey(VK_TAB);
        EXPECT_EQ(L"Mã số sai 2 không tồn tại", ClosePlainMessage(L"Thông báo"))
            << "the second Tab leaves the second box";
        WaitReady(host_.form.Window(), L"TxtOther");
        SetBox(host_.form.Window(), L"TxtOther", L"");
    });
}

TEST_F(SelItemLife, WithoutAConnectionTheErrorIsShownAndNothingIsFound) {
    EXPECT_SUCCEEDED(host_.item->put_ActiveConnection(_variant_t(L"")));
    host_.form.Run([&] {
        TypeCode(L"A1");
        EXPECT_NE(L"", ClosePlainMessage());
        EXPECT_EQ(L"Mã số A1 không tồn tại", ClosePlainMessage(L"Thông báo"));
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
    EXPECT_EQ((Lines{L"Đ1: Đèn bàn", L"A2: Áo sơ mi"}), script.Lines());
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
        EXPECT_EQ(L"", TextOf(name)) << "the picker was cancelled";
    });
    KillTimer(nullptr, timer);
}

} // namespace
} // namespace vndesk::test
