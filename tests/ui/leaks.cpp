// SPDX-License-Identifier: MIT
#include "leaks.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "forms/form_window.h"
#include "support/leak_probe.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

#ifdef _WIN64
// Far less than a leaked object a round.
constexpr long kToleratedBytes = 8;
#else
// The 32-bit suite runs on a newer Wine, whose heap counts small blocks in lumps of a kilobyte and
// whose ODBC keeps some hundred bytes of each statement: only a whole form that stays behind is
// seen there.
constexpr long kToleratedBytes = 3072;
#endif

struct RecordedWindow {
    bool isForm;
    std::wstring className;
    CREATESTRUCTW made;
};

std::vector<RecordedWindow> recorded;

LRESULT CALLBACK RecordCreation(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        const auto window = reinterpret_cast<HWND>(wParam);
        const CREATESTRUCTW& made = *reinterpret_cast<CBT_CREATEWNDW*>(lParam)->lpcs;
        const bool isForm = ClassName(window) == kFormClass;
        // What controls make for themselves comes with the controls.
        if (isForm || (made.hwndParent && ClassName(made.hwndParent) == kFormClass))
            recorded.push_back({isForm, ClassName(window), made});
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void Record(const std::function<void()>& round) {
    recorded.clear();
    const HHOOK hook = SetWindowsHookExW(WH_CBT, RecordCreation, nullptr, GetCurrentThreadId());
    round();
    UnhookWindowsHookEx(hook);
}

// The recorded windows by bare platform calls, with fonts set as often as a form does it.
void MakeBareTwin() {
    const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
    HWND form = nullptr;
    const auto close = [&] {
        if (!form)
            return;
        ShowWindow(form, SW_SHOW);
        UpdateWindow(form);
        DestroyWindow(form);
        form = nullptr;
    };
    for (const RecordedWindow& window : recorded) {
        const CREATESTRUCTW& made = window.made;
        if (window.isForm)
            close();
        const HWND twin = CreateWindowExW(
            made.dwExStyle, window.isForm ? L"#32770" : window.className.c_str(), L"twin",
            static_cast<DWORD>(made.style) & ~(window.isForm ? WS_VISIBLE : 0UL), 10, 10,
            window.isForm ? 500 : made.cx, window.isForm ? 400 : made.cy,
            window.isForm ? nullptr : form, nullptr, nullptr, nullptr);
        if (window.isForm)
            form = twin;
        for (int i = 0; !window.isForm && i < 2; ++i)
            SendMessageW(twin, WM_SETFONT, font, FALSE);
    }
    close();
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

// Under the manifest of the library, for the same classes of controls.
class LibraryTheme {
public:
    LibraryTheme() {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(GetModuleHandleW(L"vndesk.dll"), path, MAX_PATH);
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.lpSource = path;
        description.lpResourceName = MAKEINTRESOURCEW(2);
        context_ = CreateActCtxW(&description);
        EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
    }
    ~LibraryTheme() {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }
    LibraryTheme(const LibraryTheme&) = delete;
    LibraryTheme& operator=(const LibraryTheme&) = delete;

private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

long HeapGrowth(int rounds, const std::function<void()>& round) {
    const size_t before = HeapInUse().bytes;
    for (int i = 0; i < rounds; ++i)
        round();
    return static_cast<long>(HeapInUse().bytes - before);
}

} // namespace

void ExpectFlat(const char* what, int warmUp, int rounds, const std::function<void()>& round) {
    for (int i = 0; i < warmUp; ++i)
        round();
    const long gdi = GdiObjects();
    const long user = UserObjects();
    const long growth = HeapGrowth(rounds, round);
    EXPECT_EQ(GdiObjects(), gdi) << what;
    EXPECT_EQ(UserObjects(), user) << what;

    Record(round);
    ASSERT_FALSE(recorded.empty()) << what;
    const LibraryTheme theme;
    HeapGrowth(warmUp, MakeBareTwin);
    const long platform = HeapGrowth(rounds, MakeBareTwin);
    const long tolerance = rounds * kToleratedBytes + platform / 4;
    EXPECT_LE(growth, platform + tolerance) << what << ", the platform alone: " << platform;
    testing::Test::RecordProperty("growth", static_cast<int>(growth));
    testing::Test::RecordProperty("platform", static_cast<int>(platform));
}

} // namespace vndesk::test
