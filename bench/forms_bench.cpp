// SPDX-License-Identifier: MIT
// Opening, painting and closing forms beside the same controls, with the same contents, made by
// bare calls after the same reads through ADO. The reads are measured by themselves too.
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "forms/window/form_window.h"
#include "kit/benchmark.h"
#include "security/text/group_statements.h"
#include "security/text/user_statements.h"
#include "support/sample_database.h"
#include "support/security_settings.h"
#include "vndesk_idl.h"

#include <windows.h>
#include <commctrl.h>
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
    RECT rect; // in the parent
    UINT_PTR id;
    std::vector<std::wstring> items;   // of a list box
    std::vector<std::wstring> columns; // of a list view
    std::vector<int> widths;
    DWORD listStyle = 0;
    long rows = 0;
};

constexpr wchar_t kListBox[] = L"ListBox";
constexpr wchar_t kListView[] = L"SysListView32";

// What a form looked like when it was open for the first time.
struct FormImage {
    WindowImage form;
    std::vector<WindowImage> controls;
    LOGFONTW font;
    bool toolTips = false;
};

void TakeItems(HWND list, WindowImage& image) {
    const auto count = static_cast<WPARAM>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        std::wstring text(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, i, 0)), L'\0');
        SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        image.items.push_back(text);
    }
}

void TakeColumns(HWND list, WindowImage& image) {
    wchar_t text[128] = L"";
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = text;
    column.cchTextMax = 128;
    for (WPARAM i = 0; SendMessageW(list, LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
         ++i) {
        image.columns.push_back(text);
        image.widths.push_back(column.cx);
    }
    image.listStyle = ListView_GetExtendedListViewStyle(list);
    image.rows = static_cast<long>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

void PutContents(HWND list, const WindowImage& image) {
    for (const std::wstring& item : image.items)
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    if (image.listStyle)
        ListView_SetExtendedListViewStyle(list, image.listStyle);
    for (std::size_t i = 0; i < image.columns.size(); ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = const_cast<wchar_t*>(image.columns[i].c_str());
        column.iSubItem = static_cast<int>(i);
        column.cx = image.widths[i];
        SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    if (image.rows)
        SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(image.rows), 0);
}

WindowImage ImageOf(HWND window, HWND parent) {
    wchar_t name[128] = L"", text[512] = L"";
    GetClassNameW(window, name, 128);
    GetWindowTextW(window, text, 512);
    WindowImage image{name,
                      text,
                      static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
                      static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)),
                      {},
                      static_cast<UINT_PTR>(GetWindowLongPtrW(window, GWLP_ID)),
                      {},
                      {},
                      {}};
    GetWindowRect(window, &image.rect);
    if (parent)
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&image.rect), 2);
    if (image.className == kListBox)
        TakeItems(window, image);
    else if (image.className == kListView)
        TakeColumns(window, image);
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
        for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr));)
            image_->toolTips = image_->toolTips || GetWindow(tip, GW_OWNER) == form;
    }

    static inline FormImage* image_ = nullptr;
    HHOOK hook_, messages_;
};

// Rows of virtual lists have a text at hand.
LRESULT CALLBACK BareProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static wchar_t text[] = L"Nguyễn Văn An";
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_GETDISPINFOW) {
        reinterpret_cast<NMLVDISPINFOW*>(lParam)->item.pszText = text;
        return 0;
    }
    return DefDlgProcW(window, message, wParam, lParam);
}

void OpenBare(const FormImage& image) {
    const HFONT font = CreateFontIndirectW(&image.font);
    const RECT& rect = image.form.rect;
    const HWND form = CreateWindowExW(
        image.form.extendedStyle, L"BenchForm", image.form.text.c_str(),
        image.form.style & ~WS_VISIBLE, rect.left, rect.top, rect.right - rect.left,
        rect.bottom - rect.top, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    for (const WindowImage& control : image.controls) {
        const RECT& at = control.rect;
        const HWND window = CreateWindowExW(
            control.extendedStyle, control.className.c_str(), control.text.c_str(), control.style,
            at.left, at.top, at.right - at.left, at.bottom - at.top, form,
            reinterpret_cast<HMENU>(control.id), GetModuleHandleW(nullptr), nullptr);
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        PutContents(window, control);
    }
    if (image.toolTips)
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, 0, 0, 0,
                        0, form, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(form, SW_SHOW);
    Paint(form);
    DestroyWindow(form);
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageW(&message);
    DeleteObject(font);
}

// What a form reads while it opens: every value of these statements, on a connection of its own.
class Reads {
public:
    Reads(std::wstring connection, std::vector<std::wstring> statements)
        : connection_(std::move(connection)), statements_(std::move(statements)) {}

    void operator()() const {
        vndesk::Database database = vndesk::OpenConnection(connection_);
        for (const std::wstring& statement : statements_) {
            vndesk::Recordset rows;
            rows.Create(database);
            rows.Open(statement);
            for (const long count = rows.FieldCount(); !rows.Eof(); rows.MoveNext())
                for (long i = 0; i < count; ++i)
                    Keep(vndesk::NullToText(rows.Value(i)));
        }
        vndesk::CloseConnection(database);
    }

private:
    std::wstring connection_;
    std::vector<std::wstring> statements_;
};

// The same form with settings of 1.1 and without. A form that shows more has no target.
void MeasureGoverned(Report& report, const std::string& name, const ComPtr<ILogon2>& logon,
                     const ComPtr<ISettings>& settings, const std::function<void()>& open,
                     Target target = Target::AtMost) {
    FormImage image{};
    const Closer closer(&image);
    const auto with = [&](const ComPtr<ISettings>& given) {
        return Each([&, given] {
            logon->putref_Settings(given.Get());
            open();
        });
    };
    report.Compare({name, "the same without settings", target, target == Target::AtMost ? 1.1 : 0,
                    with(settings), with(nullptr), 15});
    logon->putref_Settings(nullptr);
}

void Measure(Report& report, const std::string& name, double target,
             const std::function<void()>& open, const std::function<void()>& read,
             int rounds = 15) {
    FormImage image{};
    const Closer closer(&image);
    open();
    if (image.controls.empty())
        throw std::runtime_error(name + " did not open");
    const Work bare = Each([&] {
        if (read)
            read();
        OpenBare(image);
    });
    report.Compare(
        {name + " opened, painted and closed",
         read ? "the same reads, its windows made by bare calls" : "its windows made by bare calls",
         Target::AtMost, target, Each(open), bare, rounds});
    if (read)
        report.Compare({name + ", its reads alone", "the same reads and its bare windows",
                        Target::Nothing, 0, Each(read), bare, rounds});
}

} // namespace

int main(int argc, char** argv) {
    OleInitialize(nullptr);
    int code = 1;
    try {
        WNDCLASSW description{};
        description.lpfnWndProc = BareProcedure;
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
        Measure(
            report, "message box", 1.3,
            [&] {
                _bstr_t title, message(L"B¹n ch\u00ADa chän bé phËn."), pressed;
                logon->MgBox(&message.GetBSTR(), vbYesNo, &title.GetBSTR(), vbQuestion,
                             VARIANT_FALSE, pressed.GetAddress());
            },
            nullptr);
        const std::wstring database = source.ConnectionString();
        Measure(
            report, "logon dialog", 1.3,
            [&] {
                long user = 0;
                logon->ShowLogon(&connect.GetBSTR(), &user);
            },
            Reads(database, {}));
        Measure(
            report, "user list", 1.3, [&] { logon->UserManager(&connect.GetBSTR()); },
            Reads(database, {vndesk::kUserListStatement}));
        // The group that is selected when the form opens.
        constexpr long kFirstGroup = 1;
        Measure(
            report, "group manager", 1.3, [&] { logon->ShowGroup(&connect.GetBSTR()); },
            Reads(database, {L"[Groups]", vndesk::GroupStatement(L"[Groups]", kFirstGroup).text,
                             vndesk::GroupMembersStatement(kFirstGroup).text}));
        vndesk::test::Upgrade(source, L"accounts");
        vndesk::test::Upgrade(source, L"audit");
        const auto bound = vndesk::test::MakeSettings({.BindParameters = true, .Audit = true});
        const auto locking = vndesk::test::MakeSettings({.Audit = true, .LockAfter = 5});
        ComPtr<ILogon2> governed;
        logon.As(&governed);
        MeasureGoverned(report, "logon dialog with locks and records", governed, locking, [&] {
            long user = 0;
            logon->ShowLogon(&connect.GetBSTR(), &user);
        });
        const auto users = [&] { logon->UserManager(&connect.GetBSTR()); };
        MeasureGoverned(report, "user list with values bound and records", governed, bound, users);
        MeasureGoverned(report, "user list with the column of locks", governed, locking, users,
                        Target::Nothing);
        MeasureGoverned(report, "group manager with values bound and records", governed, bound,
                        [&] { logon->ShowGroup(&connect.GetBSTR()); });
        for (const long count : {1000L, 10000L, 100000L}) {
            source.Execute(L"DELETE FROM User WHERE Code > 1000");
            source.Execute(
                L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                std::to_wstring(count) +
                L") INSERT INTO User (Code, Name, Dec, IdGroup, Password) "
                L"SELECT 1000 + i, 'Nguyễn Văn ' || printf('%06d', i), 'Kế toán', 2, 0 "
                L"FROM n");
            Measure(
                report, "user list of " + std::to_string(count), 2,
                [&] { logon->UserManager(&connect.GetBSTR()); },
                Reads(database, {vndesk::kUserListStatement}), 7);
        }
        code = report.Finish();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "forms_bench: %s\n", error.what());
    }
    OleUninitialize();
    return code;
}
