// SPDX-License-Identifier: MIT
#include "forms/password/watched_box.h"

#include <commctrl.h>

#include <utility>

#include "comkit/base/com_error.h"
#include "comkit/base/library.h"
#include "forms/look/common_controls.h"
#include "forms/password/text/captions.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// What another program sends has no time of its own.
TypingWatch::Time MessageTime() {
    return InSendMessage() ? GetTickCount() : static_cast<TypingWatch::Time>(GetMessageTime());
}

// Input methods that ask Windows which boxes they may work in.
void TurnOffInputMethod(HWND box) {
    Trap([&] {
        BOOL(WINAPI * associate)(HWND, HANDLE, DWORD) = nullptr;
        Library(L"imm32.dll").Find(associate, "ImmAssociateContextEx");
        associate(box, nullptr, 0);
    });
}

// What changes the text, or may.
bool MayChange(UINT message) {
    switch (message) {
    case WM_CHAR:
    case WM_KEYDOWN:
    case WM_SETTEXT:
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case EM_REPLACESEL:
        return true;
    default:
        return false;
    }
}

} // namespace

WatchedBox::WatchedBox(HWND box, const RECT& eye, const std::wstring& name, WarningStrip& strip,
                       std::function<bool(HWND)> isWatched)
    : box_(box), eye_(box, eye, name), strip_(strip), isWatched_(std::move(isWatched)),
      filled_(GetWindowTextLengthW(box) > 0) {
    TurnOffInputMethod(box);
    Controls6().SetWindowSubclass(box, Procedure, reinterpret_cast<UINT_PTR>(this),
                                  reinterpret_cast<DWORD_PTR>(this));
    CheckEye();
}

WatchedBox::~WatchedBox() {
    if (box_)
        Controls6().RemoveWindowSubclass(box_, Procedure, reinterpret_cast<UINT_PTR>(this));
}

LRESULT CALLBACK WatchedBox::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR id, DWORD_PTR self) {
    auto* box = reinterpret_cast<WatchedBox*>(self);
    if (message == WM_NCDESTROY) {
        Controls6().RemoveWindowSubclass(window, Procedure, id);
        box->box_ = nullptr;
        return Controls6().DefSubclassProc(window, message, wParam, lParam);
    }
    std::optional<LRESULT> answer;
    Trap([&] { answer = box->BeforeBox(message, wParam); });
    if (answer)
        return *answer;
    const LRESULT result = Controls6().DefSubclassProc(window, message, wParam, lParam);
    // What the text tells the form may have ended the form.
    if (IsWindow(window))
        Trap([&] { box->AfterBox(message, wParam, lParam); });
    return result;
}

// The answer to what the box must not get.
std::optional<LRESULT> WatchedBox::BeforeBox(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        // Shift, arrows and the like bring no character.
        if (wParam == VK_PACKET || MapVirtualKeyW(static_cast<UINT>(wParam), MAPVK_VK_TO_CHAR))
            watch_.KeyDown(wParam == VK_PACKET, MessageTime());
        break;
    case WM_CHAR:
    case WM_IME_CHAR:
        if (!Takes(static_cast<wchar_t>(wParam)))
            return 0;
        break;
    case WM_PASTE:
        // Some input methods send their letters by the clipboard.
        if (watch_.PasteFollowsBackspace(MessageTime())) {
            PutBack();
            Warn();
            return 0;
        }
        break;
    case WM_COPY:
    case WM_CUT:
        // While it is shown the box would let the password be copied.
        if (eye_.Shows())
            return 0;
        break;
    case EM_SHOWBALLOONTIP:
        // The box's own warning of Caps Lock, in the language of Windows.
        return FALSE;
    default:
        break;
    }
    return std::nullopt;
}

void WatchedBox::AfterBox(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETFOCUS:
        focused_ = true;
        Say();
        break;
    case WM_KILLFOCUS: {
        focused_ = false;
        eye_.Hide();
        // Whoever goes to another program goes there to turn the input method off.
        const auto next = reinterpret_cast<HWND>(wParam);
        if (next)
            warned_ = false;
        if (!isWatched_(next))
            Say();
        break;
    }
    case WM_KEYDOWN:
    case WM_KEYUP:
        if (wParam == VK_CAPITAL)
            Say();
        break;
    case WM_SETTEXT: {
        const auto* text = reinterpret_cast<const wchar_t*>(lParam);
        filled_ = text && *text;
        before_.reset();
        break;
    }
    case WM_ENABLE:
        CheckEye();
        break;
    default:
        break;
    }
    if (!MayChange(message))
        return;
    if (filled_ && GetWindowTextLengthW(box_) == 0) {
        filled_ = false;
        // Undoing would bring back what is not to be seen.
        SendMessageW(box_, EM_EMPTYUNDOBUFFER, 0, 0);
    }
    CheckEye();
}

bool WatchedBox::Takes(wchar_t character) {
    switch (watch_.Character(character, MessageTime())) {
    case Typed::FirstBackspace:
        Remember();
        return true;
    case Typed::TakenBack:
        PutBack();
        Warn();
        return false;
    case Typed::Refused:
        Warn();
        return false;
    default:
        break;
    }
    if (character >= L' ') {
        before_.reset();
        if (warned_ && IsNewBeginning()) {
            warned_ = false;
            Say();
        }
    }
    return true;
}

// Nothing of what stood there before will be left.
bool WatchedBox::IsNewBeginning() const {
    DWORD start = 0, end = 0;
    SendMessageW(box_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return start == 0 && static_cast<int>(end) >= GetWindowTextLengthW(box_);
}

void WatchedBox::Remember() {
    Content content = {Wiped<wchar_t>(static_cast<size_t>(GetWindowTextLengthW(box_)) + 1), 0, 0,
                       filled_};
    GetWindowTextW(box_, content.text.Data(), static_cast<int>(content.text.Size()));
    SendMessageW(box_, EM_GETSEL, reinterpret_cast<WPARAM>(&content.start),
                 reinterpret_cast<LPARAM>(&content.end));
    before_.reset();
    before_.emplace(std::move(content));
}

void WatchedBox::PutBack() {
    if (!before_)
        return;
    SendMessageW(box_, EM_SETSEL, 0, -1);
    SendMessageW(box_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(before_->text.Data()));
    SendMessageW(box_, EM_SETSEL, before_->start, static_cast<LPARAM>(before_->end));
    filled_ = before_->filled;
    CheckEye();
}

void WatchedBox::Warn() {
    warned_ = true;
    Say();
}

void WatchedBox::Say() {
    std::wstring text;
    if (warned_)
        text = ToUncText(texts::kInputMethodIsOn, kToUnicode);
    if (focused_ && (GetKeyState(VK_CAPITAL) & 1))
        text += (text.empty() ? L"" : L"\n") + ToUncText(texts::kCapsLockIsOn, kToUnicode);
    strip_.Say(text);
}

void WatchedBox::CheckEye() {
    const bool enabled = !filled_ && IsWindowEnabled(box_);
    if (enabled != (IsWindowEnabled(eye_.Window()) != FALSE))
        eye_.SetEnabled(enabled);
}

} // namespace vndesk
