// SPDX-License-Identifier: MIT
// Vietnamese input methods in the forms as every host has them: what they send arrives as it was
// sent, however fast, and keys that only carry it are nothing to any form.
#include "support/forms/each_form.h"
#include "support/forms/lookup_host.h"

#include "support/text.h"
#include "support/typing.h"

namespace vndesk::test {
namespace {

BOOL CALLBACK AddChild(HWND window, LPARAM all) {
    reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
    return TRUE;
}

std::vector<HWND> ChildrenOf(HWND form) {
    std::vector<HWND> all;
    EnumChildWindows(form, AddChild, reinterpret_cast<LPARAM>(&all));
    return all;
}

// Without those of passwords that are watched.
std::vector<HWND> TextBoxes(HWND form) {
    std::vector<HWND> boxes = ChildrenOf(form);
    std::erase_if(boxes, [](HWND window) {
        return ClassName(window) != L"Edit" || !IsWindowVisible(window) ||
               !IsWindowEnabled(window) || (GetWindowLongW(window, GWL_STYLE) & ES_READONLY) ||
               FindControl(GetParent(window), WindowName(window) + L"Eye");
    });
    return boxes;
}

void Enter(HWND form, HWND box) {
    SendMessageW(form, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box), TRUE);
    ASSERT_TRUE(WaitUntil([=] { return FocusWindow(form) == box; }));
    SendMessageW(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
}

// Lets a script wait until the form has served what was posted to it and what was typed.
class Served {
public:
    explicit Served(HWND form)
        : form_(form), hook_(SetWindowsHookExW(WH_GETMESSAGE, See, nullptr,
                                               GetWindowThreadProcessId(form, nullptr))) {}
    ~Served() { UnhookWindowsHookEx(hook_); }
    Served(const Served&) = delete;
    Served& operator=(const Served&) = delete;

    // Posts are served before keys are, and keys post their characters.
    void Wait() const {
        const int keys = keys_;
        SendKeyEvent(VK_SHIFT, true);
        SendKeyEvent(VK_SHIFT, false);
        EXPECT_TRUE(WaitUntil([=] { return keys_ != keys; }));
        for (int i = 0; i < 2; ++i) {
            const int before = seen_;
            PostMessageW(form_, Mark(), 0, 0);
            EXPECT_TRUE(WaitUntil([=] { return seen_ != before; }));
        }
    }

    // That the form has sent itself: a round of them leads back to where it began.
    static int TakeTabs() { return tabs_.exchange(0); }

private:
    static UINT Mark() {
        static const UINT message = RegisterWindowMessageW(L"VnDeskTest.Served");
        return message;
    }
    static LRESULT CALLBACK See(int code, WPARAM remove, LPARAM message) {
        const auto& got = *reinterpret_cast<const MSG*>(message);
        if (code == HC_ACTION && remove == PM_REMOVE) {
            seen_ += got.message == Mark();
            keys_ += got.message == WM_KEYUP && got.wParam == VK_SHIFT;
            tabs_ += got.message == WM_KEYDOWN && got.wParam == VK_TAB;
        }
        return CallNextHookEx(nullptr, code, remove, message);
    }

    static inline std::atomic<int> seen_{0};
    static inline std::atomic<int> keys_{0};
    static inline std::atomic<int> tabs_{0};
    HWND form_;
    HHOOK hook_;
};

// What a key that acted would have changed.
std::vector<std::wstring> StateOf(HWND form) {
    std::vector<std::wstring> state = {DescribeWindow(FocusWindow(form)),
                                       std::to_wstring(TopWindows().size())};
    for (const HWND window : ChildrenOf(form))
        state.push_back(TextOf(window));
    return state;
}

class Typing : public testing::TestWithParam<EachForm> {
protected:
    void SetUp() override { Upgrade(database_, L"accounts"); }

    // The last form, once it can be used. It is closed afterwards, and those before it.
    void InForm(const std::function<void(HWND form)>& use) {
        const HostMainWindow host;
        const std::vector<const wchar_t*>& path = GetParam().path;
        _bstr_t connect(database_.ConnectionString().c_str());
        DialogDriver user([&] {
            std::vector<HWND> forms = {WaitForForm(path[0])};
            for (size_t next = 1; next < path.size(); next += 2) {
                const HWND button = Control(forms.back(), path[next]);
                ASSERT_TRUE(WaitUntil([=] { return IsWindowEnabled(button) != FALSE; }));
                PostMessageW(forms.back(), WM_COMMAND, GetDlgCtrlID(button), 0);
                forms.push_back(WaitForForm(path[next + 1]));
            }
            WaitReady(forms.back());
            use(forms.back());
            for (; !forms.empty(); forms.pop_back()) {
                PostMessageW(forms.back(), WM_CLOSE, 0, 0);
                WaitForClose(forms.back());
            }
        });
        EXPECT_SUCCEEDED(GetParam().open(&connect.GetBSTR()));
        user.Finish();
    }

    const SampleDatabase database_ = SampleDatabase::Embedded();
};

// The platform's own box has no text to type into.
std::vector<EachForm> OwnForms() {
    std::vector<EachForm> forms = EveryForm();
    std::erase_if(forms, [](const EachForm& form) { return *form.path[0] == L'\0'; });
    return forms;
}
INSTANTIATE_TEST_SUITE_P(Forms, Typing, testing::ValuesIn(OwnForms()),
                         [](const auto& info) { return std::string(info.param.name); });

void ExpectStreams(HWND form, HWND box) {
    for (const TypingStream& stream : kTypingStreams)
        for (const SentBy way : {SentBy::Input, SentBy::Posts}) {
            Enter(form, box);
            PlayTyping(stream, way, box);
            EXPECT_TRUE(WaitUntil([=] { return TextOf(box) == kTypedName; }))
                << stream.name << " in " << ToUtf8(DescribeWindow(box));
            EXPECT_EQ(box, FocusWindow(form));
        }
}

// Keys that an input method has taken for itself, and others that carry its characters.
void PlayBareKeys(HWND window) {
    for (const WORD behind :
         {VK_RETURN, VK_TAB, VK_ESCAPE, VK_SPACE, VK_DELETE, VK_F2, VK_F4, VK_F10, VK_DOWN}) {
        // The key that was pressed stands in the scan code.
        const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(behind, MAPVK_VK_TO_VSC)) << 16;
        PostMessageW(window, WM_KEYDOWN, VK_PROCESSKEY, scan | 1);
        PostMessageW(window, WM_KEYUP, VK_PROCESSKEY, scan | static_cast<LPARAM>(0xC0000001u));
    }
    for (const wchar_t character : {L'\r', L'\t', L'\x1B'})
        PlayStroke({Stroke::Packet, character}, SentBy::Input, window);
}

TEST_P(Typing, InputMethodsWriteWhatTheySendAndPressNothing) {
    InForm([](HWND form) {
        {
            const Served served(form);
            const auto before = StateOf(form);
            PlayBareKeys(FocusWindow(form));
            served.Wait();
            EXPECT_EQ(before, StateOf(form));
            EXPECT_EQ(0, Served::TakeTabs());
        }
        const std::vector<HWND> boxes = TextBoxes(form);
        for (const HWND box : boxes)
            ExpectStreams(form, box);
        if (WindowName(form) == L"FrmLogon") {
            Enter(form, boxes.front());
            PlaySlowly(kTypingStreams[0], boxes.front());
        }
    });
}

// --- The boxes of a host that has bound them ---

TEST(TypingInBoundBoxes, InputMethodsWriteWhatTheySendAndOpenNothing) {
    const SampleDatabase database = SampleDatabase::Embedded();
    LookupHost host(database);
    host.form.Run([&] {
        const HWND form = host.form.Window();
        const Served served(form);
        for (const wchar_t* name : {L"TxtSel", L"txtSelID"}) {
            host.form.Enter(name, L"");
            for (const TypingStream& stream : kTypingStreams)
                for (const SentBy way : {SentBy::Input, SentBy::Posts}) {
                    SetBox(form, name, L"");
                    PlayTyping(stream, way, host.form.Box(name));
                    EXPECT_TRUE(WaitUntil([&] { return host.form.Text(name) == kTypedName; }))
                        << stream.name << " in " << ToUtf8(name);
                }
            // The name is to be looked up: Enter would open the picker.
            const auto before = StateOf(form);
            PlayBareKeys(host.form.Box(name));
            served.Wait();
            EXPECT_EQ(before, StateOf(form));
            EXPECT_EQ(0, Served::TakeTabs());
            SetBox(form, name, L"");
        }
    });
}

} // namespace
} // namespace vndesk::test
