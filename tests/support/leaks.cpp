// SPDX-License-Identifier: MIT
#include "support/leaks.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "forms/look/images.h"
#include "forms/window/form_window.h"
#include "support/bound_columns.h"
#include "support/leak_probe.h"
#include "support/reliability.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

// A round: far less than a leaked object.
constexpr long kToleratedBytes = 8;

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

// What a round makes: the windows go to `recorded`; returned are the columns that its statements
// bind.
std::vector<int> Record(const std::function<void()>& round) {
    recorded.clear();
    const BoundColumns bound;
    const HHOOK hook = SetWindowsHookExW(WH_CBT, RecordCreation, nullptr, GetCurrentThreadId());
    round();
    UnhookWindowsHookEx(hook);
    return bound.OfStatements();
}

// The recorded windows by bare platform calls, with fonts set as often as a form does it.
void MakeBareWindows() {
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
        description.lpResourceName = MAKEINTRESOURCEW(kManifestControls);
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

// What is in use after each twentieth of the rounds.
constexpr int kSamples = 20;
using Series = std::array<double, kSamples + 1>;

// The median of the slopes between all pairs: a lump that the heap takes once does not bend it, as
// it would bend a line of least squares.
double SlopeOf(const Series& use, double roundsBetween) {
    std::vector<double> slopes;
    for (size_t i = 0; i < use.size(); ++i)
        for (size_t k = i + 1; k < use.size(); ++k)
            slopes.push_back((use[k] - use[i]) / (static_cast<double>(k - i) * roundsBetween));
    std::nth_element(slopes.begin(), slopes.begin() + slopes.size() / 2, slopes.end());
    return slopes[slopes.size() / 2];
}

// Bytes a round.
struct Slopes {
    double heap = 0, memory = 0;
};

Slopes Measure(int rounds, const std::function<void()>& round) {
    Series heap = {}, memory = {};
    int done = 0;
    for (int sample = 0; sample <= kSamples; ++sample) {
        for (; done < rounds * sample / kSamples; ++done)
            round();
        heap[static_cast<size_t>(sample)] = static_cast<double>(HeapInUse().bytes);
        memory[static_cast<size_t>(sample)] = static_cast<double>(PrivateBytes());
    }
    const double between = static_cast<double>(rounds) / kSamples;
    return {SlopeOf(heap, between), SlopeOf(memory, between)};
}

Slopes ExpectSameObjects(const char* what, int rounds, const std::function<void()>& round) {
    const long gdi = GdiObjects();
    const long user = UserObjects();
    const Slopes slopes = Measure(rounds, round);
    EXPECT_EQ(gdi, GdiObjects()) << what;
    EXPECT_EQ(user, UserObjects()) << what;
    return slopes;
}

void Tell(const char* what, int rounds, const Slopes& slopes, const Slopes& platform) {
    TellFigures(what, ", ", rounds, " rounds; bytes a round: heap ", slopes.heap, " (platform ",
                platform.heap, "), private memory ", slopes.memory, " (platform ", platform.memory,
                ")");
}

} // namespace

void ExpectFlat(const char* what, int warmUp, int rounds, const std::function<void()>& round) {
    for (int i = 0; i < warmUp; ++i)
        round();
    const Slopes slopes = ExpectSameObjects(what, rounds, round);

    const BareBindings bindings(Record(round));
    ASSERT_FALSE(recorded.empty()) << what;
    const LibraryTheme theme;
    const auto makeBareTwin = [&] {
        MakeBareWindows();
        bindings.Make();
    };
    for (int i = 0; i < warmUp; ++i)
        makeBareTwin();
    const Slopes platform = Measure(rounds, makeBareTwin);
    EXPECT_LE(slopes.heap, platform.heap + kToleratedBytes)
        << what << ", the platform alone: " << platform.heap;
    Tell(what, rounds, slopes, platform);
}

void ExpectNothingKept(const char* what, int warmUp, int rounds,
                       const std::function<void()>& round) {
    for (int i = 0; i < warmUp; ++i)
        round();
    const Slopes slopes = ExpectSameObjects(what, rounds, round);
    EXPECT_LE(slopes.heap, kToleratedBytes) << what;
    Tell(what, rounds, slopes, {});
}

} // namespace vndesk::test
