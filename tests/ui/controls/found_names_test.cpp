// SPDX-License-Identifier: MIT
// The picker whose list shrinks to the names that are found, from the boxes of a host and from F2
// of the search.
#include "support/forms/lookup_host.h"
#include "support/forms/search.h"
#include "support/screenshot.h"

namespace vndesk::test {
namespace {

constexpr CatalogueRow kPlaces[] = {
    {L"P1", L"Sân bay Đà Nẵng"},
    {L"P2", L"Đà Nẵng"},
    {L"P3", L"da nang"},
    {L"P4", L"Đường Dương"},
    {L"P5", L"dưỡng khí"},
    {L"P6", L"Duong"},
    {L"P7", L"Hòa Vang"},
    {L"P8", L"HOÀ BÌNH"},
    {L"P9", L"50% lãi"},
    {L"P10", L"500 lãi"},
    {L"P11", L"Công ty  Kho"},
    {L"P12", L"a_b"},
    {L"P13", L"axb"},
    {L"P14", L"C:\\kho"},
    {L"P15", L"Nguyễn [A]"},
    {L"P16", L"NGUYEN A"},
    {L"P17", L"Nguyễn\u00A0B"},
};

constexpr wchar_t kNone[] = L"Không có mục nào phù hợp";

Lines Names(HWND picker) {
    return ListTexts(Control(picker, L"lv1IP"));
}

std::wstring ItemText(HWND list, int item) {
    wchar_t text[100] = {};
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(text));
    return text;
}

void ExpectNames(HWND picker, const Lines& names) {
    WaitUntil([&] { return Names(picker) == names; });
    EXPECT_EQ(names, Names(picker));
}

void ExpectNone(HWND picker) {
    EXPECT_TRUE(WaitUntil([&] { return IsShown(picker, L"lblNone"); }));
    EXPECT_EQ(kNone, TextOf(picker, L"lblNone"));
    EXPECT_EQ(Lines{}, Names(picker));
    EXPECT_FALSE(IsShown(picker, L"lv1IP"));
    EXPECT_FALSE(IsEnabled(picker, L"CmdSel"));
    EXPECT_EQ(L"", TextOf(picker, L"lblCode"));
}

class FoundNames : public CatalogueTest {
protected:
    void SetUp() override {
        CatalogueTest::SetUp();
        if (IsSkipped())
            return;
        // As columns usually are: with letter case, on both engines.
        Test().database.Execute(L"create table DiaDanh (Ma varchar(20), Ten varchar(100))");
        for (const auto& [code, name] : kPlaces)
            Test().database.Execute(L"insert into DiaDanh values ('" + std::wstring(code) + L"','" +
                                    name + L"')");
        host_ = std::make_unique<LookupHost>(Test().database);
        Ask(L"DiaDanh");
    }
    void TearDown() override { host_.reset(); }

    LookupHost& Host() const { return *host_; }
    void Ask(const std::wstring& table) const {
        EXPECT_SUCCEEDED(Host().item->put_SqlName(
            _bstr_t((L"Select Ma,Ten From " + table + L" Where Ten").c_str())));
        EXPECT_SUCCEEDED(Host().item->put_SqlID(
            _bstr_t((L"Select Ma,Ten From " + table + L" Where Ma").c_str())));
    }
    void Govern(const SecuritySettings& settings) const {
        Host().form.Do([&] { test::Govern(Host().item.Get(), MakeSettings(settings)); });
    }
    // Enter in the name box, and what is done in the picker.
    void Pick(const wchar_t* typed, const std::function<void(HWND)>& script = {}) const {
        Host().form.Enter(L"TxtSel", typed);
        PressKey(VK_RETURN);
        const HWND picker = WaitForPicker();
        if (script)
            script(picker);
        if (IsWindow(picker))
            CancelPicker();
        WaitReady(Host().form.Window(), L"TxtSel");
    }
    void ExpectPicked(const wchar_t* typed, const Lines& names) const {
        Pick(typed, [&](HWND picker) {
            EXPECT_EQ(names, Names(picker)) << ToUtf8(typed);
            if (names.empty())
                ExpectNone(picker);
        });
    }
    std::wstring Like() const {
        return L"Select Ma,Ten From DiaDanh Where Ten" +
               std::wstring(Test().server ? L"  ILike ?" : L"  Like ?");
    }

private:
    std::unique_ptr<LookupHost> host_;
};

INSTANTIATE_ADMINISTRATION(FoundNames);

TEST_P(FoundNames, ListShrinksToTheBestWhileTheUserTypes) {
    Govern(kFindNames);
    const StatementTrace trace;
    Host().form.Run([&] {
        Host().form.Enter(L"TxtSel", L"da n");
        PressKey(VK_RETURN);
        const HWND picker = WaitForPicker();
        EXPECT_EQ((Lines{L"da nang", L"Đà Nẵng", L"Sân bay Đà Nẵng"}), Names(picker));
        EXPECT_EQ(L"Mã số: P3", TextOf(picker, L"lblCode"));
        EXPECT_FALSE(IsShown(picker, L"lblNone"));
        TypeText(L"ẵ");
        ExpectNames(picker, {L"Đà Nẵng", L"Sân bay Đà Nẵng"});
        EXPECT_EQ(L"Mã số: P2", TextOf(picker, L"lblCode"));
        TypeText(L"x");
        ExpectNone(picker);
        PressKey(VK_DOWN);
        PressKey(VK_BACK);
        ExpectNames(picker, {L"Đà Nẵng", L"Sân bay Đà Nẵng"});
        EXPECT_TRUE(IsShown(picker, L"lv1IP"));
        PressKey(VK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(picker, L"lblCode") == L"Mã số: P1"; }));
        const int tabs = Host().form.Tabs();
        PressKey('C', kAlt);
        Host().form.WaitMovedOn(tabs, L"txtSelID");
    });
    EXPECT_EQ(L"P1", Host().SelID());
    EXPECT_EQ(L"Sân bay Đà Nẵng", Host().SelName());
    const Lines sent = trace.All();
    ASSERT_EQ(2u, sent.size());
    EXPECT_EQ(Like(), sent[0]);
}

TEST_P(FoundNames, AccentsCountAsFarAsTheHostSays) {
    Host().form.Run([&] {
        Govern({.Accents = vnAccentSmart});
        ExpectPicked(L"dương", {L"dưỡng khí", L"Đường Dương"});
        ExpectPicked(L"hoà", {L"HOÀ BÌNH", L"Hòa Vang"});
        ExpectPicked(L"nguyen", {L"NGUYEN A", L"Nguyễn [A]", L"Nguyễn\u00A0B"});
        ExpectPicked(L"nang", {});
        Govern({.Accents = vnAccentInsensitive});
        ExpectPicked(L"dường", {L"Duong", L"dưỡng khí", L"Đường Dương"});
        Govern({.MatchAnywhere = true});
        ExpectPicked(L"NẴNG", {L"Đà Nẵng", L"Sân bay Đà Nẵng"});
        ExpectPicked(L"duong", {L"Duong"});
    });
}

TEST_P(FoundNames, TypedWildcardsAndBlanksAreWhatTheyAre) {
    Govern(kFindNames);
    Host().form.Run([&] {
        ExpectPicked(L"50%", {L"50% lãi"});
        ExpectPicked(L"a_", {L"a_b"});
        ExpectPicked(L"cong ty kho", {L"Công ty  Kho"});
        ExpectPicked(L"[a", {L"Nguyễn [A]"});
        ExpectPicked(L"x' OR '1'='1", {});
    });
}

TEST_P(FoundNames, ListIsWhatWasAskedForAndTheSearchTextIsLookedForInIt) {
    Govern(kFindNames);
    EXPECT_SUCCEEDED(Host().item->put_SearchText(_bstr_t(L"nguyễn a")));
    Host().form.Run([&] {
        Pick(L"ng", [](HWND picker) {
            EXPECT_EQ(L"nguyễn a", TextOf(picker, L"TxtSelH"));
            ExpectNone(picker);
            SetBox(picker, L"TxtSelH", L"b");
            ExpectNames(picker, {L"Nguyễn\u00A0B", L"Sân bay Đà Nẵng"});
            SetBox(picker, L"TxtSelH", L"");
            // All that has "ng", in the order of names.
            ExpectNames(picker, {L"Công ty  Kho", L"da nang", L"Duong", L"dưỡng khí", L"Đà Nẵng",
                                 L"Đường Dương", L"Hòa Vang", L"NGUYEN A", L"Nguyễn [A]",
                                 L"Nguyễn\u00A0B", L"Sân bay Đà Nẵng"});
        });
    });
}

TEST_P(FoundNames, ChoicesOfTheSearchAreFoundAlike) {
    const auto search = CreateSearch();
    test::Govern(search.Get(), MakeSettings(kFindNames));
    EXPECT_SUCCEEDED(
        search->put_ActiveConnection(_variant_t(Test().database.ConnectionString().c_str())));
    EXPECT_SUCCEEDED(search->put_TableSearch(_bstr_t(L"KhachHang")));
    EXPECT_NE(L"", PlayShow(*search.Get(), [&](HWND form) {
                  FillLine(form, 0, L"Tỉnh thành", L"bằng", L"phong");
                  TabTo(form, L"MskValue(0)");
                  PressKey(VK_F2);
                  const HWND picker = WaitForForm(L"FmSelHang", 60000);
                  WaitReady(picker);
                  EXPECT_EQ(Lines{L"Hải Phòng"}, Names(picker));
                  PressKey('C', kAlt);
                  WaitForClose(picker);
                  EXPECT_TRUE(WaitUntil([&] { return TextOf(form, L"MskValue(0)") == L"HP"; }));
                  PressOk(form);
              }));
}

TEST_P(FoundNames, HundredThousandNamesFollowTheTyping) {
    Test().AddManyItems(100000);
    Ask(L"NhieuMuc");
    Govern(kFindNames);
    Host().form.Run([&] {
        Pick(L"mat", [&](HWND picker) {
            const HWND list = Control(picker, L"lv1IP");
            const auto counts = [&](LRESULT count) {
                return WaitUntil([&] { return SendMessageW(list, LB_GETCOUNT, 0, 0) == count; });
            };
            EXPECT_TRUE(counts(100000));
            // Each text is searched before the call returns.
            const ULONGLONG typing = GetTickCount64();
            constexpr int kTexts = 20;
            for (int i = 0; i < kTexts; ++i)
                SetBox(picker, L"TxtSelH", i % 2 ? L"m" : L"mặt h");
            const auto searched = static_cast<int>(GetTickCount64() - typing);
            printf("%d texts searched in 100,000 names in %d ms\n", kTexts, searched);
            RecordProperty("searched", searched);
            EXPECT_EQ(L"Mặt hàng 000001", ItemText(list, 0));
            SetBox(picker, L"TxtSelH", L"hang 09999");
            EXPECT_TRUE(counts(10));
            SetBox(picker, L"TxtSelH", L"m");
            EXPECT_TRUE(counts(100000));
            EXPECT_EQ(L"Mặt hàng 100000", ItemText(list, 99999));
        });
    });
}

// Through the registered DLL, which brings the theme that users see.
class FoundNamesForm : public testing::Test {};

TEST_F(FoundNamesForm, Pictures) {
    const Catalogue catalogue(false);
    LookupHost host(catalogue.database);
    Govern(host.item.Get(), MakeSettings(kFindNames));
    EXPECT_SUCCEEDED(
        host.item->put_SqlName(_bstr_t(L"Select MaKH,Name From KhachHang Where Name")));
    host.form.Run([&] {
        host.form.Enter(L"TxtSel", L"an");
        PressKey(VK_RETURN);
        const HWND picker = WaitForPicker();
        EXPECT_LT(1u, Names(picker).size());
        Sleep(300); // everything is painted
        EXPECT_NE(L"", SaveWindow(picker, L"item-picker-found"));
        TypeText(L"xyz");
        ExpectNone(picker);
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(picker, L"item-picker-none"));
        CancelPicker();
    });
}

} // namespace
} // namespace vndesk::test
