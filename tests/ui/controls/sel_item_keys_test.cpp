// SPDX-License-Identifier: MIT
// What 1.1 added to the selection boxes: keys that open the picker, Tab that takes the only entry,
// and a picker that the host opens.
#include "support/forms/lookup_host.h"

namespace vndesk::test {
namespace {

class SelItemKeys : public CatalogueTest {
protected:
    void SetUp() override {
        CatalogueTest::SetUp();
        if (IsSkipped())
            return;
        host_ = std::make_unique<LookupHost>(Test().database);
        EXPECT_SUCCEEDED(host_->item.As(&item_));
    }
    void TearDown() override {
        item_.Reset();
        host_.reset();
    }

    LookupHost& Host() const { return *host_; }
    const LookupForm& Form() const { return host_->form; }
    ISelItem2& Item() const { return *item_.Get(); }

    // Leaves the name box by Tab with a text in it.
    void LeaveName(const wchar_t* text) const {
        Form().Enter(L"TxtSel", text);
        PressKey(VK_TAB);
    }
    void ExpectEntry(const wchar_t* id, const wchar_t* name) const {
        Form().Settle();
        EXPECT_EQ(id, Host().SelID());
        EXPECT_EQ(name, Host().SelName());
        EXPECT_EQ(id, Form().Text(L"txtSelID"));
        EXPECT_EQ(name, Form().Text(L"TxtSel"));
    }
    static size_t NamesIn(HWND picker) { return ListTexts(Control(picker, L"lv1IP")).size(); }
    static constexpr size_t kAll = std::size(kCatalogue) - 1; // the row without a name is like none

private:
    std::unique_ptr<LookupHost> host_;
    ComPtr<ISelItem2> item_;
};

INSTANTIATE_ADMINISTRATION(SelItemKeys);
INSTANTIATE_DIALECTS(SelItemKeys, "PostgreSqlBound");

TEST_P(SelItemKeys, PropertiesAreOffAtFirstAndTheKeysDoNothing) {
    VARIANT_BOOL on = VARIANT_TRUE;
    EXPECT_SUCCEEDED(Item().get_LookUpKeys(&on));
    EXPECT_EQ(VARIANT_FALSE, on);
    on = VARIANT_TRUE;
    EXPECT_SUCCEEDED(Item().get_TabCommits(&on));
    EXPECT_EQ(VARIANT_FALSE, on);
    EXPECT_HR(E_POINTER, Item().ShowPicker(nullptr));
    const StatementTrace trace;
    Host().form.Run([&] {
        Form().Enter(L"TxtSel", L"Đèn b");
        for (const WORD key : {VK_F4, VK_F2})
            PressKey(key);
        PressKey(VK_DOWN, kAlt);
        PressKey(VK_TAB);
        WaitReady(Form().Window(), L"txtSelID");
        Form().Settle();
        EXPECT_EQ(L"Đèn b", Form().Text(L"TxtSel"));
    });
    EXPECT_EQ(Lines{}, trace.All());
}

TEST_P(SelItemKeys, KeysOpenThePickerFromEitherBox) {
    EXPECT_SUCCEEDED(Item().put_LookUpKeys(VARIANT_TRUE));
    VARIANT_BOOL on = VARIANT_FALSE;
    EXPECT_SUCCEEDED(Item().get_LookUpKeys(&on));
    EXPECT_EQ(VARIANT_TRUE, on);
    Host().form.Run([&] {
        Form().Enter(L"TxtSel", L"ab");
        PressKey(VK_F4);
        EXPECT_EQ(2u, NamesIn(WaitForPicker()));
        int tabs = Form().Tabs();
        ChooseInPicker(L"ABC Việt");
        Form().WaitMovedOn(tabs, L"txtSelID");
        ExpectEntry(L"a3", L"ABC Việt");
        // From the code box, on the entry's own name: all names, and on from there.
        PressKey(VK_DOWN, kAlt);
        HWND picker = WaitForPicker();
        EXPECT_EQ(kAll, NamesIn(picker));
        EXPECT_EQ(L"ABC Việt", TextOf(picker, L"TxtSelH"));
        SetBox(picker, L"TxtSelH", L"o'");
        tabs = Form().Tabs();
        PressKey('C', kAlt);
        WaitForClose(picker);
        EXPECT_TRUE(WaitUntil([&] { return FocusName(Form().Window()) == L"TxtOther"; }));
        ExpectEntry(L"B'1", L"O'Brien");
        EXPECT_EQ(2, Host().Changes());
        Form().Focus(L"TxtSel");
        PressKey(VK_F2);
        CancelPicker();
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"B'1", L"O'Brien");
        // With another key they are the host's.
        PressKey(VK_F4, kControl);
        PressKey(VK_F2, kShift);
        Form().Settle();
        EXPECT_TRUE(IsWindowEnabled(Form().Window()));
    });
}

TEST_P(SelItemKeys, TabTakesTheOnlyEntryThatBeginsSo) {
    EXPECT_SUCCEEDED(Item().put_TabCommits(VARIANT_TRUE));
    Host().form.Run([&] {
        LeaveName(L"Đèn b");
        WaitReady(Form().Window(), L"txtSelID");
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"txtSelID") == L"Đ1"; }));
        ExpectEntry(L"Đ1", L"Đèn bàn");
        EXPECT_EQ(1, Host().Changes());
        EXPECT_EQ(L"txtSelID", FocusName(Form().Window()));
        // None: the box is left as it is.
        const StatementTrace trace;
        LeaveName(L"Xe đạp");
        WaitReady(Form().Window(), L"txtSelID");
        Form().Settle();
        EXPECT_EQ(1u, trace.All().size());
        EXPECT_EQ(L"Xe đạp", Form().Text(L"TxtSel"));
        EXPECT_EQ(L"Đ1", Host().SelID());
        // An entry without a code is none.
        LeaveName(L"Hàng");
        WaitReady(Form().Window(), L"txtSelID");
        Form().Settle();
        EXPECT_EQ(L"Đ1", Host().SelID());
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItemKeys, TabTakesTheOnlyEntryThatBeginsSoWithItsAccentsLeftOut) {
    EXPECT_SUCCEEDED(Item().put_TabCommits(VARIANT_TRUE));
    Govern(&Item(), MakeSettings(kFindNames));
    Host().form.Run([&] {
        LeaveName(L"den b");
        EXPECT_TRUE(WaitUntil([&] { return Form().Text(L"txtSelID") == L"Đ1"; }));
        ExpectEntry(L"Đ1", L"Đèn bàn");
        // What stands inside a name is for the picker.
        LeaveName(L"viet");
        WaitReady(Form().Window(), L"txtSelID");
        Form().Settle();
        EXPECT_EQ(L"viet", Form().Text(L"TxtSel"));
        EXPECT_EQ(L"Đ1", Host().SelID());
    });
}

TEST_P(SelItemKeys, TabOpensThePickerWhereSeveralBeginSo) {
    EXPECT_SUCCEEDED(Item().put_TabCommits(VARIANT_TRUE));
    Host().form.Run([&] {
        LeaveName(L"ab");
        EXPECT_EQ(2u, NamesIn(WaitForPicker()));
        ChooseInPicker(L"ABC Việt");
        WaitReady(Form().Window(), L"txtSelID");
        ExpectEntry(L"a3", L"ABC Việt");
        LeaveName(L"a");
        CancelPicker();
        WaitReady(Form().Window(), L"TxtSel");
        ExpectEntry(L"a3", L"ABC Việt");
        EXPECT_EQ(1, Host().Changes());
    });
}

TEST_P(SelItemKeys, OtherWaysOutOfTheNameBoxLookNothingUp) {
    EXPECT_SUCCEEDED(Item().put_TabCommits(VARIANT_TRUE));
    const StatementTrace trace;
    Host().form.Run([&] {
        Form().Enter(L"TxtSel", L"Đèn b");
        PressKey(VK_TAB, kShift);
        WaitReady(Form().Window(), L"TxtLast");
        Form().Focus(L"TxtSel");
        ClickWindow(Form().Box(L"TxtOther"));
        WaitReady(Form().Window(), L"TxtOther");
        LeaveName(L"");
        WaitReady(Form().Window(), L"txtSelID");
        Form().Settle();
    });
    EXPECT_EQ(Lines{}, trace.All());
}

TEST_P(SelItemKeys, HostOpensThePickerAndHearsWhetherOneWasChosen) {
    VARIANT_BOOL chosen = VARIANT_FALSE;
    const auto play = [&](std::function<void()> script) {
        DialogDriver user(std::move(script));
        EXPECT_SUCCEEDED(Item().ShowPicker(&chosen));
        user.Finish();
    };
    SetFocus(Form().Box(L"TxtLast"));
    play([&] {
        EXPECT_EQ(kAll, NamesIn(WaitForPicker()));
        ChooseInPicker(L"Áo sơ mi");
    });
    EXPECT_EQ(VARIANT_TRUE, chosen);
    EXPECT_EQ(L"A2", Read(Host().item, &ISelItem::get_SelID));
    EXPECT_EQ(L"Áo sơ mi", TextOf(Form().Box(L"TxtSel")));
    EXPECT_EQ(Form().Box(L"TxtLast"), GetFocus());
    EXPECT_EQ(1, Host().Changes());
    play([] { CancelPicker(); });
    EXPECT_EQ(VARIANT_FALSE, chosen);
    EXPECT_EQ(L"A2", Read(Host().item, &ISelItem::get_SelID));
    // What stands in the name box is what is looked for; boxes are not needed.
    SetWindowTextW(Form().Box(L"TxtSel"), L"ab");
    play([&] {
        EXPECT_EQ(2u, NamesIn(WaitForPicker()));
        CancelPicker();
    });
    EXPECT_SUCCEEDED(Item().SetTextSel(0));
    EXPECT_SUCCEEDED(Item().SetTextSelID(0));
    play([] { ChooseInPicker(L"O'Brien"); });
    EXPECT_EQ(VARIANT_TRUE, chosen);
    EXPECT_EQ(L"O'Brien", Read(Host().item, &ISelItem::get_SelName));
}

} // namespace
} // namespace vndesk::test
