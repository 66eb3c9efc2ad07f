// SPDX-License-Identifier: MIT
#include "support/typing.h"

#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

class Inputs {
public:
    void Key(WORD key, bool down) {
        Add(key, static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)),
            down ? 0 : KEYEVENTF_KEYUP);
    }
    void Press(WORD key) {
        Key(key, true);
        Key(key, false);
    }
    void Add(const Stroke& stroke) {
        if (stroke.kind == Stroke::Packet) {
            Add(0, static_cast<WORD>(stroke.character), KEYEVENTF_UNICODE);
            Add(0, static_cast<WORD>(stroke.character), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
            return;
        }
        if (stroke.character < L' ' && stroke.kind == Stroke::Key) { // Ctrl and a letter
            Key(VK_CONTROL, true);
            Press(static_cast<WORD>(stroke.character + L'@'));
            Key(VK_CONTROL, false);
            return;
        }
        const SHORT key = VkKeyScanW(stroke.character);
        const bool shift = HIBYTE(key) & 1;
        if (shift)
            Key(VK_SHIFT, true);
        Press(LOBYTE(key));
        if (shift)
            Key(VK_SHIFT, false);
    }
    void Send() {
        const auto count = static_cast<UINT>(events_.size());
        if (count && SendInput(count, events_.data(), sizeof(INPUT)) != count)
            Fail(L"SendInput was refused");
        events_.clear();
    }

private:
    void Add(WORD key, WORD scan, DWORD flags) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = scan;
        input.ki.dwFlags = flags;
        events_.push_back(input);
    }

    std::vector<INPUT> events_;
};

} // namespace

void PlayStroke(const Stroke& stroke, SentBy way, HWND window) {
    if (way == SentBy::Posts) {
        PostMessageW(window, WM_CHAR, stroke.character, 1);
        return;
    }
    Inputs inputs;
    inputs.Add(stroke);
    inputs.Send();
}

void PlayTyping(const TypingStream& stream, SentBy way, HWND window) {
    Inputs inputs;
    for (const Stroke& stroke : StrokesOf(stream))
        if (way == SentBy::Input)
            inputs.Add(stroke);
        else
            PlayStroke(stroke, way, window);
    inputs.Send();
}

void PlaySlowly(const TypingStream& stream, HWND window) {
    std::wstring text;
    for (const Stroke& stroke : StrokesOf(stream)) {
        Inputs inputs;
        inputs.Add(stroke);
        inputs.Send();
        if (stroke.kind == Stroke::Backspace)
            text.pop_back();
        else
            text += stroke.character;
        if (!WaitUntil([&] { return TextOf(window) == text; }))
            Fail(DescribeWindow(window) + L" instead of " + text);
    }
}

void TypeKeys(std::wstring_view keys) {
    Inputs inputs;
    for (const wchar_t key : keys)
        inputs.Add(Stroke{key == L'\b' ? Stroke::Backspace : Stroke::Key, key});
    inputs.Send();
}

void SendKeyEvent(WORD key, bool down) {
    Inputs inputs;
    inputs.Key(key, down);
    inputs.Send();
}

} // namespace vndesk::test
