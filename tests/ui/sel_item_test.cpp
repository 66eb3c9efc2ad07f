// SPDX-License-Identifier: MIT
// Selection boxes as users of a host's form see them: a name picked, a code looked up.
#include "ui/lookup_host.h"

namespace vndesk::test {
namespace {

class SelItem : public CatalogueTest {
protected:
    void SetUp() override {
        CatalogueTest::SetUp();
        if (!IsSkipped())
            host_ = std::make_unique<LookupHost>(Test().database);
    }
    void TearDown() override { host_.reset(); }

    LookupHost& Host() const { return *host_; }
    const LookupForm& Form() const { return host_->form; }

    // Picks an entry by the beginning of its name, from the name box.
    void PickByName(const wchar_t* typed, const wchar_t* name) const {
        Form().Enter(L"TxtSel", typed);
        PressKey(VK_RETURN);
        const int tabs = Form().Tabs();
        ChooseInPicker(name);
        Form().WaitMovedOn(tabs, L"txtSelID");
    }
    // Types a code and leaves the box by Tab; a code that is found sends one more Tab.
    void LeaveCode(const wchar_t* code, const wchar_t* focusAfter) const {
        Form().Enter(L"txtSelID", code);
        PressKey(VK_TAB);
        WaitReady(Form().Window(), focusAfter);
        Form().Settle();
    }
    void ExpectEntry(const wchar_t* id, const wchar_t* name) const {
        EXPECT_EQ(Host().SelID(), id);
        EXPECT_EQ(Host().SelName(), name);
        EXPECT_EQ(Form().Text(L"txtSelID"), id);
        EXPECT_EQ(Form().Text(L"TxtSel"), name);
    }
    std::wstring ByName(const wchar_t* pattern) const {
        return L"Select Ma,Ten From DanhMuc Where Ten  Like " + Test().Prefixed(pattern);
    }
    std::wstring ByCode(const wchar_t* code) const {
        return L"Select Ma,Ten From DanhMuc Where Ma = " + Test().Prefixed(code);
    }

private:
    std::unique_ptr<LookupHost> host_;
};

INSTANTIATE_ADMINISTRATION(SelItem);

TEST_P(SelItem, EnterInTheNameBoxPicksAmongTheNamesBeginningSo) {
    const StatementTrace trace;
    Host().form.Run([&] {
        Form().Focus(L"TxtSel");
        TypeText(L"ab");
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"TxtSel") == L"ab"; }));
        PressKey(VK_RETURN);
        const HWND picker = WaitForPicker();
        Lines names = ListTexts(Control(picker, L"lv1IP"));
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names, (Lines{L"ABC Việt", L"abaca"}));
        EXPECT_EQ(TextOf(picker, L"TxtSelH"), L"ab");
        EXPECT_FALSE(IsWindowEnabled(Form().Window()));
        const int tabs = Form().Tabs();
        ChooseInPicker(L"ABC Việt");
        Form().WaitMovedOn(tabs, L"txtSelID");
        ExpectEntry(L"a3", L"ABC Việt");
        EXPECT_EQ(Host().Changes(), 1);
    });
    EXPECT_EQ(trace.All(), (Lines{ByName(L"'ab%'"), ByCode(L"'a3'")}));
    EXPECT_EQ(Form().DefaultPresses(), 0) << "Enter was for the picker";
}

TEST_P(SelItem, CancellingThePickerLeavesEverythingAsItWas) {
    Host().form.Run([&] {
        PickByName(L"Đèn b", L"Đèn bàn");
        Form().Enter(L"TxtSel", L"Áo");
        PressKey(VK_RETURN);
        CancelPicker();
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"Đ1", L"Đèn bàn");
        EXPECT_EQ(Host().Changes(), 1);
    });
}

TEST_P(SelItem, ChoosingTheSameEntryAgainRaisesNoChange) {
    Host().form.Run([&] {
        PickByName(L"o'b", L"O'Brien");
        EXPECT_EQ(Host().Changes(), 1);
        PickByName(L"o", L"O'Brien");
        ExpectEntry(L"B'1", L"O'Brien");
        EXPECT_EQ(Host().Changes(), 1);
        PickByName(L"Áo", L"Áo sơ mi");
        ExpectEntry(L"A2", L"Áo sơ mi");
        EXPECT_EQ(Host().Changes(), 2);
    });
}

TEST_P(SelItem, EnterInTheEmptiedNameBoxListsEveryName) {
    Host().form.Run([&] {
        PickByName(L"Áo", L"Áo sơ mi");
        Form().Enter(L"TxtSel", L"");
        PressKey(VK_RETURN);
        // The row without a name is like nothing.
        EXPECT_EQ(ListTexts(Control(WaitForPicker(), L"lv1IP")).size(), std::size(kCatalogue) - 1);
        CancelPicker();
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"A2", L"Áo sơ mi");
    });
}

TEST_P(SelItem, EnterOnTheEntrysOwnNameIsLeftToTheForm) {
    Host().form.Run([&] {
        PickByName(L"Áo", L"Áo sơ mi");
        const StatementTrace trace;
        Form().Focus(L"TxtSel");
        PressKey(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return Form().DefaultPresses() == 1; }));
        EXPECT_EQ(trace.All(), Lines{});
    });
}

TEST_P(SelItem, NullCodeInThePickerCountsAsNothingChosen) {
    Host().form.Run([&] {
        PickByName(L"Áo", L"Áo sơ mi");
        Form().Enter(L"TxtSel", L"Hàng");
        PressKey(VK_RETURN);
        ChooseInPicker(L"Hàng không mã");
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"A2", L"Áo sơ mi");
    });
}

TEST_P(SelItem, LeavingTheCodeBoxLooksTheCodeUp) {
    const StatementTrace trace;
    Host().form.Run([&] {
        LeaveCode(L"Đ2", L"TxtLast");
        ExpectEntry(L"Đ2", L"ĐÈN PIN");
        EXPECT_EQ(Host().Changes(), 1);
        EXPECT_EQ(trace.All(), Lines{ByCode(L"'Đ2'")});
        // Back and forth without a new code: nothing is looked up.
        Form().Focus(L"txtSelID");
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtOther");
        Form().Settle();
        EXPECT_EQ(trace.All().size(), 1u);
        EXPECT_EQ(Host().Changes(), 1);
    });
}

TEST_P(SelItem, CodeIsShownAsTheCatalogueWritesIt) {
    Host().form.Run([&] {
        LeaveCode(L"a1", L"TxtLast");
        ExpectEntry(L"A1", L"abaca");
        LeaveCode(L"a1", L"TxtLast");
        ExpectEntry(L"A1", L"abaca");
        EXPECT_EQ(Host().Changes(), 1) << "the same entry again";
    });
}

TEST_P(SelItem, UnknownCodeIsToldAndKeepsTheFocus) {
    const StatementTrace trace;
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        Form().Enter(L"txtSelID", L"Ấ'9");
        PressKey(VK_TAB);
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số Ấ'9 không tồn tại");
        WaitReady(Form().Window(), L"txtSelID");
        EXPECT_TRUE(IsWhollySelected(Form().Window(), L"txtSelID"));
        EXPECT_EQ(Form().Text(L"txtSelID"), L"Ấ'9");
        EXPECT_EQ(Host().SelID(), L"A1");
        EXPECT_EQ(Form().Text(L"TxtSel"), L"abaca");
        EXPECT_EQ(Host().Changes(), 1);
        // Each time anew, until the code is one.
        PressKey(VK_TAB);
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số Ấ'9 không tồn tại");
        WaitReady(Form().Window(), L"txtSelID");
        TypeText(L"A2");
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"txtSelID") == L"A2"; }));
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtLast");
        ExpectEntry(L"A2", L"Áo sơ mi");
        EXPECT_EQ(Host().Changes(), 2);
    });
    EXPECT_EQ(trace.All(),
              (Lines{ByCode(L"'A1'"), ByCode(L"'Ấ''9'"), ByCode(L"'Ấ''9'"), ByCode(L"'A2'")}));
}

TEST_P(SelItem, EmptyCodeClearsTheEntryWithoutAMessage) {
    const StatementTrace trace;
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        LeaveCode(L"", L"TxtOther");
        ExpectEntry(L"", L"");
        EXPECT_EQ(Host().Changes(), 1) << "clearing is not choosing";
    });
    EXPECT_EQ(trace.All(), (Lines{ByCode(L"'A1'"), ByCode(L"''")}));
}

TEST_P(SelItem, LeavingTheEmptyCodeBoxEmptiesANameThatWasNotPicked) {
    Host().form.Run([&] {
        Form().Enter(L"TxtSel", L"ab");
        LeaveCode(L"", L"TxtOther");
        ExpectEntry(L"", L"");
    });
}

TEST_P(SelItem, LeavingTheEmptiedNameBoxForgetsTheEntry) {
    Host().form.Run([&] {
        PickByName(L"Đèn b", L"Đèn bàn");
        Form().Enter(L"TxtSel", L"");
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"txtSelID");
        EXPECT_EQ(Host().SelID(), L"");
        EXPECT_EQ(Host().SelName(), L"");
        EXPECT_EQ(Form().Text(L"txtSelID"), L"Đ1");
        // The code stands there still, and is looked up when the user goes on.
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtLast");
        ExpectEntry(L"Đ1", L"Đèn bàn");
        EXPECT_EQ(Host().Changes(), 2);
    });
}

TEST_P(SelItem, ApostropheIsFoundAndADoubleQuoteIsNot) {
    Host().form.Run([&] {
        LeaveCode(L"b'1", L"TxtLast");
        ExpectEntry(L"B'1", L"O'Brien");
        // The literals of the library double it like an apostrophe; the engines do not undo it.
        Form().Enter(L"txtSelID", L"Q\"1");
        PressKey(VK_TAB);
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số Q\"1 không tồn tại");
        WaitReady(Form().Window(), L"txtSelID");
        LeaveCode(L"B'1", L"TxtOther");
    });
}

TEST_P(SelItem, NullNameIsEmpty) {
    Host().form.Run([&] {
        LeaveCode(L"N1", L"TxtLast");
        ExpectEntry(L"N1", L"");
        EXPECT_EQ(Host().Changes(), 1);
    });
}

TEST_P(SelItem, PickedCodeThatCannotBeLookedUpIsTold) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From KhongCo Where Ma")); });
        Form().Enter(L"TxtSel", L"Áo");
        PressKey(VK_RETURN);
        ChooseInPicker(L"Áo sơ mi");
        const std::wstring error = ClosePlainMessage();
        EXPECT_NE(error, L"");
        EXPECT_EQ(ClosePlainMessage(), L"Mã danh mục không mở được. Lỗi là:" + error);
        WaitReady(Form().Window(), L"TxtSel");
        EXPECT_EQ(Form().Text(L"TxtSel"), L"Áo");
        EXPECT_EQ(Host().SelID(), L"");

        // The statement opens, and knows no such code.
        Form().Do([&] {
            Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From DanhMuc Where Thu>99 And Ma"));
        });
        PressKey(VK_RETURN);
        ChooseInPicker(L"Áo sơ mi");
        EXPECT_EQ(ClosePlainMessage(), L"Mã danh mục không mở được. Lỗi là:");
        EXPECT_EQ(Host().SelID(), L"");
        EXPECT_EQ(Host().Changes(), 0);
    });
}

TEST_P(SelItem, TypedCodeThatCannotBeLookedUpShowsTheErrorAndKeepsTheFocus) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From KhongCo Where Ma")); });
        Form().Enter(L"txtSelID", L"A1");
        PressKey(VK_TAB);
        EXPECT_NE(ClosePlainMessage(), L"");
        EXPECT_EQ(ClosePlainMessage(L"Thông báo"), L"Mã số A1 không tồn tại");
        WaitReady(Form().Window(), L"txtSelID");
        SetBox(Form().Window(), L"txtSelID", L"");
    });
}

TEST_P(SelItem, ClearForgetsTheEntryAndEmptiesTheNameBox) {
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        Form().Do([&] { EXPECT_SUCCEEDED(Host().item->Clear()); });
        EXPECT_EQ(Host().SelID(), L"");
        EXPECT_EQ(Host().SelName(), L"");
        EXPECT_EQ(Form().Text(L"TxtSel"), L"");
        EXPECT_EQ(Form().Text(L"txtSelID"), L"A1");
        EXPECT_EQ(Host().Changes(), 1);
    });
}

TEST_P(SelItem, SearchTextOfTheHostStandsInThePicker) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SearchText(_bstr_t(L"Đèn")); });
        Form().Enter(L"TxtSel", L"đ");
        PressKey(VK_RETURN);
        EXPECT_EQ(TextOf(WaitForPicker(), L"TxtSelH"), L"Đèn");
        CancelPicker();
    });
}

} // namespace
} // namespace vndesk::test
