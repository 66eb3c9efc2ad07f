// SPDX-License-Identifier: MIT
// The registered clsLogon as a C++ host uses it, and calls that are played while they wait.
#pragma once

#include <comutil.h>
#include <gtest/gtest.h>
#include <wrl/client.h>

#include <functional>
#include <string>

#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/keys.h"
#include "support/new_object.h"
#include "support/ui_windows.h"
#include "vndesk_idl.h"

namespace vndesk::test {

inline Microsoft::WRL::ComPtr<ILogon> CreateLogon() {
    return NewObject<ILogon>(L"VnDesk.clsLogon");
}

struct Message {
    std::wstring text = L"B¹n cã ch¾c kh«ng?";
    long buttons = vbOKOnly;
    std::wstring title = L"Hái";
    long icon = 0;
    bool rightToLeft = false;
};

// Shows a message box, lets the script play the user, and returns what the host got.
inline std::wstring PlayMessage(const Message& message, std::function<void()> script,
                                std::wstring* titleAfter = nullptr) {
    const auto logon = CreateLogon();
    _bstr_t text(message.text.c_str());
    _bstr_t title(message.title.c_str());
    _bstr_t pressed;
    DialogDriver user(std::move(script));
    EXPECT_SUCCEEDED(logon->MgBox(&text.GetBSTR(), static_cast<Buttons>(message.buttons),
                                  &title.GetBSTR(), static_cast<IconValue>(message.icon),
                                  message.rightToLeft ? VARIANT_TRUE : VARIANT_FALSE,
                                  pressed.GetAddress()));
    user.Finish();
    if (titleAfter)
        *titleAfter = std::wstring(title, title.length());
    return {static_cast<const wchar_t*>(pressed) ? static_cast<const wchar_t*>(pressed) : L"",
            pressed.length()};
}

// Shows the logon dialog of a host's object the same way and returns the code.
inline long PlayLogon(ILogon& logon, const std::wstring& connectionString,
                      std::function<void()> script) {
    _bstr_t connect(connectionString.c_str());
    long code = -1;
    DialogDriver user(std::move(script));
    EXPECT_SUCCEEDED(logon.ShowLogon(&connect.GetBSTR(), &code));
    user.Finish();
    return code;
}
inline long PlayLogon(const std::wstring& connectionString, std::function<void()> script) {
    return PlayLogon(*CreateLogon().Get(), connectionString, std::move(script));
}

// Closes the platform's message box, which shows errors, and returns its text.
inline std::wstring ClosePlainMessage(const std::wstring& title = L"VnDesk") {
    const HWND box = title.empty() ? WaitForClass(L"#32770") : WaitForTitle(title);
    EXPECT_EQ(L"#32770", ClassName(box));
    EXPECT_EQ(title, TextOf(box));
    WaitReady(box);
    std::wstring text;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassName(child) != L"Button" && !TextOf(child).empty())
            text = TextOf(child);
    PressKey(VK_RETURN);
    WaitForClose(box);
    return text;
}

} // namespace vndesk::test
