// SPDX-License-Identifier: MIT
// Opening, painting and closing forms beside the same controls made by bare calls. What a form
// reads from its database is in its time, not in that of the bare windows: only the message box has
// nothing to read.
#include "forms/form_window.h"
#include "forms/theme_scope.h"
#include "kit/benchmark.h"
#include "msgbox/message_box.h"
#include "support/sample_database.h"
#include "vndesk_idl.h"

#include <windows.h>
#include <comutil.h>
#include <wrl/client.h>

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;
using Microsoft::WRL::ComPtr;

struct WindowImage {
    std::wstring className, text;
    DWORD style, extendedStyle;
    RECT place; // in the parent
    UINT_PTR id;
};

// What a form looked like when it was open for the first time.
struct FormImage {
    WindowImage form;
    std::vector<WindowImage> controls;
    LOGFONTW font;
};

WindowImage ImageOf(HWND window, HWND parent) {
    wchar_t name[128] = L"", text[512] = L"";
    GetClassNameW(window, name, 128);
    GetWindowTextW(window, text, 512);
    WindowImage image{name,
                      text,
                      static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                      static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)),
                      {},
                      static_cast<UINT_PTR>(GetWindowLongPtrW(window, GWLP_ID))};
    GetWindowRect(window, &image.place);
    if (parent)
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&image.place), 2);
    return image;
}

void Paint(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

// Closes each form as soon as it is open and painted.
class Closer {
public:
    explicit Closer(FormImage* image) {
        image_ = image;
        hook_ = SetWindowsHookExW(WH_CBT, &OnCbt, nullptr, GetCurrentThreadId());
        messages_ = SetWindowsHookExW(WH_GETMESSAGE, &OnMessage, nullptr, GetCurrentThreadId());
    }
    ~Closer() {
        UnhookWindowsHookEx(hook_);
        UnhookWindowsHookEx(messages_);
    }
    Closer(const Closer&) = delete;
    Closer& operator=(const Closer&) = delete;

private:
    static constexpr UINT kOpen = WM_APP + 77;

    static LRESULT CALLBACK OnCbt(int code, WPARAM wParam, LPARAM lParam) {
        wchar_t name[64] = L"";
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && GetClassNameW(window, name, 64) &&
            std::wstring(name) == vndesk::kFormClass)
            PostMessageW(window, kOpen, 0, 0);
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) {
        const auto* message = reinterpret_cast<const MSG*>(lParam);
        if (code == HC_ACTION && wParam == PM_REMOVE && message->message == kOpen) {
            Paint(message->hwnd);
            if (image_ && image_->controls.empty())
                Take(message->hwnd);
            PostMessageW(message->hwnd, WM_CLOSE, 0, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static void Take(HWND form) {
        image_->form = ImageOf(form, nullptr);
        for (HWND child = GetWindow(form, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            image_->controls.push_back(ImageOf(child, form));
        const auto font =
            reinterpret_cast<HFONT>(SendMessageW(GetWindow(form, GW_CHILD), WM_GETFONT, 0, 0));
        GetObjectW(font, sizeof image_->font, &image_->font);
    }

    static inline FormImage* image_ = nullptr;
    HHOOK hook_, messages_;
};

void OpenBare(const FormImage& image) {
    const vndesk::ThemeScope theme;
    const HFONT font = CreateFontIndirectW(&image.font);
    const RECT& place = image.form.place;
    const HWND form = CreateWindowExW(
        image.form.extendedStyle, L"BenchForm", image.form.text.c_str(),
        image.form.style & ~WS_VISIBLE, place.left, place.top, place.right - place.left,
        place.bottom - place.top, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    for (const WindowImage& control : image.controls) {
        const RECT& at = control.place;
        const HWND window = CreateWindowExW(
            control.extendedStyle, control.className.c_str(), control.text.c_str(), control.style,
            at.left, at.top, at.right - at.left, at.bottom - at.top, form,
            reinterpret_cast<HMENU>(control.id), GetModuleHandleW(nullptr), nullptr);
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
    ShowWindow(form, SW_SHOW);
    Paint(form);
    DestroyWindow(form);
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageW(&message);
    DeleteObject(font);
}

void Measure(Report& report, const char* name, double target, const std::function<void()>& open) {
    FormImage image{};
    const Closer closer(&image);
    open();
    if (image.controls.empty())
        throw std::runtime_error(std::string(name) + " did not open");
    report.Compare({std::string(name) + " opened, painted and closed",
                    "its windows made by bare calls", target > 0 ? Target::AtMost : Target::Nothing,
                    target, Each(open), Each([&] { OpenBare(image); }), 15});
}

} // namespace

int main(int argc, char** argv) {
    OleInitialize(nullptr);
    int code = 1;
    try {
        WNDCLASSW description{};
        description.lpfnWndProc = DefDlgProcW;
        description.cbWndExtra = DLGWINDOWEXTRA;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = L"BenchForm";
        RegisterClassW(&description);

        Report report("forms", argc, argv);
        const auto source = vndesk::test::SampleDatabase::Embedded();
        ComPtr<ILogon> logon;
        if (FAILED(CoCreateInstance(__uuidof(clsLogon), nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(&logon))))
            throw std::runtime_error(
                "VnDesk.clsLogon cannot be created: is vndesk.dll registered?");
        _bstr_t connect(source.ConnectionString().c_str());
        Measure(report, "message box", 1.3, [] {
            std::wstring title;
            vndesk::ShowMsg(L"B¹n ch\u00ADa chän bé phËn.", vndesk::kYesNo, title,
                            vndesk::kQuestion, false);
        });
        Measure(report, "logon dialog", 0, [&] {
            long user = 0;
            logon->ShowLogon(&connect.GetBSTR(), &user);
        });
        Measure(report, "user list", 0, [&] { logon->UserManager(&connect.GetBSTR()); });
        Measure(report, "group manager", 0, [&] { logon->ShowGroup(&connect.GetBSTR()); });
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "forms_bench: %s\n", error.what());
    }
    OleUninitialize();
    return code;
}
