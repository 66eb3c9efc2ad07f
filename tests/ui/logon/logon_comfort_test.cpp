// SPDX-License-Identifier: MIT
// What a host sets for the logon dialog of one clsLogon: its looks, remembered names, help, a limit
// of tries, its owner, and the events that tell how it went.
#include "support/forms/administration.h"

#include <olectl.h>

#include "support/event_listener.h"
#include "support/late_bound.h"
#include "support/screenshot.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kKey[] = L"Software\\VnDeskTest\\Logon";
constexpr wchar_t kRefused[] = L"Mật khẩu hoặc người sử dụng không hợp lệ ";

// A picture of one colour, twice as wide as high.
Microsoft::WRL::ComPtr<IPictureDisp> RedPicture() {
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 80, 40);
    const HDC dc = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    const RECT all = {0, 0, 80, 40};
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(dc, &all, red);
    DeleteObject(red);
    SelectObject(dc, before);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap;
    Microsoft::WRL::ComPtr<IPictureDisp> picture;
    EXPECT_SUCCEEDED(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                              reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

COLORREF PixelOf(HWND window, double x, double y) {
    RECT box = {};
    GetWindowRect(window, &box);
    const HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, box.left + static_cast<int>((box.right - box.left) * x),
                                    box.top + static_cast<int>((box.bottom - box.top) * y));
    ReleaseDC(nullptr, screen);
    return color;
}

class LogonComfort : public testing::Test {
protected:
    LogonComfort() {
        Forget();
        database_.Execute(L"update \"user\" set password=0");
    }
    ~LogonComfort() override { Forget(); }

    static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnDeskTest"); }

    long Play(std::function<void(HWND)> script) {
        return PlayLogon(*logon_.Get(), database_.ConnectionString(), [&] {
            const HWND dialog = WaitForForm(L"FrmLogon");
            WaitReady(dialog);
            script(dialog);
        });
    }

    static void LogOn(HWND dialog) { ClickWindow(Control(dialog, L"CmdOk")); }

    // With an empty password, which fits the users of the test, or a wrong one.
    static std::function<void(HWND)> Trying(const wchar_t* name, const wchar_t* password = L"") {
        return [=](HWND dialog) {
            SetBox(dialog, L"TxtUser", name);
            SetBox(dialog, L"TxtPass", password);
            LogOn(dialog);
        };
    }

    void Remember(std::initializer_list<const wchar_t*> names) {
        EXPECT_SUCCEEDED(logon_->put_RememberKey(_bstr_t(kKey)));
        for (const wchar_t* name : names)
            EXPECT_NE(0, Play(Trying(name)));
    }

    static std::vector<std::wstring> Kept() {
        wchar_t texts[1024] = {};
        DWORD bytes = sizeof texts;
        RegGetValueW(HKEY_CURRENT_USER, kKey, L"LogonNames", RRF_RT_REG_MULTI_SZ, nullptr, texts,
                     &bytes);
        std::vector<std::wstring> names;
        for (const wchar_t* name = texts; *name; name += names.back().size() + 1)
            names.emplace_back(name);
        return names;
    }

    using Names = std::vector<std::wstring>;

    const SampleDatabase database_ = SampleDatabase::Embedded();
    const Microsoft::WRL::ComPtr<ILogon2> logon_ = NewObject<ILogon2>(L"VnDesk.clsLogon");
};

TEST_F(LogonComfort, CaptionIsTheTitleOfTheDialogAndOfItsMessages) {
    EXPECT_SUCCEEDED(logon_->put_Caption(_bstr_t(L"Kế toán Đại Phát")));
    Play([](HWND dialog) {
        EXPECT_EQ(L"Kế toán Đại Phát", TextOf(dialog));
        Trying(L"ai đó")(dialog);
        Answer(kRefused, L"Kế toán Đại Phát");
        WaitReady(dialog, L"TxtUser");
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonComfort, BannerStandsAboveTheBoxesAndMovesThemDown) {
    int plain = 0;
    const auto top = [](HWND dialog) {
        RECT box = {}, form = {};
        GetWindowRect(Control(dialog, L"TxtUser"), &box);
        GetWindowRect(dialog, &form);
        return static_cast<int>(box.top - form.top);
    };
    Play([&](HWND dialog) {
        plain = top(dialog);
        EXPECT_EQ(nullptr, FindControl(dialog, L"Banner"));
        PressKey(VK_ESCAPE);
    });
    EXPECT_SUCCEEDED(logon_->put_Banner(_bstr_t(L"Chi nhánh Hà Nội & Hải Phòng")));
    Play([&](HWND dialog) {
        EXPECT_EQ(L"Chi nhánh Hà Nội & Hải Phòng", TextOf(dialog, L"Banner"));
        EXPECT_TRUE(IsShown(dialog, L"Banner"));
        EXPECT_LT(plain, top(dialog));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonComfort, PictureOfTheHostIsDrawnInTheMiddleOfThePlaceOfThePadlock) {
    EXPECT_SUCCEEDED(logon_->putref_Picture(RedPicture().Get()));
    Play([](HWND dialog) {
        const HWND image = Control(dialog, L"Image1");
        EXPECT_TRUE(WaitUntil([=] { return PixelOf(image, 0.5, 0.5) == RGB(255, 0, 0); }));
        EXPECT_NE(RGB(255, 0, 0), PixelOf(image, 0.5, 0.05)) << "the picture is not stretched";
        PressKey(VK_ESCAPE);
    });
    Microsoft::WRL::ComPtr<IPictureDisp> picture;
    EXPECT_SUCCEEDED(logon_->get_Picture(&picture));
    EXPECT_TRUE(picture);
    EXPECT_SUCCEEDED(logon_->putref_Picture(nullptr));
    EXPECT_SUCCEEDED(logon_->get_Picture(picture.ReleaseAndGetAddressOf()));
    EXPECT_FALSE(picture);
}

TEST_F(LogonComfort, WhoHasLoggedOnIsTold) {
    std::wstring told;
    const EventListener events(logon_.Get(), __uuidof(DLogonEvents),
                               [&](DISPID event, DISPPARAMS& arguments) {
                                   if (event == 2)
                                       told = std::to_wstring(V_I4(&arguments.rgvarg[1])) + L" " +
                                              V_BSTR(&arguments.rgvarg[0]);
                               });
    long group = -1;
    _bstr_t name;
    EXPECT_SUCCEEDED(logon_->get_UserName(name.GetAddress()));
    EXPECT_EQ(0u, name.length());
    const long code = Play(Trying(L"khách"));
    EXPECT_EQ(std::to_wstring(code) + L" Khách", told);
    EXPECT_SUCCEEDED(logon_->get_UserName(name.GetAddress()));
    EXPECT_STREQ(L"Khách", name);
    EXPECT_SUCCEEDED(logon_->get_GroupCode(&group));
    EXPECT_EQ(database_.ScalarText(L"select idgroup from \"user\" where name='Khách'"),
              std::to_wstring(group));
    // The last successful one, whatever came after.
    told.clear();
    EXPECT_EQ(0, Play([](HWND) { PressKey(VK_ESCAPE); }));
    EXPECT_EQ(L"", told);
    EXPECT_SUCCEEDED(logon_->get_UserName(name.GetAddress()));
    EXPECT_STREQ(L"Khách", name);
}

TEST_F(LogonComfort, WhoHasLoggedOnIsToldWithRecordsToo) {
    Upgrade(database_, L"audit");
    Govern(logon_.Get(), MakeSettings({.Audit = true}));
    EXPECT_NE(0, Play(Trying(L"Khách")));
    long group = -1;
    EXPECT_SUCCEEDED(logon_->get_GroupCode(&group));
    EXPECT_EQ(database_.ScalarText(L"select idgroup from \"user\" where name='Khách'"),
              std::to_wstring(group));
}

TEST_F(LogonComfort, DialogClosesAfterTheLastTryThatIsAllowed) {
    std::vector<std::wstring> told;
    const EventListener events(
        logon_.Get(), __uuidof(DLogonEvents), [&](DISPID event, DISPPARAMS& arguments) {
            if (event == 3)
                told.push_back(V_BSTR(&arguments.rgvarg[1]) +
                               (L" " + std::to_wstring(V_I4(&arguments.rgvarg[0]))));
        });
    EXPECT_SUCCEEDED(logon_->put_MaxTries(2));
    EXPECT_EQ(0, Play([](HWND dialog) {
                  Trying(L" Khách ", L"sai")(dialog);
                  Answer(kRefused, L"Login");
                  WaitReady(dialog, L"TxtUser");
                  Trying(L"ai đó")(dialog);
                  Answer(kRefused, L"Login");
                  WaitForClose(dialog);
              }));
    EXPECT_EQ((std::vector<std::wstring>{L"Khách 1", L"ai đó 2"}), told);
    // The next dialog counts anew.
    EXPECT_NE(0, Play([](HWND dialog) {
                  Trying(L"Khách", L"sai")(dialog);
                  Answer(kRefused, L"Login");
                  WaitReady(dialog, L"TxtUser");
                  Trying(L"Khách")(dialog);
              }));
    EXPECT_HR(E_INVALIDARG, logon_->put_MaxTries(-1));
}

TEST_F(LogonComfort, HelpIsTheHostsFirst) {
    int asked = 0;
    bool handles = true;
    const EventListener events(logon_.Get(), __uuidof(DLogonEvents),
                               [&](DISPID event, DISPPARAMS& arguments) {
                                   if (event != 4)
                                       return;
                                   ++asked;
                                   if (handles)
                                       *V_BOOLREF(&arguments.rgvarg[0]) = VARIANT_TRUE;
                               });
    EXPECT_SUCCEEDED(logon_->put_HelpFile(_bstr_t(L"Z:\\không có\\trợ giúp.chm")));
    Play([&](HWND dialog) {
        WaitReady(dialog, L"TxtUser");
        PressKey(VK_F1);
        ClickWindow(Control(dialog, L"CmdHelp"));
        EXPECT_TRUE(WaitUntil([&] { return asked == 2; }));
        handles = false;
        ClickWindow(Control(dialog, L"CmdHelp"));
        WaitForClass(L"#32770"); // of the same title as the dialog
        EXPECT_EQ(L"Không mở được tệp hướng dẫn:\nZ:\\không có\\trợ giúp.chm",
                  ClosePlainMessage(L"Login"));
        WaitReady(dialog);
        PressKey(VK_ESCAPE);
    });
    EXPECT_EQ(3, asked);
}

TEST_F(LogonComfort, LastNameStandsInTheBoxAndThePasswordIsAskedFor) {
    EXPECT_SUCCEEDED(logon_->put_RememberKey(_bstr_t(kKey)));
    EXPECT_EQ(0, Play([](HWND dialog) {
                  WaitForFocus(dialog, L"TxtUser");
                  Trying(L"Khách", L"sai")(dialog);
                  Answer(kRefused, L"Login");
                  WaitReady(dialog, L"TxtUser");
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(Names{}, Kept()) << "who was refused is not kept";
    EXPECT_NE(0, Play(Trying(L"khách")));
    EXPECT_EQ(Names{L"Khách"}, Kept()) << "as the database has it";
    EXPECT_NE(0, Play([](HWND dialog) {
                  WaitForFocus(dialog, L"TxtPass");
                  EXPECT_EQ(L"Khách", TextOf(dialog, L"TxtUser"));
                  EXPECT_TRUE(IsEnabled(dialog, L"CmdOk"));
                  LogOn(dialog);
              }));
}

TEST_F(LogonComfort, FiveNamesAreKeptTheLastOneFirstAndNoneTwice) {
    database_.Execute(L"insert into \"user\"(code,name,\"dec\",idgroup,password) values"
                      L"(901,'Một','',1,0),(902,'Hai','',1,0),(903,'Ba','',1,0),(904,'Bốn','',1,0),"
                      L"(905,'Năm','',1,0),(906,'Sáu','',1,0)");
    Remember({L"Một", L"Hai", L"Ba", L"Bốn", L"Năm", L"Sáu", L"ba"});
    EXPECT_EQ((Names{L"Ba", L"Sáu", L"Năm", L"Bốn", L"Hai"}), Kept());
}

TEST_F(LogonComfort, NamesAreForgottenByTheMenuOfTheBox) {
    Remember({L"Khách"});
    EXPECT_EQ(0, Play([](HWND dialog) {
                  WaitForFocus(dialog, L"TxtPass");
                  RightClickWindow(Control(dialog, L"TxtUser"));
                  WaitForClass(L"#32768");
                  PressKey(L'L'); // Xoá tên đã lưu
                  WaitForFocus(dialog, L"TxtUser");
                  EXPECT_EQ(L"", TextOf(dialog, L"TxtUser"));
                  EXPECT_FALSE(IsEnabled(dialog, L"CmdOk"));
                  PressKey(VK_ESCAPE);
              }));
    EXPECT_EQ(Names{}, Kept());
}

TEST_F(LogonComfort, MenuOfTheBoxEditsItsText) {
    Remember({L"Khách"});
    Play([](HWND dialog) {
        const HWND box = Control(dialog, L"TxtUser");
        const auto choose = [&](WORD letter) {
            RightClickWindow(box);
            const HWND menu = WaitForClass(L"#32768");
            PressKey(letter);
            WaitForClose(menu);
        };
        choose(L'T'); // Chọn tất cả
        choose(L'C'); // Cắt
        EXPECT_TRUE(WaitUntil([=] { return TextOf(box).empty(); }));
        choose(L'D'); // Dán
        EXPECT_TRUE(WaitUntil([=] { return TextOf(box) == L"Khách"; }));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(LogonComfort, NameIsPickedFromTheList) {
    Remember({L"Admin", L"Khách"});
    EXPECT_SUCCEEDED(logon_->put_PickUser(VARIANT_TRUE));
    const long admin =
        std::stol(database_.ScalarText(L"select code from \"user\" where name='Admin'"));
    EXPECT_EQ(admin, Play([](HWND dialog) {
                  WaitForFocus(dialog, L"TxtPass");
                  const HWND list = Control(dialog, L"TxtUser");
                  EXPECT_EQ((std::vector<std::wstring>{L"Khách", L"Admin"}), ListTexts(list));
                  EXPECT_EQ(L"Khách", TextOf(list));
                  PressKey(VK_TAB, kShift);
                  WaitForFocus(dialog, L"TxtUser");
                  PressKey(VK_F4);
                  EXPECT_TRUE(
                      WaitUntil([=] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
                  PressKey(VK_DOWN);
                  PressKey(VK_RETURN); // chooses
                  EXPECT_TRUE(
                      WaitUntil([=] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
                  WaitForFocus(dialog, L"TxtUser");
                  EXPECT_EQ(L"Admin", TextOf(list));
                  PressKey(VK_RETURN); // moves on
                  WaitForFocus(dialog, L"TxtPass");
                  LogOn(dialog);
              }));
}

TEST_F(LogonComfort, OtherNamesAreTypedIntoTheList) {
    Remember({L"Admin"});
    EXPECT_SUCCEEDED(logon_->put_PickUser(VARIANT_TRUE));
    EXPECT_NE(0, Play([](HWND dialog) {
                  WaitForFocus(dialog, L"TxtPass");
                  PressKey(VK_TAB, kShift);
                  WaitForFocus(dialog, L"TxtUser");
                  PressKey('A', kControl);
                  PressKey(VK_DELETE);
                  EXPECT_TRUE(WaitUntil([=] { return !IsEnabled(dialog, L"CmdOk"); }));
                  TypeText(L"Khách");
                  EXPECT_TRUE(WaitUntil([=] { return IsEnabled(dialog, L"CmdOk"); }));
                  LogOn(dialog);
              }));
    EXPECT_EQ((Names{L"Khách", L"Admin"}), Kept());
}

TEST_F(LogonComfort, NothingIsKeptWithoutAKey) {
    EXPECT_SUCCEEDED(logon_->put_PickUser(VARIANT_TRUE));
    EXPECT_NE(0, Play([](HWND dialog) {
                  EXPECT_EQ(L"Edit", ClassName(Control(dialog, L"TxtUser")));
                  Trying(L"Khách")(dialog);
              }));
    EXPECT_EQ(Names{}, Kept());
}

TEST_F(LogonComfort, AllFormsOfTheObjectStayInFrontOfItsOwner) {
    const HWND host = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200,
                                    200, nullptr, nullptr, nullptr, nullptr);
    const HWND other = CreateWindowW(L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                     200, 200, nullptr, nullptr, nullptr, nullptr);
    _bstr_t connect(database_.ConnectionString().c_str());
    const auto ownerOf = [&](const wchar_t* form, const std::function<HRESULT()>& call) {
        HWND owner = nullptr;
        SetActiveWindow(other);
        DialogDriver user([&] {
            const HWND window = WaitForForm(form);
            WaitReady(window);
            owner = GetWindow(window, GW_OWNER);
            PressKey(VK_ESCAPE);
        });
        EXPECT_SUCCEEDED(call());
        user.Finish();
        return owner;
    };
    const auto logOn = [&] {
        long code = 0;
        return logon_->ShowLogon(&connect.GetBSTR(), &code);
    };
    EXPECT_EQ(other, ownerOf(L"FrmLogon", logOn));
    EXPECT_SUCCEEDED(logon_->put_Owner(_variant_t(HandleToLong(host))));
    EXPECT_EQ(host, ownerOf(L"FrmLogon", logOn));
    EXPECT_EQ(host, ownerOf(L"FrmMenu", [&] { return logon_->UserManager(&connect.GetBSTR()); }));
    EXPECT_EQ(host, ownerOf(L"FmGrp", [&] { return logon_->ShowGroup(&connect.GetBSTR()); }));
    _bstr_t name(L"Admin");
    EXPECT_EQ(host, ownerOf(L"FrmInput",
                            [&] { return logon_->ShowUser(&connect.GetBSTR(), &name.GetBSTR()); }));
    _bstr_t text(L"?"), title(L"!"), pressed;
    EXPECT_EQ(host, ownerOf(L"MessageBox", [&] {
                  return logon_->MgBox(&text.GetBSTR(), vbOKOnly, &title.GetBSTR(),
                                       static_cast<IconValue>(0), VARIANT_FALSE,
                                       pressed.GetAddress());
              }));
    EXPECT_SUCCEEDED(logon_->put_Owner(_variant_t()));
    EXPECT_EQ(other, ownerOf(L"FrmLogon", logOn));
    EXPECT_HR(DISP_E_TYPEMISMATCH, logon_->put_Owner(_variant_t(L"cửa sổ")));
    DestroyWindow(host);
    DestroyWindow(other);
}

TEST_F(LogonComfort, PictureForTheGuide) {
    EXPECT_SUCCEEDED(logon_->put_Caption(_bstr_t(L"Kế toán Đại Phát")));
    EXPECT_SUCCEEDED(logon_->put_Banner(_bstr_t(L"Chi nhánh Hà Nội – số liệu năm 2026")));
    Remember({L"Admin", L"Khách", L"Lê Quốc Việt"});
    EXPECT_SUCCEEDED(logon_->put_PickUser(VARIANT_TRUE));
    Play([](HWND dialog) {
        WaitForFocus(dialog, L"TxtPass");
        const HWND list = Control(dialog, L"TxtUser");
        PressKey(VK_TAB, kShift);
        WaitForFocus(dialog, L"TxtUser");
        PressKey(VK_F4);
        EXPECT_TRUE(WaitUntil([=] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(dialog, L"logon-comfort"));
        PressKey(VK_ESCAPE);
        PressKey(VK_ESCAPE);
    });
}

} // namespace
} // namespace vndesk::test
