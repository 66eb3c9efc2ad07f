// SPDX-License-Identifier: MIT
// Varnok.EnterMovesOn in a host's own form: a dialog of Windows', and a window that only has its
// keys from IsDialogMessage, as many languages make theirs.
#include <gtest/gtest.h>

#include <commctrl.h>

#include "support/forms/lookup_host.h"
#include "support/late_bound.h"

namespace vndesk::test {
namespace {

ComPtr<IVarnok2> Tools() {
    return NewObject<IVarnok2>(L"VnDesk.Varnok");
}

// Boxes of other languages have window classes of their own, made from Windows' edit control.
void RegisterAs(const wchar_t* name, const wchar_t* original = L"EDIT") {
    WNDCLASSW type = {};
    if (GetClassInfoW(nullptr, name, &type))
        return;
    EXPECT_TRUE(GetClassInfoW(nullptr, original, &type));
    type.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = name;
    RegisterClassW(&type);
}

class HostForm {
public:
    enum Kind { kDialog, kPlainWindow };

    explicit HostForm(Kind kind) {
        static const ATOM plain = [] {
            WNDCLASSW type = {};
            type.lpfnWndProc = DefWindowProcW;
            type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
            type.lpszClassName = L"PlainHostForm";
            return RegisterClassW(&type);
        }();
        if (kind == kDialog) {
            struct {
                DLGTEMPLATE header = {WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 20, 20, 250, 300};
                WORD menu = 0, type = 0, title = 0;
            } none;
            window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &none.header, nullptr,
                                                 OnDialog, 0);
        } else {
            window_ = CreateWindowExW(WS_EX_CONTROLPARENT, MAKEINTATOM(plain), L"",
                                      WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 400, 500, nullptr,
                                      nullptr, nullptr, nullptr);
        }
        current_ = this;
    }
    ~HostForm() {
        for (const HWND box : boxes_)
            if (IsWindow(box))
                ClearWindowName(box);
        DestroyWindow(window_);
    }
    HostForm(const HostForm&) = delete;
    HostForm& operator=(const HostForm&) = delete;

    HWND Add(const wchar_t* name, const wchar_t* type, DWORD style = 0, HWND parent = nullptr) {
        const HWND box =
            CreateWindowExW(0, type, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 10, top_, 200,
                            style & (CBS_DROPDOWNLIST | ES_MULTILINE) ? 60 : 24,
                            parent ? parent : window_, nullptr, nullptr, nullptr);
        EXPECT_TRUE(box);
        SetWindowName(box, name);
        boxes_.push_back(box);
        top_ += 28;
        return box;
    }
    HWND Window() const { return window_; }
    long Handle() const { return HandleOf(window_); }
    // Of the button OK, with the number by which dialogs know it.
    int Presses() const { return presses_; }
    HWND AddOk() {
        const HWND button = Add(L"CmdOk", L"BUTTON");
        SetWindowLongPtrW(button, GWLP_ID, IDOK);
        return button;
    }

    // Serves the form while the script plays the user.
    void Run(std::function<void()> script) {
        SetForegroundWindow(window_);
        SetFocus(boxes_.front());
        ServeForm(window_, std::move(script));
    }
    void Focus(const wchar_t* name) const {
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(FindControl(window_, name)),
                     TRUE);
        if (FocusName(window_) != name) { // a plain window
            const DWORD thread = GetWindowThreadProcessId(window_, nullptr);
            AttachThreadInput(GetCurrentThreadId(), thread, TRUE);
            SetFocus(FindControl(window_, name));
            AttachThreadInput(GetCurrentThreadId(), thread, FALSE);
        }
        WaitReady(window_, name);
    }
    // Enter, and where it leads to.
    void EnterLeadsTo(const wchar_t* name, unsigned modifiers = kNoModifier) const {
        PressKey(VK_RETURN, modifiers);
        EXPECT_TRUE(WaitUntil([&] { return FocusName(window_) == name; }, 3000))
            << ToUtf8(FocusName(window_)) << " instead of " << ToUtf8(name);
    }

private:
    static INT_PTR CALLBACK OnDialog(HWND, UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK && HIWORD(wParam) == BN_CLICKED)
            ++current_->presses_;
        return message == WM_COMMAND;
    }

    static inline HostForm* current_ = nullptr;
    HWND window_ = nullptr;
    std::vector<HWND> boxes_;
    std::atomic<int> presses_{0};
    int top_ = 5;
};

class EnterMovesOn : public testing::TestWithParam<HostForm::Kind> {
protected:
    HostForm form_{GetParam()};
    const ComPtr<IVarnok2> tools_ = Tools();
};

INSTANTIATE_TEST_SUITE_P(Forms, EnterMovesOn,
                         testing::Values(HostForm::kDialog, HostForm::kPlainWindow),
                         [](const auto& info) {
                             return info.param == HostForm::kDialog ? "Dialog" : "PlainWindow";
                         });

TEST_P(EnterMovesOn, GoesThroughEditComboAndDateBoxesAndBack) {
    const INITCOMMONCONTROLSEX dates = {sizeof dates, ICC_DATE_CLASSES};
    InitCommonControlsEx(&dates);
    RegisterAs(L"ThunderRT6TextBox");
    RegisterAs(L"TMaskWithoutAName");
    form_.Add(L"TxtFirst", L"EDIT");
    form_.Add(L"CmbList", L"COMBOBOX", CBS_DROPDOWNLIST);
    form_.Add(L"CmbTyped", L"COMBOBOX", CBS_DROPDOWN);
    form_.Add(L"Date", DATETIMEPICK_CLASSW);
    form_.Add(L"TxtVb", L"ThunderRT6TextBox");
    form_.Add(L"TxtMask", L"TMaskWithoutAName");
    const HWND panel = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE,
                                       0, 250, 300, 60, form_.Window(), nullptr, nullptr, nullptr);
    SetWindowTextW(form_.Add(L"TxtInPanel", L"EDIT", 0, panel), L"abc");
    form_.AddOk();
    EXPECT_SUCCEEDED(tools_->EnterMovesOn(form_.Handle(), VARIANT_TRUE));
    EXPECT_SUCCEEDED(tools_->EnterMovesOn(form_.Handle(), VARIANT_TRUE)); // changes nothing
    const int tabs = LookupForm::Tabs();
    form_.Run([&] {
        for (const wchar_t* next :
             {L"CmbList", L"CmbTyped", L"Date", L"TxtVb", L"TxtMask", L"TxtInPanel"})
            form_.EnterLeadsTo(next);
        EXPECT_TRUE(IsWhollySelected(form_.Window(), L"TxtInPanel"));
        form_.EnterLeadsTo(L"TxtMask", kShift);
        form_.Focus(L"TxtInPanel");
        HoldKey(VK_RETURN);
        EXPECT_EQ(L"CmdOk", FocusName(form_.Window()));
        EXPECT_EQ(0, form_.Presses()) << "what was held presses nothing";
    });
    EXPECT_EQ(tabs, LookupForm::Tabs());
    // Off: it is the dialog's again.
    EXPECT_SUCCEEDED(tools_->EnterMovesOn(form_.Handle(), VARIANT_FALSE));
    form_.Run([&] {
        form_.Focus(L"TxtFirst");
        PressKey(VK_RETURN);
        form_.Focus(L"TxtFirst");
        EXPECT_EQ(GetParam() == HostForm::kDialog ? 1 : 0, form_.Presses());
    });
}

TEST_P(EnterMovesOn, LeavesEnterToWhatWantsIt) {
    RegisterAs(L"ThunderRT6TextBox");
    form_.Add(L"TxtFirst", L"EDIT");
    form_.Add(L"TxtLines", L"EDIT", ES_MULTILINE | ES_WANTRETURN);
    form_.Add(L"TxtVbLines", L"ThunderRT6TextBox", ES_MULTILINE);
    form_.Add(L"TxtLinesOfADialog", L"EDIT", ES_MULTILINE);
    const HWND list = form_.Add(L"CmbList", L"COMBOBOX", CBS_DROPDOWNLIST);
    for (const wchar_t* item : {L"một", L"hai"})
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    form_.Add(L"Lst", L"LISTBOX");
    const HWND grid =
        form_.Add(L"Grid", WC_LISTVIEWW, LVS_REPORT); // with a box in which a cell is edited
    form_.Add(L"TxtCell", L"EDIT", 0, grid);
    form_.AddOk();
    EXPECT_SUCCEEDED(tools_->EnterMovesOn(form_.Handle(), VARIANT_TRUE));
    form_.Run([&] {
        for (const wchar_t* box : {L"TxtLines", L"TxtVbLines"}) {
            if (GetParam() == HostForm::kDialog && box == std::wstring(L"TxtVbLines"))
                continue; // Windows' own part of this one knows that it stands in a dialog
            form_.Focus(box);
            PressKey(VK_RETURN);
            TypeText(L"x");
            EXPECT_TRUE(WaitUntil([&] { return TextOf(form_.Window(), box).ends_with(L"x"); }));
            EXPECT_EQ(box, FocusName(form_.Window()));
        }
        EXPECT_EQ(L"\r\nx", TextOf(form_.Window(), L"TxtLines"));
        form_.Focus(L"TxtLinesOfADialog");
        form_.EnterLeadsTo(L"CmbList");
        PressKey(VK_F4);
        EXPECT_TRUE(WaitUntil([=] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
        PressKey(VK_DOWN);
        form_.EnterLeadsTo(L"CmbList");
        EXPECT_TRUE(WaitUntil([=] { return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
        EXPECT_EQ(0, ListSelection(list));
        const int before = form_.Presses();
        for (const wchar_t* other : {L"Lst", L"Grid", L"TxtCell"}) {
            form_.Focus(other);
            form_.EnterLeadsTo(other);
        }
        form_.Focus(L"TxtFirst");
        form_.EnterLeadsTo(L"TxtFirst", kControl);
        form_.Focus(L"CmdOk");
        form_.EnterLeadsTo(L"CmdOk");
        if (GetParam() == HostForm::kDialog) {
            EXPECT_LT(before + 1, form_.Presses()) << "Enter is the dialog's there";
        }
    });
}

TEST_P(EnterMovesOn, TakesUpBoxesThatAreMadeLaterAndEndsWithThem) {
    form_.Add(L"TxtFirst", L"EDIT");
    EXPECT_SUCCEEDED(tools_->EnterMovesOn(form_.Handle(), VARIANT_TRUE));
    form_.Add(L"CmbLater", L"COMBOBOX", CBS_DROPDOWN);
    const HWND gone = form_.Add(L"TxtGone", L"EDIT");
    form_.Add(L"TxtLast", L"EDIT");
    form_.Run([&] {
        form_.EnterLeadsTo(L"CmbLater");
        form_.EnterLeadsTo(L"TxtGone");
        form_.EnterLeadsTo(L"TxtLast");
        form_.EnterLeadsTo(L"TxtFirst"); // round and round, as Tab
        ClearWindowName(gone);
        PostMessageW(gone, WM_CLOSE, 0, 0);
    });
    DestroyWindow(gone);
    form_.Run([&] {
        form_.Focus(L"CmbLater");
        form_.EnterLeadsTo(L"TxtLast");
    });
}

TEST(EnterMovesOnLife, LibraryStaysWhileAFormIsServedAndNotLonger) {
    using Question = HRESULT(STDAPICALLTYPE*)();
    auto tools = Tools();
    const auto canUnload = reinterpret_cast<Question>(
        GetProcAddress(GetModuleHandleW(L"vndesk.dll"), "DllCanUnloadNow"));
    ASSERT_TRUE(canUnload);
    for (const bool byHost : {true, false}) {
        HostForm form(HostForm::kDialog);
        form.Add(L"TxtFirst", L"EDIT");
        EXPECT_SUCCEEDED(tools->EnterMovesOn(form.Handle(), VARIANT_TRUE));
        if (byHost) {
            EXPECT_SUCCEEDED(tools->EnterMovesOn(form.Handle(), VARIANT_FALSE));
        } else {
            tools.Reset();
            EXPECT_EQ(S_FALSE, canUnload());
        }
    }
    EXPECT_EQ(S_OK, canUnload());
}

// Its own Enter opens the picker first.
TEST(EnterMovesOnAndSelItem, NameBoxPicksAndThenMovesOn) {
    const Catalogue catalogue(false);
    LookupHost host(catalogue.database);
    const auto tools = Tools();
    EXPECT_SUCCEEDED(tools->EnterMovesOn(HandleOf(host.form.Window()), VARIANT_TRUE));
    host.form.Run([&] {
        host.form.Enter(L"TxtSel", L"Đèn b");
        PressKey(VK_RETURN);
        const int tabs = host.form.Tabs();
        ChooseInPicker(L"Đèn bàn");
        host.form.WaitMovedOn(tabs, L"txtSelID");
        PressKey(VK_RETURN);
        WaitReady(host.form.Window(), L"TxtOther");
        host.form.Focus(L"TxtSel");
        PressKey(VK_RETURN);
        WaitReady(host.form.Window(), L"txtSelID");
    });
    EXPECT_EQ(0, host.form.DefaultPresses());
}

TEST(EnterMovesOnErrors, OtherThreadsWindowsAndNoWindowsAreRefused) {
    const auto tools = Tools();
    for (const VARIANT_BOOL on : {VARIANT_TRUE, VARIANT_FALSE}) {
        EXPECT_HR(E_INVALIDARG, tools->EnterMovesOn(0, on));
        EXPECT_HR(E_INVALIDARG, tools->EnterMovesOn(0x7FFFFFF0, on));
        EXPECT_HR(E_INVALIDARG, tools->EnterMovesOn(HandleOf(GetDesktopWindow()), on));
    }
    // The interface of 1.0 is answered, and the object can still be called late.
    ComPtr<IVarnok> published;
    EXPECT_SUCCEEDED(tools.As(&published));
    EXPECT_HR(
        E_INVALIDARG,
        LateBound::Create(L"VnDesk.Varnok").TryCall(L"EnterMovesOn", {0L, true}).exceptionCode);
}

} // namespace
} // namespace vndesk::test
