// SPDX-License-Identifier: MIT
// Tests of the test library itself: databases, windows, keys, the dialog driver, pictures, counts.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <wincodec.h>
#include <wrl/client.h>

#include "support/check_hr.h"
#include "support/dialog_driver.h"
#include "support/env.h"
#include "support/keys.h"
#include "support/late_bound.h"
#include "support/leak_probe.h"
#include "support/sample_database.h"
#include "support/screenshot.h"
#include "support/ui_windows.h"

namespace {

using namespace vndesk::test;

constexpr wchar_t kAdminCode[] = L"SELECT Code FROM %u WHERE Name = 'ADMIN' AND Password = 1401";

std::wstring With(std::wstring text, const wchar_t* userTable) {
    return text.replace(text.find(L"%u"), 2, userTable);
}

// --- databases ---

TEST(SampleDatabaseTest, EmbeddedIsFreshEachTimeAndFoldsCase) {
    const SampleDatabase first = SampleDatabase::Embedded();
    EXPECT_EQ(L"3", first.ScalarText(With(kAdminCode, L"[User]")));
    EXPECT_EQ(1, first.Execute(L"DELETE FROM [User] WHERE Code = 3"));
    EXPECT_EQ(L"", first.ScalarText(With(kAdminCode, L"[User]")));

    const SampleDatabase second = SampleDatabase::Embedded();
    EXPECT_EQ(L"3", second.ScalarText(With(kAdminCode, L"[User]")));
    EXPECT_EQ(L"Nguyễn Văn Hưng", second.ScalarText(L"SELECT Name FROM [User] WHERE Code = 1"));
    EXPECT_NE(std::wstring::npos, second.ConnectionString().find(L"Jet OLEDB:Engine Type=5"));
}

TEST(SampleDatabaseTest, FileGoesWithItsOwner) {
    std::wstring file;
    {
        const SampleDatabase database = SampleDatabase::Embedded();
        file = database.File();
        EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(file.c_str()));
    }
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(file.c_str()));
}

TEST(SampleDatabaseTest, ServerIsFreshEachTimeAndFoldsCase) {
    if (!SampleDatabase::ServerAvailable())
        GTEST_SKIP() << "VNDESK_PG is not set";
    const SampleDatabase first = SampleDatabase::Server();
    EXPECT_EQ(L"3", first.ScalarText(With(kAdminCode, L"\"user\"")));
    EXPECT_EQ(L"1", first.ScalarText(L"SELECT code FROM \"user\" WHERE name = N'NGUYỄN văn HƯNG'"));
    EXPECT_EQ(1, first.Execute(L"DELETE FROM \"user\" WHERE code = 3"));
    const SampleDatabase second = SampleDatabase::Server();
    EXPECT_EQ(L"3", second.ScalarText(With(kAdminCode, L"\"user\"")));
    EXPECT_EQ(std::wstring::npos, second.ConnectionString().find(L"JET OLEDB"));
}

TEST(SampleDatabaseTest, NullsAndLongTextsAreReadBack) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const std::wstring text(2000, L'ấ');
    database.Execute(L"UPDATE [Options] SET KeyValue = '" + text + L"' WHERE KeyName = 'DiaChi'");
    EXPECT_EQ(text, database.ScalarText(L"SELECT KeyValue FROM [Options] WHERE KeyName='DiaChi'"));
    const auto rows =
        database.Query(L"SELECT KeyName, KeyValue FROM [Options] WHERE KeyValue IS NULL");
    ASSERT_EQ(1u, rows.size());
    EXPECT_EQ(L"NguoiLap", rows[0][0]);
    EXPECT_FALSE(rows[0][1].has_value());
}

TEST(SampleDatabaseTest, FailingStatementThrowsWithTheDriversText) {
    const SampleDatabase database = SampleDatabase::Embedded();
    EXPECT_THROW(database.Execute(L"UPDATE NoSuchTable SET a = 1"), std::runtime_error);
}

// Rows per table of a script, whatever its way of quoting names.
std::map<std::wstring, int> RowsPerTable(const wchar_t* script) {
    std::wstring text = ReadUtf8File(SourceDir() + L"\\schema\\" + script);
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    std::map<std::wstring, int> rows;
    constexpr std::wstring_view kInsert = L"\ninsert into ";
    for (size_t at = 0; (at = text.find(kInsert, at)) != std::wstring::npos;) {
        at += kInsert.size();
        std::wstring table = text.substr(at, text.find(L' ', at) - at);
        std::erase_if(table, [](wchar_t c) { return wcschr(L"[]\"`", c); });
        ++rows[table];
    }
    return rows;
}

TEST(SchemaTest, AllScriptsHoldTheSameRows) {
    auto jet = RowsPerTable(L"jet.sql");
    EXPECT_EQ(11u, jet.size());
    EXPECT_EQ(jet, RowsPerTable(L"sqlite.sql"));
    EXPECT_EQ(jet, RowsPerTable(L"postgresql.sql"));
    EXPECT_EQ(jet, RowsPerTable(L"mariadb.sql"));
    // But for the two fields with dates, whose literals SQL Server does not read.
    jet[L"lstfld"] -= 2;
    EXPECT_EQ(jet, RowsPerTable(L"sqlserver.sql"));
}

TEST(SchemaTest, CatalogueOfSqlServerHasNoDates) {
    const auto fields = [](const wchar_t* script) {
        std::wistringstream lines(ReadUtf8File(SourceDir() + L"\\schema\\" + script));
        int dates = 0;
        for (std::wstring line; std::getline(lines, line);)
            dates += line.starts_with(L"INSERT INTO [LstFld]") &&
                     line.find(L", 8, ") != std::wstring::npos;
        return dates;
    };
    EXPECT_EQ(2, fields(L"jet.sql"));
    EXPECT_EQ(0, fields(L"sqlserver.sql"));
}

TEST(SchemaTest, OneRightsColumnPerMenuBar) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const size_t bars = database.Query(L"SELECT ID FROM [Menu]").size();
    EXPECT_EQ(bars + 3, database.Query(L"SELECT * FROM [Groups] WHERE Code = 1").at(0).size());
}

TEST(SchemaTest, EveryFieldTypeHasAnOperator) {
    const SampleDatabase database = SampleDatabase::Embedded();
    const auto types = database.Query(L"SELECT DISTINCT Type FROM LstFld ORDER BY Type");
    ASSERT_EQ(6u, types.size());
    for (const auto& row : types)
        EXPECT_NE(L"0", database.ScalarText(L"SELECT COUNT(*) FROM [Operator] WHERE Type = " +
                                            row[0].value()));
}

// --- a dialog of the test's own ---

void GiveName(HWND window, const wchar_t* name) {
    SetPropW(window, L"VnDesk.Name",
             reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(GlobalAddAtomW(name))));
}

constexpr COLORREF kRed = RGB(200, 16, 32);

// A form with an edit box, an OK button and a coloured ground; modal by its own message loop.
class TestForm {
public:
    explicit TestForm(bool closes = true) : closes_(closes) {
        WNDCLASSW type = {};
        type.lpfnWndProc = Procedure;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = L"VnDeskTestForm";
        type.hbrBackground = brush_ = CreateSolidBrush(kRed);
        RegisterClassW(&type);
        window_ = CreateWindowExW(WS_EX_CONTROLPARENT, type.lpszClassName, L"Thử nghiệm",
                                  WS_POPUPWINDOW | WS_CAPTION, 100, 100, 300, 200, nullptr, nullptr,
                                  type.hInstance, this);
        GiveName(window_, L"FrmTest");
        edit_ = Add(L"EDIT", L"TxtUser", 20, 0);
        list_ = Add(L"LISTBOX", L"LstItems", 60, 0);
        Add(L"BUTTON", L"CmdOk", 110, IDOK);
        for (const wchar_t* text : {L"một", L"hai"})
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    ~TestForm() {
        DestroyWindow(window_);
        UnregisterClassW(L"VnDeskTestForm", GetModuleHandleW(nullptr));
        DeleteObject(brush_);
    }

    void ShowModal() {
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
        SetFocus(edit_);
        MSG message;
        while (IsWindowVisible(window_) && GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (IsDialogMessageW(window_, &message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    HWND Window() const { return window_; }
    std::wstring Text() const { return TextOf(edit_); }
    std::wstring Result() const { return result_; }

private:
    HWND Add(const wchar_t* type, const wchar_t* name, int top, int id) {
        HWND window = CreateWindowExW(
            0, type, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 20, top, 200, 28, window_,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        GiveName(window, name);
        return window;
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE)
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(
                                  reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
        auto* form = reinterpret_cast<TestForm*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
            form->result_ = form->Text();
            ShowWindow(window, SW_HIDE);
            return 0;
        }
        if (message == WM_CLOSE) {
            if (form->closes_)
                ShowWindow(window, SW_HIDE);
            return 0;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    bool closes_;
    HBRUSH brush_ = nullptr;
    HWND window_ = nullptr, edit_ = nullptr, list_ = nullptr;
    std::wstring result_;
};

TEST(DialogDriverTest, TypesAndClicksWhileTheFormIsModal) {
    TestForm form;
    DialogDriver user([] {
        HWND window = WaitForForm(L"FrmTest");
        WaitForFocus(window, L"TxtUser");
        TypeText(L"Nguyễn ");
        PressKey('A', kShift);
        EXPECT_EQ(L"Nguyễn A", TextOf(window, L"TxtUser"));
        EXPECT_EQ((std::vector<std::wstring>{L"một", L"hai"}),
                  ListTexts(Control(window, L"LstItems")));
        PressKey(VK_TAB);
        WaitForFocus(window, L"LstItems");
        PressKey(VK_DOWN);
        EXPECT_EQ(0, ListSelection(Control(window, L"LstItems")));
        ClickWindow(Control(window, L"CmdOk"));
        WaitForClose(window);
    });
    form.ShowModal();
    user.Finish();
    EXPECT_EQ(L"Nguyễn A", form.Result());
}

TEST(DialogDriverTest, DrivesAMessageBox) {
    DialogDriver user([] {
        HWND box = WaitForTitle(L"Thông báo");
        EXPECT_EQ(box, WaitForClass(L"#32770"));
        PressKey(VK_RIGHT);
        PressKey(VK_RETURN);
    });
    EXPECT_EQ(IDNO, MessageBoxW(nullptr, L"Xoá?", L"Thông báo", MB_YESNO));
    user.Finish();
}

TEST(DialogDriverTest, FailureIsCarriedBackAndTheFormClosed) {
    TestForm form;
    EXPECT_NONFATAL_FAILURE(
        {
            DialogDriver user([] { WaitForForm(L"FrmOther", 300); });
            form.ShowModal();
            user.Finish();
        },
        "no window named FrmOther");
    EXPECT_FALSE(IsWindowVisible(form.Window()));
}

TEST(DialogDriverTest, FormThatIgnoresItsCloseBoxIsClosedByItsButton) {
    TestForm form(false);
    EXPECT_NONFATAL_FAILURE(
        {
            DialogDriver user([] {}, 200);
            form.ShowModal();
            user.Finish();
        },
        "left open: FrmTest");
}

TEST(DialogDriverTest, MessageBoxWithoutCloseBoxIsClosedToo) {
    EXPECT_NONFATAL_FAILURE(
        {
            DialogDriver user([] {}, 200);
            MessageBoxW(nullptr, L"?", L"VnDesk", MB_YESNO);
            user.Finish();
        },
        "left open");
}

TEST(WindowsTest, PumpUntilDispatchesAndTellsWhenTimeIsOver) {
    bool fired = false;
    TestForm form;
    DialogDriver other([&] {
        SendMessageW(form.Window(), WM_NULL, 0, 0);
        fired = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return fired; }));
    other.Finish();
    EXPECT_FALSE(WaitUntil([] { return false; }, 50));
    EXPECT_THROW(WaitForTitle(L"không có", 50), std::runtime_error);
}

// --- pictures ---

COLORREF PixelOfPng(const std::wstring& path, UINT x, UINT y) {
    using Microsoft::WRL::ComPtr;
    constexpr GUID kFactory = {
        0xcacaf262, 0x9370, 0x4615, {0xa1, 0x3b, 0x9f, 0x55, 0x39, 0xda, 0x4c, 0x0a}};
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    BYTE pixel[4] = {};
    const WICRect rect = {static_cast<INT>(x), static_cast<INT>(y), 1, 1};
    if (FAILED(CoCreateInstance(kFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory))) ||
        FAILED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, &decoder)) ||
        FAILED(decoder->GetFrame(0, &frame)) ||
        FAILED(frame->CopyPixels(&rect, sizeof pixel, sizeof pixel, pixel)))
        return CLR_INVALID;
    return RGB(pixel[2], pixel[1], pixel[0]);
}

TEST(ScreenshotTest, ShowsWhatIsOnTheScreen) {
    TestForm form;
    std::wstring picture, desktop;
    DialogDriver user([&] {
        HWND window = WaitForForm(L"FrmTest");
        Sleep(200); // painted
        picture = SaveWindow(window, L"support-window");
        desktop = SaveDesktop(L"support-desktop");
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    form.ShowModal();
    user.Finish();
    EXPECT_EQ(kRed, PixelOfPng(picture, 290, 190));
    EXPECT_EQ(kRed, PixelOfPng(desktop, 390, 290));
}

// --- counts ---

TEST(LeakProbeTest, CountsGdiObjects) {
    DeleteObject(CreateSolidBrush(1));
    const long before = GdiObjects();
    HBRUSH brushes[50];
    for (HBRUSH& brush : brushes)
        brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(before + 50, GdiObjects());
    for (HBRUSH brush : brushes)
        DeleteObject(brush);
    EXPECT_EQ(before, GdiObjects());
}

TEST(LeakProbeTest, CountsUserObjects) {
    const auto newWindow = [] {
        return CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                             nullptr);
    };
    HWND first = newWindow(); // brings the thread's input method window with it
    const long before = UserObjects();
    HMENU menu = CreatePopupMenu();
    HWND window = newWindow();
    EXPECT_EQ(before + 2, UserObjects());
    DestroyWindow(window);
    DestroyMenu(menu);
    EXPECT_EQ(before, UserObjects());
    DestroyWindow(first);
}

TEST(LeakProbeTest, CountsHeapBlocks) {
    const HeapUse before = HeapInUse();
    void* block = HeapAlloc(GetProcessHeap(), 0, 100000);
    const HeapUse after = HeapInUse();
    HeapFree(GetProcessHeap(), 0, block);
    EXPECT_EQ(before.blocks + 1, after.blocks);
    EXPECT_LE(before.bytes + 100000, after.bytes);
    EXPECT_EQ(before.blocks, HeapInUse().blocks);
}

// Also where the heap serves a size that is asked for often from larger blocks of its own.
TEST(LeakProbeTest, CountsEachBlockOfASizeToTheByte) {
    constexpr size_t kBlocks = 5000;
    std::vector<void*> blocks;
    blocks.reserve(kBlocks);
    HeapUse before;
    int wrong = 0;
    const auto compare = [&](size_t size) {
        const HeapUse now = HeapInUse();
        wrong += now.blocks != before.blocks + blocks.size() ||
                 now.bytes != before.bytes + size * blocks.size();
    };
    const auto fillAndEmpty = [&](size_t size) {
        wrong = 0;
        before = HeapInUse();
        while (blocks.size() < kBlocks) {
            blocks.push_back(HeapAlloc(GetProcessHeap(), 0, size));
            if (blocks.size() % 1237 == 1)
                compare(size);
        }
        while (!blocks.empty()) {
            HeapFree(GetProcessHeap(), 0, blocks.back());
            blocks.pop_back();
            if (blocks.size() % 1237 == 1)
                compare(size);
        }
        compare(size);
    };
    fillAndEmpty(1); // other threads of the process may still be starting
    for (const size_t size : {1u, 40u, 300u, 1000u, 3000u}) {
        fillAndEmpty(size);
        EXPECT_EQ(0, wrong) << size;
    }
}

// --- late binding ---

TEST(LateBoundTest, CallsByName) {
    const LateBound dictionary = LateBound::Create(L"Scripting.Dictionary");
    dictionary.Call(L"Add", {L"khoá", 5L});
    EXPECT_EQ(5, static_cast<long>(dictionary.Get(L"Item", {L"khoá"})));
    EXPECT_EQ(1, static_cast<long>(dictionary.Get(L"Count")));
    dictionary.Call(L"RemoveAll");
    dictionary.Put(L"CompareMode", 1L);
    EXPECT_EQ(1, static_cast<long>(dictionary.Get(L"CompareMode")));
}

TEST(LateBoundTest, ErrorsAreHandedBackOrThrown) {
    const LateBound dictionary = LateBound::Create(L"Scripting.Dictionary");
    EXPECT_HR(DISP_E_UNKNOWNNAME, dictionary.TryCall(L"NoSuchMember").hr);
    EXPECT_THROW(dictionary.Call(L"NoSuchMember"), std::runtime_error);
    EXPECT_THROW(LateBound::Create(L"VnDesk.NoSuchClass"), std::runtime_error);
}

} // namespace
