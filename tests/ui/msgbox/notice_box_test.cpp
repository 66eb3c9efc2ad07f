// SPDX-License-Identifier: MIT
// The message boxes that speak Unicode, Ask and clsMessageBox, as hosts see them: through the
// registered classes, with real keys.
#include "support/forms/host.h"

#include "support/keys.h"
#include "support/late_bound.h"
#include "support/screenshot.h"
#include "support/text.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;

constexpr wchar_t kKey[] = L"Software\\VnDeskTest\\XoaKhach";

HWND Box() {
    const HWND box = WaitForForm(L"NoticeBox");
    WaitReady(box);
    return box;
}

std::wstring ClipboardText() {
    std::wstring text;
    EXPECT_TRUE(WaitUntil([] { return IsClipboardFormatAvailable(CF_UNICODETEXT); }));
    EXPECT_TRUE(WaitUntil([] { return OpenClipboard(nullptr); }));
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

// --- Ask ---

long PlayAsk(long buttons, std::function<void(HWND)> script, long icon = 0,
             const wchar_t* title = L"Hỏi") {
    const auto logon = NewObject<ILogon2>(L"VnDesk.clsLogon");
    long answer = -1;
    DialogDriver user([&] { script(Box()); });
    EXPECT_SUCCEEDED(logon->Ask(_bstr_t(L"Bạn có chắc chắn muốn xoá không?"),
                                static_cast<Buttons>(buttons), static_cast<IconValue>(icon),
                                _bstr_t(title), &answer));
    user.Finish();
    return answer;
}

struct Set {
    const char* name;
    long buttons;
    std::vector<const wchar_t*> captions;
    std::vector<long> answers;
    long wayOut; // by Escape; -1: there is none
};

void PrintTo(const Set& set, std::ostream* out) {
    *out << set.name;
}

class AskSets : public testing::TestWithParam<Set> {};

TEST_P(AskSets, EachButtonAnswersWithItsNumberInVisualBasic) {
    const Set& set = GetParam();
    constexpr const wchar_t* kButtons[] = {L"Cmd1", L"Cmd2", L"Cmd3"};
    for (size_t i = 0; i < set.answers.size(); ++i)
        EXPECT_EQ(set.answers[i], PlayAsk(set.buttons, [&](HWND box) {
                      EXPECT_EQ(L"Bạn có chắc chắn muốn xoá không?", TextOf(box, L"Message"));
                      EXPECT_EQ(L"Hỏi", TextOf(box));
                      for (size_t j = 0; j < 3; ++j) {
                          EXPECT_EQ(j < set.captions.size(), IsShown(box, kButtons[j]));
                          if (j < set.captions.size()) {
                              EXPECT_EQ(set.captions[j], TextOf(box, kButtons[j]));
                          }
                      }
                      WaitForFocus(box, L"Cmd1");
                      ClickWindow(Control(box, kButtons[i]));
                  }));
}

TEST_P(AskSets, EscapeAndTheCloseBoxTakeTheWayOut) {
    const Set& set = GetParam();
    const bool isThere = set.wayOut >= 0;
    const long first = set.answers.front();
    for (const bool byKey : {true, false})
        EXPECT_EQ(isThere ? set.wayOut : first, PlayAsk(set.buttons, [&](HWND box) {
                      if (byKey)
                          PressKey(VK_ESCAPE);
                      else
                          PostMessageW(box, WM_CLOSE, 0, 0);
                      if (isThere)
                          return;
                      PressKey(VK_RETURN); // still there
                  }));
}

const Set kSets[] = {
    {"Ok", 0, {L"Đồ&ng ý"}, {1}, 1},
    {"OkCancel", 1, {L"Đồ&ng ý", L"&Bỏ qua"}, {1, 2}, 2},
    {"AbortRetryIgnore", 2, {L"Bỏ &dở", L"&Thử lại", L"&Bác bỏ"}, {3, 4, 5}, -1},
    {"YesNoCancel", 3, {L"&Có", L"&Không", L"&Bỏ qua"}, {6, 7, 2}, 2},
    {"YesNo", 4, {L"&Có", L"&Không"}, {6, 7}, -1},
    {"RetryCancel", 5, {L"&Thử lại", L"&Bỏ qua"}, {4, 2}, 2},
    {"Unknown", 9, {L"Đồ&ng ý"}, {1}, 1},
};
INSTANTIATE_TEST_SUITE_P(Sets, AskSets, testing::ValuesIn(kSets),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(Ask, LetterAlonePressesItsButton) {
    EXPECT_EQ(7, PlayAsk(vbYesNo, [](HWND) { PressKey('K'); }));
}

TEST(Ask, SumOfVisualBasicGivesIconAndDefaultButton) {
    EXPECT_EQ(7, PlayAsk(long{vbYesNo} + vbQuestion + 256, [](HWND box) {
                  WaitForFocus(box, L"Cmd2");
                  EXPECT_NE(0, SendMessageW(Control(box, L"Icon"), STM_GETICON, 0, 0));
                  PressKey(VK_RETURN);
              }));
}

TEST(Ask, EmptyTitleIsTheWordForNotice) {
    PlayAsk(
        vbOKOnly,
        [](HWND box) {
            EXPECT_EQ(L"Thông báo", TextOf(box));
            EXPECT_EQ(0, SendMessageW(Control(box, L"Icon"), STM_GETICON, 0, 0));
            PressKey(VK_RETURN);
        },
        0, L"");
}

TEST(Ask, ScriptsLeaveOutWhatIsUsual) {
    LateBound logon = LateBound::Create(L"VnDesk.clsLogon");
    DialogDriver user([] {
        Box();
        PressKey(VK_RETURN);
    });
    EXPECT_EQ(1, static_cast<long>(logon.Call(L"Ask", {_variant_t(L"Đã xong.")})));
    user.Finish();
}

// --- clsMessageBox ---

class MessageBoxClass : public testing::Test {
protected:
    MessageBoxClass() {
        Forget();
        EXPECT_SUCCEEDED(box_->put_Text(_bstr_t(L"Sổ cái tháng 3 chưa khoá.")));
        EXPECT_SUCCEEDED(box_->put_Title(_bstr_t(L"Kế toán")));
    }
    ~MessageBoxClass() override { Forget(); }

    static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnDeskTest"); }

    long Play(std::function<void(HWND)> script, const _variant_t& owner = Missing()) {
        long answer = -1;
        DialogDriver user([&] { script(Box()); });
        EXPECT_SUCCEEDED(box_->Show(owner, &answer));
        user.Finish();
        return answer;
    }

    static _variant_t Missing() {
        _variant_t missing;
        V_VT(&missing) = VT_ERROR;
        V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
        return missing;
    }

    const ComPtr<IMessageBox> box_ = NewObject<IMessageBox>(L"VnDesk.clsMessageBox");
};

TEST_F(MessageBoxClass, HeadingStandsAboveTheText) {
    EXPECT_SUCCEEDED(box_->put_Heading(_bstr_t(L"Không in được báo cáo")));
    Play([](HWND box) {
        EXPECT_EQ(L"Không in được báo cáo", TextOf(box, L"Heading"));
        RECT heading = {}, text = {};
        GetWindowRect(Control(box, L"Heading"), &heading);
        GetWindowRect(Control(box, L"Message"), &text);
        EXPECT_LE(heading.bottom, text.top);
        PressKey(VK_RETURN);
    });
}

TEST_F(MessageBoxClass, DetailsAreShownWhenTheyAreAskedFor) {
    EXPECT_SUCCEEDED(box_->put_Details(_bstr_t(L"dòng 1\ndòng 2\r\ndòng 3")));
    Play([](HWND box) {
        EXPECT_FALSE(IsShown(box, L"TxtDetails"));
        RECT before = {}, after = {};
        GetWindowRect(box, &before);
        PressKey('I'); // Chi tiết
        EXPECT_TRUE(WaitUntil([=] { return IsShown(box, L"TxtDetails"); }));
        EXPECT_EQ(L"dòng 1\r\ndòng 2\r\ndòng 3", TextOf(box, L"TxtDetails"));
        EXPECT_TRUE(WaitUntil([&] {
            GetWindowRect(box, &after);
            return after.bottom - after.top > before.bottom - before.top;
        }));
        PressKey('I');
        EXPECT_TRUE(WaitUntil([=] { return !IsShown(box, L"TxtDetails"); }));
        EXPECT_TRUE(WaitUntil([&] {
            GetWindowRect(box, &after);
            return EqualRect(&after, &before) != FALSE;
        }));
        PressKey(VK_ESCAPE);
    });
}

TEST_F(MessageBoxClass, ButtonsGrowWithTheirOwnCaptions) {
    EXPECT_SUCCEEDED(box_->put_Buttons(vbYesNo));
    EXPECT_SUCCEEDED(box_->SetCaption(vnAnswerYes, _bstr_t(L"&Xoá cả các chứng từ liên quan")));
    EXPECT_EQ(6, Play([](HWND box) {
                  EXPECT_EQ(L"&Xoá cả các chứng từ liên quan", TextOf(box, L"Cmd1"));
                  RECT yes = {}, no = {};
                  GetWindowRect(Control(box, L"Cmd1"), &yes);
                  GetWindowRect(Control(box, L"Cmd2"), &no);
                  EXPECT_LT(no.right - no.left, yes.right - yes.left);
                  EXPECT_LT(yes.right, no.left);
                  PressKey('X');
              }));
    EXPECT_HR(E_INVALIDARG, box_->SetCaption(vnAnswerNone, _bstr_t(L"gì đó")));
}

TEST_F(MessageBoxClass, DefaultAndCancelButtonsAreTheHosts) {
    EXPECT_SUCCEEDED(box_->put_Buttons(vbYesNo));
    EXPECT_SUCCEEDED(box_->put_DefaultButton(vnAnswerNo));
    EXPECT_SUCCEEDED(box_->put_CancelButton(vnAnswerNo));
    EXPECT_EQ(7, Play([](HWND box) {
                  WaitForFocus(box, L"Cmd2");
                  PressKey(VK_RETURN);
              }));
    EXPECT_EQ(7, Play([](HWND) { PressKey(VK_ESCAPE); }));
    EXPECT_EQ(7, Play([](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); }));
    EXPECT_HR(E_INVALIDARG, box_->put_DefaultButton(static_cast<MessageAnswers>(8)));
}

TEST_F(MessageBoxClass, CheckBoxComesBackAsTheUserLeftIt) {
    EXPECT_SUCCEEDED(box_->put_CheckText(_bstr_t(L"Gửi thư &báo cho kế toán trưởng")));
    Play([](HWND box) {
        EXPECT_EQ(L"Gửi thư &báo cho kế toán trưởng", TextOf(box, L"Check"));
        ClickWindow(Control(box, L"Check"));
        PressKey(VK_RETURN);
    });
    VARIANT_BOOL checked = VARIANT_FALSE;
    EXPECT_SUCCEEDED(box_->get_CheckValue(&checked));
    EXPECT_EQ(VARIANT_TRUE, checked);
}

TEST_F(MessageBoxClass, MessageThatNeedNotComeAgainAnswersByItself) {
    EXPECT_SUCCEEDED(box_->put_Buttons(vbYesNoCancel));
    EXPECT_SUCCEEDED(box_->put_DontShowKey(_bstr_t(kKey)));
    const auto tickAnd = [](WORD key) {
        return [key](HWND box) {
            EXPECT_EQ(L"Không hiện lại thông báo này", TextOf(box, L"Check"));
            ClickWindow(Control(box, L"Check"));
            PressKey(key);
        };
    };
    EXPECT_EQ(2, Play(tickAnd(VK_ESCAPE))); // decides nothing
    EXPECT_SUCCEEDED(box_->put_CheckValue(VARIANT_FALSE));
    EXPECT_EQ(7, Play(tickAnd('K')));
    long answer = 0;
    EXPECT_SUCCEEDED(box_->Show(Missing(), &answer));
    EXPECT_EQ(7, answer);
    EXPECT_SUCCEEDED(box_->ResetDontShow());
    EXPECT_SUCCEEDED(box_->put_CheckValue(VARIANT_FALSE));
    EXPECT_EQ(6, Play([](HWND) { PressKey('C'); }));
}

TEST_F(MessageBoxClass, NothingIsResetWithoutAKey) {
    EXPECT_HR(E_INVALIDARG, box_->ResetDontShow());
}

TEST_F(MessageBoxClass, SecondsAreCountedDownInTheTitleAndThenTheDefaultButtonIsPressed) {
    EXPECT_SUCCEEDED(box_->put_Buttons(vbYesNo));
    EXPECT_SUCCEEDED(box_->put_DefaultButton(vnAnswerNo));
    EXPECT_SUCCEEDED(box_->put_TimeoutSeconds(2));
    EXPECT_EQ(7, Play([](HWND box) {
                  EXPECT_TRUE(WaitUntil([=] { return TextOf(box) == L"Kế toán (1)"; }));
                  WaitForClose(box);
              }));
    EXPECT_HR(E_INVALIDARG, box_->put_TimeoutSeconds(-1));
}

TEST_F(MessageBoxClass, ControlCCopiesEverything) {
    EXPECT_SUCCEEDED(box_->put_Heading(_bstr_t(L"Không ghi được")));
    EXPECT_SUCCEEDED(box_->put_Details(_bstr_t(L"Ổ đĩa đầy")));
    EXPECT_SUCCEEDED(box_->put_Buttons(vbRetryCancel));
    Play([](HWND) {
        PressKey('C', kControl);
        const std::wstring rule = L"---------------------------\r\n";
        EXPECT_EQ(rule + L"Kế toán\r\n" + rule + L"Không ghi được\r\n" + rule +
                      L"Sổ cái tháng 3 chưa khoá.\r\n" + rule + L"Ổ đĩa đầy\r\n" + rule +
                      L"Thử lại   Bỏ qua   \r\n" + rule,
                  ClipboardText());
        PressKey(VK_ESCAPE);
    });
}

TEST_F(MessageBoxClass, LongTextsAreWrappedAndKeepTheButtonsOnTheScreen) {
    std::wstring text;
    for (int i = 0; i < 4000; ++i)
        text += L"Đây là một câu rất dài. ";
    EXPECT_SUCCEEDED(box_->put_Text(_bstr_t(text.c_str())));
    Play([](HWND box) {
        RECT button = {};
        GetWindowRect(Control(box, L"Cmd1"), &button);
        EXPECT_LT(button.bottom, GetSystemMetrics(SM_CYSCREEN));
        EXPECT_LT(0, button.top);
        PressKey(VK_RETURN);
    });
}

TEST_F(MessageBoxClass, StaysInFrontOfItsOwnerInTheMiddleOfItsMonitor) {
    const HWND host = CreateWindowW(L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200,
                                    200, nullptr, nullptr, nullptr, nullptr);
    Play(
        [&](HWND box) {
            EXPECT_EQ(host, GetWindow(box, GW_OWNER));
            RECT place = {};
            GetWindowRect(box, &place);
            MONITORINFO monitor = {};
            monitor.cbSize = sizeof monitor;
            GetMonitorInfoW(MonitorFromWindow(host, MONITOR_DEFAULTTOPRIMARY), &monitor);
            const RECT& area = monitor.rcWork;
            EXPECT_NEAR((area.left + area.right) / 2, (place.left + place.right) / 2, 2);
            EXPECT_NEAR((area.top + area.bottom) / 2, (place.top + place.bottom) / 2, 2);
            PressKey(VK_RETURN);
        },
        _variant_t(HandleToLong(host)));
    DestroyWindow(host);
    long answer = -1;
    EXPECT_HR(DISP_E_TYPEMISMATCH, box_->Show(_variant_t(L"cửa sổ"), &answer));
}

TEST_F(MessageBoxClass, PictureForTheGuide) {
    EXPECT_SUCCEEDED(box_->put_Heading(_bstr_t(L"Khoá sổ tháng 3?")));
    EXPECT_SUCCEEDED(
        box_->put_Text(_bstr_t(L"Sau khi khoá sổ không ai sửa được chứng từ của tháng này nữa.\n"
                               L"Còn 2 chứng từ chưa có số hoá đơn.")));
    EXPECT_SUCCEEDED(box_->put_Details(_bstr_t(L"PC-0317  Công ty Đại Phát  12.500.000 đ\n"
                                               L"PC-0322  Nguyễn Thị Hường  1.250.000 đ")));
    EXPECT_SUCCEEDED(box_->put_Icon(vbQuestion));
    EXPECT_SUCCEEDED(box_->put_Buttons(vbYesNoCancel));
    EXPECT_SUCCEEDED(box_->SetCaption(vnAnswerYes, _bstr_t(L"&Khoá sổ")));
    EXPECT_SUCCEEDED(box_->SetCaption(vnAnswerNo, _bstr_t(L"&Xem chứng từ")));
    EXPECT_SUCCEEDED(box_->put_DontShowKey(_bstr_t(kKey)));
    Play([](HWND box) {
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(box, L"message-box-unicode"));
        PressKey('I');
        EXPECT_TRUE(WaitUntil([=] { return IsShown(box, L"TxtDetails"); }));
        Sleep(300);
        EXPECT_NE(L"", SaveWindow(box, L"message-box-details"));
        PressKey(VK_ESCAPE);
    });
}

} // namespace
} // namespace vndesk::test
