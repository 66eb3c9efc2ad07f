// SPDX-License-Identifier: MIT
// Pictures of the find dialog with the sample database.
#include "support/forms/search.h"

#include "support/screenshot.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kName[] = L"Tên khách hàng";
constexpr wchar_t kProvince[] = L"Tỉnh thành";
constexpr wchar_t kDebt[] = L"Công nợ";
constexpr wchar_t kDate[] = L"Ngày lập thẻ";

class SearchPictures : public testing::Test {
protected:
    void Play(Script script) {
        PlaySearch(database_.ConnectionString(), L"KhachHang", [&](HWND form) {
            script(form);
            PressCancel();
        });
    }

    static void Picture(HWND form, const wchar_t* name) {
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(form, name));
    }

    SampleDatabase database_ = SampleDatabase::Embedded();
};

TEST_F(SearchPictures, AsItOpens) {
    Play([](HWND form) { Picture(form, L"find-open"); });
}

TEST_F(SearchPictures, OneLineWithTheNextOneReady) {
    Play([](HWND form) {
        FillLine(form, 0, kName, L"bắt đầu bằng", L"Công ty");
        ChooseText(form, L"CmbFld(1)", kProvince);
        ChooseText(form, L"CmbPredicate(1)", L"bằng");
        Picture(form, L"find-next-line");
    });
}

TEST_F(SearchPictures, FourLines) {
    Play([](HWND form) {
        FillLine(form, 0, kName, L"bắt đầu bằng", L"Công ty");
        FillLine(form, 1, kDebt, L"lớn hơn", L"20000000");
        FillLine(form, 2, kProvince, L"thuộc danh sách", L"HN,HP", L"hoặc");
        FillLine(form, 3, kDate, L"trước ngày", L"31/12/2004");
        Picture(form, L"find-four-lines");
    });
}

TEST_F(SearchPictures, ListDroppedDown) {
    Play([](HWND form) {
        TabTo(form, L"CmbFld(0)");
        PressKey(VK_F4);
        const HWND list = ListOf(form, L"CmbFld(0)");
        EXPECT_TRUE(WaitUntil([&] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
        Sleep(300);
        RECT area;
        GetWindowRect(form, &area);
        EXPECT_NE(L"", SaveArea(area, L"find-fields"));
        PressKey(VK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
    });
}

TEST_F(SearchPictures, Help) {
    Play([](HWND form) {
        TabTo(form, L"CmdHelp");
        PressKey(VK_SPACE);
        const HWND box = WaitForForm(L"MessageBox");
        WaitReady(box, L"Cmd1");
        Picture(box, L"find-help");
        PressKey(VK_SPACE);
        WaitForClose(box);
        WaitReady(form);
    });
}

} // namespace
} // namespace vndesk::test
