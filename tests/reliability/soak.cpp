// SPDX-License-Identifier: MIT
#include "reliability/soak.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "reliability/soak_texts.h"
#include "support/screenshot.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr DWORD kStart = 60000;
constexpr DWORD kAnswer = 20000; // a busy machine; a hang has no end
constexpr DWORD kClose = 60000;
constexpr int kActionsBetweenReturns = 60;
constexpr int kWarmUp = 3; // returns to the main window

// What a tour may have more after long use than after a short one: the list of rows and the
// session's caches come and go. Wine's heap grows in lumps.
constexpr long kMoreHandles = 60, kMoreThreads = 6, kMoreWindows = 12;
constexpr size_t kMoreMemory = 64u << 20;

constexpr DWORD kNobodyLoggedOn = 1;

std::wstring Folder() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, std::wstring_view(path).rfind(L'\\'));
}

// The text of a platform's box: of its widest label.
std::wstring PlainText(HWND box) {
    std::wstring text;
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassName(child) != L"Button" && TextOf(child).size() > text.size())
            text = TextOf(child);
    return text;
}

} // namespace

Soak::Soak(const SampleDatabase& database, uint64_t seed, const std::wstring& log)
    : database_(database), seed_(seed), log_(log.c_str(), std::ios::binary) {}

void Soak::Run(ULONGLONG seconds) {
    const ULONGLONG end = GetTickCount64() + 1000 * seconds;
    Start();
    while (GetTickCount64() < end) {
        for (int i = 0; i < kActionsBetweenReturns && GetTickCount64() < end; ++i)
            Act();
        if (GetTickCount64() < end) {
            ReturnToMain();
            Measure();
        }
    }
    // From wherever it stands.
    Close();
}

void Soak::Start() {
    LetAdministratorIn();
    tour_ = std::make_unique<ChildProcess>(std::vector<std::wstring>{
        Folder() + L"\\..\\vntour.exe", L"--connect", database_.ConnectionString()});
    WatchProcess(tour_->Id());
    main_ = WaitForClass(L"VnTourWindow", kStart);
    toldBoxes_.clear();
    first_.reset();
    measured_ = 0;
    ++starts_;
    Note(L"start");
}

// The user may leave the program; a program that leaves its user has crashed.
void Soak::WatchForEnd() {
    const DWORD code = tour_->ExitCode(kClose);
    Note(L"ended with " + std::to_wstring(code));
    if (code > kNobodyLoggedOn)
        Broken(L"the tour has ended with exit code " + std::to_wstring(code));
    Start();
}

void Soak::Act() {
    // Each action has dice of its own, so that the same scene gets the same action again.
    Dice dice(seed_ * 1000003u + static_cast<uint64_t>(actions_));
    const Scene scene = LookAt(main_);
    if (scene.kind == Scene::Kind::kForm)
        forms_.insert(WindowName(scene.window));
    ++actions_;
    std::wstring action;
    try {
        action = ActAtRandom(scene, dice);
    } catch (const std::runtime_error&) {
        // The window has gone meanwhile: by itself, or with the program.
        action = L"(window gone)";
    }
    Note(Describe(scene) + L": " + action);
    Settle();
}

// Waits until the tour has answered and stands still, and looks at what it shows.
void Soak::Settle() {
    CheckAnswers();
    if (tour_->HasEnded()) {
        WatchForEnd();
        return;
    }
    Scene before = LookAt(main_);
    HWND focus = FocusWindow(main_);
    int still = 0;
    WaitUntil(
        [&] {
            const Scene now = LookAt(main_);
            const HWND focusNow = FocusWindow(main_);
            still = now == before && focusNow == focus && now.kind != Scene::Kind::kNone ? still + 1
                                                                                         : 0;
            before = now;
            focus = focusNow;
            return still >= 2 || tour_->HasEnded();
        },
        1500);
    CheckNewBoxes();
}

void Soak::CheckAnswers() {
    const ULONGLONG asked = GetTickCount64();
    DWORD_PTR result = 0;
    while (!SendMessageTimeoutW(main_, WM_NULL, 0, 0, SMTO_NORMAL, 1000, &result) &&
           !tour_->HasEnded() && IsWindow(main_))
        if (GetTickCount64() - asked > kAnswer)
            Broken(L"the tour does not answer");
    slowest_ = std::max(slowest_, static_cast<DWORD>(GetTickCount64() - asked));
}

void Soak::CheckNewBoxes() {
    const Scene scene = LookAt(main_);
    const bool message = scene.kind == Scene::Kind::kMessage;
    if (!message && scene.kind != Scene::Kind::kPlainBox)
        return;
    if (!toldBoxes_.insert(scene.window).second)
        return;
    std::wstring text;
    try {
        text = message ? TextOf(scene.window, L"Message") : PlainText(scene.window);
    } catch (const std::runtime_error&) {
        return; // gone already
    }
    ++boxes_;
    Note((message ? L"  message: " : L"  error: ") + text);
    if (!(message ? IsKnownMessage(text) : IsKnownError(text)))
        Broken(L"an unknown box: " + text);
}

void Soak::ReturnToMain() {
    for (int attempt = 0; attempt < 40; ++attempt) {
        const Scene scene = LookAt(main_);
        if (scene.kind == Scene::Kind::kMain)
            return;
        Note(Describe(scene) + L": " + StepBack(scene, attempt));
        toldBoxes_.erase(scene.window); // its handle may come again
        Settle();
    }
    Broken(L"there is no way back to the main window");
}

void Soak::Measure() {
    LetAdministratorIn();
    if (++measured_ < kWarmUp)
        return;
    const ProcessUse use = UseOf(tour_->Id());
    Note(L"uses " + TextOf(use));
    if (!first_)
        first_ = use;
    if (use.handles > first_->handles + kMoreHandles ||
        use.threads > first_->threads + kMoreThreads ||
        use.windows > first_->windows + kMoreWindows || use.memory > first_->memory + kMoreMemory)
        Broken(L"the tour uses " + TextOf(use) + L" after " + TextOf(*first_));
    most_ = {std::max(most_.handles, use.handles), std::max(most_.threads, use.threads),
             std::max(most_.windows, use.windows), std::max(most_.memory, use.memory)};
}

void Soak::Close() {
    const ULONGLONG asked = GetTickCount64();
    for (int attempt = 0; !tour_->HasEnded(); ++attempt) {
        if (GetTickCount64() - asked > kClose)
            Broken(L"the tour does not close");
        const Scene scene = LookAt(main_);
        if (scene.kind == Scene::Kind::kMain) {
            Note(L"close");
            PostMessageW(main_, WM_CLOSE, 0, 0);
            WaitUntil([&] { return tour_->HasEnded(); }, 3000);
        } else {
            Note(Describe(scene) + L": " + StepBack(scene, attempt));
            WaitUntil([&] { return tour_->HasEnded() || LookAt(main_) != scene; }, 500);
        }
    }
    const DWORD code = tour_->ExitCode(0);
    Note(L"ended with " + std::to_wstring(code));
    if (code > kNobodyLoggedOn)
        Broken(L"the tour has ended with exit code " + std::to_wstring(code));
    WatchProcess(0);
}

// Passwords and rights change at random, too: the main administrator gets back what lets him work.
void Soak::LetAdministratorIn() const {
    database_.Execute(L"delete from \"user\" where name='Admin' and code<>3");
    database_.Execute(L"update \"user\" set name='Admin', password=1401, idgroup=1 where code=3");
    database_.Execute(L"update groups set p1=15, p2=63, p3=31 where code=1");
}

void Soak::Note(const std::wstring& text) {
    log_ << actions_ << ' ' << ToUtf8(text) << std::endl;
}

void Soak::Broken(const std::wstring& what) {
    Note(L"BROKEN: " + what);
    SaveDesktop(L"soak-broken");
    Fail(L"seed " + std::to_wstring(seed_) + L", action " + std::to_wstring(actions_) + L": " +
         what);
}

std::string Soak::Figures() const {
    std::string text = std::to_string(actions_) + " actions, " + std::to_string(starts_) +
                       " starts, " + std::to_string(boxes_) + " boxes, slowest answer " +
                       std::to_string(slowest_) + " ms, forms:";
    for (const std::wstring& form : forms_)
        text += " " + ToUtf8(form);
    if (first_)
        text += "; first " + ToUtf8(TextOf(*first_)) + "; most " + ToUtf8(TextOf(most_));
    return text;
}

} // namespace vndesk::test
