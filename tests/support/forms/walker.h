// SPDX-License-Identifier: MIT
// Works the forms of this process by messages, and closes and notes every box that comes up on the
// way: with bad content in the tables it cannot be said beforehand which one does.
#pragma once

#include "support/forms/host_process.h"

#include <utility>

namespace vndesk::test {

class Walker {
public:
    // What the boxes have said, in their order.
    const Lines& Told() const { return told_; }
    Lines TakeTold() { return std::exchange(told_, {}); }

    // Presses a button that may open a form: nullptr when boxes came only.
    HWND Open(HWND form, const wchar_t* button, const wchar_t* opens) {
        Push(form, button);
        HWND opened = nullptr;
        Await([&] { return (opened = Find(opens)) != nullptr || IsFree(form); });
        return opened ? opened : Find(opens);
    }
    HWND Form(const wchar_t* name) {
        HWND found = nullptr;
        Await([&] { return (found = Find(name)) != nullptr; });
        return found;
    }
    // Presses a button whose form stays.
    void Do(HWND form, const wchar_t* button) {
        Push(form, button);
        Await([&] { return IsFree(form); });
    }
    // Presses a button that closes its form, or tells why not; whether it has closed.
    bool Closes(HWND form, const wchar_t* button) {
        const size_t told = told_.size();
        Push(form, button);
        ULONGLONG freeSince = 0;
        Await([&] {
            if (!IsWindow(form) || !IsWindowVisible(form))
                return true;
            if (told_.size() == told || !IsFree(form)) {
                freeSince = 0;
                return false;
            }
            if (!freeSince)
                freeSince = GetTickCount64();
            return GetTickCount64() - freeSince > kGoing;
        });
        return !IsWindow(form) || !IsWindowVisible(form);
    }
    void Leave(HWND form, const wchar_t* button) {
        if (!Closes(form, button))
            Fail(L"the form stays open: " + DescribeWindow(form) + L"; told: " + told_.back());
    }
    // Goes down one row of a list box.
    void Down(HWND form, const wchar_t* list, int row) {
        PostKey(form, list, VK_DOWN);
        Await([&] {
            return IsFree(form) && SendMessageW(Control(form, list), LB_GETCARETINDEX, 0, 0) == row;
        });
    }

    // Until the condition holds; answers boxes meanwhile.
    void Await(const std::function<bool()>& condition) {
        if (!WaitUntil(
                [&] {
                    AnswerBoxes();
                    return condition();
                },
                kLimit))
            Fail(L"nothing comes; told: " + (told_.empty() ? L"nothing" : told_.back()));
    }

    // A form that takes input now.
    static HWND Find(std::wstring_view name) {
        for (const HWND window : TopWindows())
            if (WindowName(window) == name && IsWindowEnabled(window))
                return window;
        return nullptr;
    }

private:
    static constexpr DWORD kLimit = 120000;  // large tables on a busy machine
    static constexpr ULONGLONG kGoing = 300; // a form that has told something may yet close
    static constexpr size_t kMaxBoxes = 500;

    // Sent, not posted: what is sent afterwards is answered when the button has done its work or
    // has opened a form.
    static void Push(HWND form, const wchar_t* button) {
        const HWND window = Control(form, button, kProcessLimit);
        SendNotifyMessageW(form, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), BN_CLICKED),
                           reinterpret_cast<LPARAM>(window));
    }

    // The form has handled what was sent before, and nothing stands above it.
    static bool IsFree(HWND form) {
        DWORD_PTR result = 0;
        return IsWindow(form) &&
               SendMessageTimeoutW(form, WM_NULL, 0, 0, SMTO_NORMAL, 2000, &result) &&
               IsWindowEnabled(form);
    }

    void AnswerBoxes() {
        for (const HWND window : TopWindows()) {
            const std::wstring name = WindowName(window);
            if (!IsWindowEnabled(window) || (!name.empty() && name != L"MessageBox") ||
                (name.empty() && ClassName(window) != L"#32770"))
                continue;
            if (window == answered_ && GetTickCount64() < answeredAt_ + 1000)
                return; // it is going
            if (told_.size() >= kMaxBoxes)
                Fail(L"no end of boxes: " + told_.back());
            if (window != answered_)
                told_.push_back(name.empty() ? PlainText(window) : TextOf(window, L"Message"));
            answered_ = window;
            answeredAt_ = GetTickCount64();
            if (name.empty())
                PostMessageW(window, WM_COMMAND, IDOK, 0);
            else
                Press(window, L"Cmd1");
            WaitUntil([=] { return !IsWindow(window); }, 1000);
            if (!IsWindow(window))
                answered_ = nullptr;
            return;
        }
    }

    static std::wstring PlainText(HWND box) {
        std::wstring text;
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (ClassName(child) != L"Button" && TextOf(child).size() > text.size())
                text = TextOf(child);
        return text;
    }

    Lines told_;
    HWND answered_ = nullptr;
    ULONGLONG answeredAt_ = 0;
};

// The item of the group manager that begins with a name: engines list rows in the order that they
// like.
inline int ItemOf(HWND groups, const std::wstring& name) {
    const Lines items = ListTexts(Control(groups, L"Lv1"));
    const auto found = std::find_if(items.begin(), items.end(), [&](const std::wstring& item) {
        return item.starts_with(name + L"-");
    });
    if (found == items.end())
        Fail(L"no group " + name.substr(0, 100));
    return static_cast<int>(found - items.begin());
}

// Chooses one group, as a click does.
inline void ChooseGroup(HWND groups, const std::wstring& name) {
    const HWND list = Control(groups, L"Lv1");
    const int item = ItemOf(groups, name);
    SendMessageW(list, LB_SETSEL, FALSE, -1);
    SendMessageW(list, LB_SETSEL, TRUE, item);
    SendMessageW(list, LB_SETCARETINDEX, static_cast<WPARAM>(item), FALSE);
    SendMessageW(groups, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

inline void TickCommand(HWND rights, int command) {
    ListView_SetCheckState(Control(rights, L"LstSubMenu"), command, TRUE);
}

} // namespace vndesk::test
