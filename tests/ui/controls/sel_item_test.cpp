// SPDX-License-Identifier: MIT
// Selection boxes as users of a host's form see them: a name picked, a code looked up.
#include "support/forms/lookup_host.h"

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
        EXPECT_EQ(id, Host().SelID());
        EXPECT_EQ(name, Host().SelName());
        EXPECT_EQ(id, Form().Text(L"txtSelID"));
        EXPECT_EQ(name, Form().Text(L"TxtSel"));
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
        EXPECT_EQ((Lines{L"ABC Việt", L"abaca"}), names);
        EXPECT_EQ(L"ab", TextOf(picker, L"TxtSelH"));
        EXPECT_FALSE(IsWindowEnabled(Form().Window()));
        const int tabs = Form().Tabs();
        ChooseInPicker(L"ABC Việt");
        Form().WaitMovedOn(tabs, L"txtSelID");
        ExpectEntry(L"a3", L"ABC Việt");
        EXPECT_EQ(1, Host().Changes());
    });
    EXPECT_EQ((Lines{ByName(L"'ab%'"), ByCode(L"'a3'")}), trace.All());
    EXPECT_EQ(0, Form().DefaultPresses()) << "Enter was for the picker";
}

TEST_P(SelItem, CancellingThePickerLeavesEverythingAsItWas) {
    Host().form.Run([&] {
        PickByName(L"Đèn b", L"Đèn bàn");
        Form().Enter(L"TxtSel", L"Áo");
        PressKey(VK_RETURN);
        CancelPicker();
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"Đ1", L"Đèn bàn");
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItem, ChoosingTheSameEntryAgainRaisesNoChange) {
    Host().form.Run([&] {
        PickByName(L"o'b", L"O'Brien");
        EXPECT_EQ(1, Host().Changes());
        PickByName(L"o", L"O'Brien");
        ExpectEntry(L"B'1", L"O'Brien");
        EXPECT_EQ(1, Host().Changes());
        PickByName(L"Áo", L"Áo sơ mi");
        ExpectEntry(L"A2", L"Áo sơ mi");
        EXPECT_EQ(2, Host().Changes());
    });
}

TEST_P(SelItem, EnterInTheEmptiedNameBoxListsEveryName) {
    Host().form.Run([&] {
        PickByName(L"Áo", L"Áo sơ mi");
        Form().Enter(L"TxtSel", L"");
        PressKey(VK_RETURN);
        // The row without a name is like nothing.
        EXPECT_EQ(std::size(kCatalogue) - 1, ListTexts(Control(WaitForPicker(), L"lv1IP")).size());
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
        EXPECT_EQ(Lines{}, trace.All());
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
        EXPECT_EQ(1, Host().Changes());
        EXPECT_EQ(Lines{ByCode(L"'Đ2'")}, trace.All());
        // Back and forth without a new code: nothing is looked up.
        Form().Focus(L"txtSelID");
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtOther");
        Form().Settle();
        EXPECT_EQ(1u, trace.All().size());
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItem, CodeIsShownAsTheCatalogueWritesIt) {
    Host().form.Run([&] {
        LeaveCode(L"a1", L"TxtLast");
        ExpectEntry(L"A1", L"abaca");
        LeaveCode(L"a1", L"TxtLast");
        ExpectEntry(L"A1", L"abaca");
        EXPECT_EQ(1, Host().Changes()) << "the same entry again";
    });
}

TEST_P(SelItem, UnknownCodeIsToldAndKeepsTheFocus) {
    const StatementTrace trace;
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        Form().Enter(L"txtSelID", L"Ấ'9");
        PressKey(VK_TAB);
        EXPECT_EQ(L"Mã số Ấ'9 không tồn tại", ClosePlainMessage(L"Thông báo"));
        WaitReady(Form().Window(), L"txtSelID");
        EXPECT_TRUE(IsWhollySelected(Form().Window(), L"txtSelID"));
        EXPECT_EQ(L"Ấ'9", Form().Text(L"txtSelID"));
        EXPECT_EQ(L"A1", Host().SelID());
        EXPECT_EQ(L"abaca", Form().Text(L"TxtSel"));
        EXPECT_EQ(1, Host().Changes());
        // Each time anew, until the code is one.
        PressKey(VK_TAB);
        EXPECT_EQ(L"Mã số Ấ'9 không tồn tại", ClosePlainMessage(L"Thông báo"));
        WaitReady(Form().Window(), L"txtSelID");
        TypeText(L"A2");
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"txtSelID") == L"A2"; }));
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtLast");
        ExpectEntry(L"A2", L"Áo sơ mi");
        EXPECT_EQ(2, Host().Changes());
    });
    EXPECT_EQ((Lines{ByCode(L"'A1'"), ByCode(L"'Ấ''9'"), ByCode(L"'Ấ''9'"), ByCode(L"'A2'")}),
              trace.All());
}

TEST_P(SelItem, EmptyCodeClearsTheEntryWithoutAMessage) {
    const StatementTrace trace;
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        LeaveCode(L"", L"TxtOther");
        ExpectEntry(L"", L"");
        EXPECT_EQ(1, Host().Changes()) << "clearing is not choosing";
    });
    EXPECT_EQ((Lines{ByCode(L"'A1'"), ByCode(L"''")}), trace.All());
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
        EXPECT_EQ(L"", Host().SelID());
        EXPECT_EQ(L"", Host().SelName());
        EXPECT_EQ(L"Đ1", Form().Text(L"txtSelID"));
        // The code stands there still, and is looked up when the user goes on.
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"TxtLast");
        ExpectEntry(L"Đ1", L"Đèn bàn");
        EXPECT_EQ(2, Host().Changes());
    });
}

TEST_P(SelItem, ApostropheIsFoundAndADoubleQuoteIsNot) {
    Host().form.Run([&] {
        LeaveCode(L"b'1", L"TxtLast");
        ExpectEntry(L"B'1", L"O'Brien");
        // The literals of the library double it like an apostrophe; the engines do not undo it.
        Form().Enter(L"txtSelID", L"Q\"1");
        PressKey(VK_TAB);
        EXPECT_EQ(L"Mã số Q\"1 không tồn tại", ClosePlainMessage(L"Thông báo"));
        WaitReady(Form().Window(), L"txtSelID");
        LeaveCode(L"B'1", L"TxtOther");
    });
}

TEST_P(SelItem, NullNameIsEmpty) {
    Host().form.Run([&] {
        LeaveCode(L"N1", L"TxtLast");
        ExpectEntry(L"N1", L"");
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItem, PickedCodeThatCannotBeLookedUpIsTold) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From KhongCo Where Ma")); });
        Form().Enter(L"TxtSel", L"Áo");
        PressKey(VK_RETURN);
        ChooseInPicker(L"Áo sơ mi");
        const std::wstring error = ClosePlainMessage();
        EXPECT_NE(L"", error);
        EXPECT_EQ(L"Mã danh mục không mở được. Lỗi là:" + error, ClosePlainMessage());
        WaitReady(Form().Window(), L"TxtSel");
        EXPECT_EQ(L"Áo", Form().Text(L"TxtSel"));
        EXPECT_EQ(L"", Host().SelID());

        // The statement opens, and knows no such code.
        Form().Do([&] {
            Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From DanhMuc Where Thu>99 And Ma"));
        });
        PressKey(VK_RETURN);
        ChooseInPicker(L"Áo sơ mi");
        EXPECT_EQ(L"Mã danh mục không mở được. Lỗi là:", ClosePlainMessage());
        EXPECT_EQ(L"", Host().SelID());
        EXPECT_EQ(0, Host().Changes());
    });
}

TEST_P(SelItem, TypedCodeThatCannotBeLookedUpShowsTheErrorAndKeepsTheFocus) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SqlID(_bstr_t(L"Select Ma,Ten From KhongCo Where Ma")); });
        Form().Enter(L"txtSelID", L"A1");
        PressKey(VK_TAB);
        EXPECT_NE(L"", ClosePlainMessage());
        EXPECT_EQ(L"Mã số A1 không tồn tại", ClosePlainMessage(L"Thông báo"));
        WaitReady(Form().Window(), L"txtSelID");
        SetBox(Form().Window(), L"txtSelID", L"");
    });
}

TEST_P(SelItem, ClearForgetsTheEntryAndEmptiesTheNameBox) {
    Host().form.Run([&] {
        LeaveCode(L"A1", L"TxtLast");
        Form().Do([&] { EXPECT_SUCCEEDED(Host().item->Clear()); });
        EXPECT_EQ(L"", Host().SelID());
        EXPECT_EQ(L"", Host().SelName());
        EXPECT_EQ(L"", Form().Text(L"TxtSel"));
        EXPECT_EQ(L"A1", Form().Text(L"txtSelID"));
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItem, SearchTextOfTheHostStandsInThePicker) {
    Host().form.Run([&] {
        Form().Do([&] { Host().item->put_SearchText(_bstr_t(L"Đèn")); });
        Form().Enter(L"TxtSel", L"đ");
        PressKey(VK_RETURN);
        EXPECT_EQ(L"Đèn", TextOf(WaitForPicker(), L"TxtSelH"));
        CancelPicker();
    });
}

} // namespace
} // namespace vndesk::test
