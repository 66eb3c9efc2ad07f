// SPDX-License-Identifier: MIT
// A host's form with a name box and a code box bound to a cSelItem of the registered DLL, and two
// more boxes to go on to.
#pragma once

#include "support/forms/catalogue.h"

#include <atomic>

#include "forms/window/window_name.h"
#include "support/new_object.h"

namespace vndesk::test {

using Microsoft::WRL::ComPtr;

// Counts the events of a cSelItem; `onChange` runs at each.
class ChangeSink final : public IDispatch {
public:
    std::atomic<int> changes{0};
    std::function<void()> onChange;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known =
            iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(DSelItemEvents);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // Lives in the test.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                        EXCEPINFO*, UINT*) override {
        EXPECT_EQ(1, event);
        EXPECT_EQ(0u, arguments->cArgs);
        ++changes;
        if (onChange)
            onChange();
        return S_OK;
    }
};

inline ComPtr<ISelItem> CreateSelItem() {
    auto item = NewObject<ISelItem>(L"VnDesk.cSelItem");
    GovernInDialect(item.Get());
    return item;
}

inline long HandleOf(HWND window) {
    return static_cast<long>(reinterpret_cast<LONG_PTR>(window));
}

inline std::wstring Read(const ComPtr<ISelItem>& item,
                         HRESULT (STDMETHODCALLTYPE ISelItem::*get)(BSTR*)) {
    _bstr_t text;
    EXPECT_SUCCEEDED((item.Get()->*get)(text.GetAddress()));
    return {text.length() ? static_cast<const wchar_t*>(text) : L"", text.length()};
}

// Serves a form of the host while the script plays the user.
inline void ServeForm(HWND window, std::function<void()> script) {
    std::atomic<bool> over{false};
    DialogDriver user([&] {
        const struct Ending {
            std::atomic<bool>& over;
            HWND window;
            ~Ending() {
                over = true;
                PostMessageW(window, WM_NULL, 0, 0);
            }
        } ending{over, window};
        WaitReady(window);
        script();
    });
    MSG message;
    while (!over && GetMessageW(&message, nullptr, 0, 0) > 0)
        if (!IsDialogMessageW(window, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    user.Finish();
}

// The form: TxtSel, txtSelID, TxtOther, TxtLast, in the order of Tab. Enter presses its default
// button.
class LookupForm {
public:
    LookupForm() {
        static const ATOM registered = [] {
            WNDCLASSW type = {};
            type.lpfnWndProc = Procedure;
            type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
            type.lpszClassName = L"LookupForm";
            return RegisterClassW(&type);
        }();
        window_ = CreateWindowExW(WS_EX_CONTROLPARENT, MAKEINTATOM(registered), L"Phiếu nhập",
                                  WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 420, 220, nullptr,
                                  nullptr, nullptr, this);
        int top = 10;
        for (const wchar_t* name : kBoxes) {
            const HWND box = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"",
                                             WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                                             10, top, 300, 26, window_, nullptr, nullptr, nullptr);
            SetWindowName(box, name);
            top += 36;
        }
        SetForegroundWindow(window_);
        SetFocus(Box(L"TxtSel"));
        hook_ = SetWindowsHookExW(WH_KEYBOARD_LL, SeeKey, GetModuleHandleW(nullptr), 0);
    }
    ~LookupForm() {
        UnhookWindowsHookEx(hook_);
        for (const wchar_t* name : kBoxes)
            if (const HWND box = FindControl(window_, name))
                ClearWindowName(box);
        DestroyWindow(window_);
    }
    LookupForm(const LookupForm&) = delete;
    LookupForm& operator=(const LookupForm&) = delete;

    HWND Window() const { return window_; }
    HWND Box(const wchar_t* name) const { return FindControl(window_, name); }
    int DefaultPresses() const { return defaultPresses_; }

    // Serves the form while the script plays the user.
    void Run(std::function<void()> script) { ServeForm(window_, std::move(script)); }

    // --- For the script ---

    // Runs a step on the form's thread.
    void Do(std::function<void()> step) const {
        SendMessageW(window_, kDo, 0, reinterpret_cast<LPARAM>(&step));
    }
    // Waits until what was posted to the form's thread has been served.
    void Settle() const {
        const int before = marks_;
        PostMessageW(window_, kMark, 0, 0);
        EXPECT_TRUE(WaitUntil([&] { return marks_ != before; }));
    }
    void Focus(const wchar_t* box) const {
        Do([&] { SetFocus(Box(box)); });
        WaitReady(window_, box);
    }
    // Tab strokes that were sent by anybody.
    static int Tabs() { return tabs_; }
    // Waits until the library's Tab stroke has moved on from the name box. When it was sent and yet
    // got lost, because the windows had still to settle, the user presses Tab.
    void WaitMovedOn(int tabsBefore, const wchar_t* to) const {
        EXPECT_TRUE(WaitUntil([&] { return Tabs() > tabsBefore; })) << "no Tab stroke was sent";
        const bool moved = WaitUntil([&] { return FocusName(window_) == to; }, 2000);
        if (!moved && FocusName(window_) == L"TxtSel")
            PressKey(VK_TAB);
        WaitReady(window_, to);
    }
    // The text of a box that has the focus from then on.
    void Enter(const wchar_t* box, const wchar_t* text) const {
        Focus(box);
        SetBox(window_, box, text);
    }
    std::wstring Text(const wchar_t* box) const { return TextOf(window_, box); }

private:
    static constexpr const wchar_t* kBoxes[] = {L"TxtSel", L"txtSelID", L"TxtOther", L"TxtLast"};
    static constexpr UINT kDo = WM_APP;
    static constexpr UINT kMark = WM_APP + 1;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE)
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(
                                  reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
        auto* form = reinterpret_cast<LookupForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        switch (message) {
        case kDo:
            (*reinterpret_cast<std::function<void()>*>(lParam))();
            return 0;
        case kMark:
            ++form->marks_;
            return 0;
        case WM_COMMAND:
            if (wParam == IDOK)
                ++form->defaultPresses_;
            return 0;
        case WM_CLOSE:
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
        }
    }

    static LRESULT CALLBACK SeeKey(int code, WPARAM message, LPARAM key) {
        if (code == HC_ACTION && message == WM_KEYDOWN &&
            reinterpret_cast<const KBDLLHOOKSTRUCT*>(key)->vkCode == VK_TAB)
            ++tabs_;
        return CallNextHookEx(nullptr, code, message, key);
    }

    static inline std::atomic<int> tabs_{0};
    HWND window_ = nullptr;
    HHOOK hook_ = nullptr;
    std::atomic<int> marks_{0};
    std::atomic<int> defaultPresses_{0};
};

// A cSelItem bound to a form, with its events counted.
class LookupHost {
public:
    explicit LookupHost(const SampleDatabase& database) : item(CreateSelItem()) {
        EXPECT_SUCCEEDED(item->SetTextSel(HandleOf(form.Box(L"TxtSel"))));
        EXPECT_SUCCEEDED(item->SetTextSelID(HandleOf(form.Box(L"txtSelID"))));
        EXPECT_SUCCEEDED(item->put_SqlName(_bstr_t(L"Select Ma,Ten From DanhMuc Where Ten")));
        EXPECT_SUCCEEDED(item->put_SqlID(_bstr_t(L"Select Ma,Ten From DanhMuc Where Ma")));
        EXPECT_SUCCEEDED(
            item->put_ActiveConnection(_variant_t(database.ConnectionString().c_str())));
        ComPtr<IConnectionPointContainer> container;
        EXPECT_SUCCEEDED(item.As(&container));
        EXPECT_SUCCEEDED(container->FindConnectionPoint(__uuidof(DSelItemEvents), &point_));
        EXPECT_SUCCEEDED(point_->Advise(&sink, &cookie_));
    }
    ~LookupHost() {
        if (point_)
            point_->Unadvise(cookie_);
    }

    // Lets the object go with everything that holds it.
    void Drop() {
        point_.Reset();
        item.Reset();
    }

    std::wstring SelName() { return Ask(&ISelItem::get_SelName); }
    std::wstring SelID() { return Ask(&ISelItem::get_SelID); }
    int Changes() const { return sink.changes; }

    LookupForm form;
    ChangeSink sink;
    ComPtr<ISelItem> item;

private:
    std::wstring Ask(HRESULT (STDMETHODCALLTYPE ISelItem::*get)(BSTR*)) {
        std::wstring text;
        form.Do([&] { text = Read(item, get); });
        return text;
    }

    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

inline HWND WaitForPicker() {
    const HWND picker = WaitForForm(L"FmSelHang", 30000);
    WaitReady(picker, L"TxtSelH");
    return picker;
}

// Chooses the item with a name in the picker that is open or opening.
inline void ChooseInPicker(const wchar_t* name) {
    const HWND picker = WaitForPicker();
    const HWND list = Control(picker, L"lv1IP");
    const Lines names = ListTexts(list);
    const auto found = std::find(names.begin(), names.end(), name);
    ASSERT_NE(names.end(), found);
    const int wanted = static_cast<int>(found - names.begin());
    while (ListSelection(list) < wanted) {
        const int before = ListSelection(list);
        PressKey(VK_DOWN);
        ASSERT_TRUE(WaitUntil([&] { return ListSelection(list) > before; }));
    }
    PressKey('C', kAlt);
    WaitForClose(picker);
}

inline void CancelPicker() {
    const HWND picker = WaitForPicker();
    PressKey(VK_ESCAPE);
    WaitForClose(picker);
}

} // namespace vndesk::test
