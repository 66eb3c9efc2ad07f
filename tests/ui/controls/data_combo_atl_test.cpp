// SPDX-License-Identifier: MIT
// The control in a container that is not ours: the platform's AtlAxWin, filled and heard by
// scripts, used with real keys and mouse.
#include <gtest/gtest.h>
#include <olectl.h>

#include "support/keys.h"
#include "support/property_bag.h"
#include "support/reliability.h"
#include "support/screenshot.h"
#include "support/script_host.h"
#include "support/text.h"
#include "ui/controls/data_combo_host.h"
#include "support/leaks.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;
using Lines = std::vector<std::wstring>;

template <class Function> Function* AtlFunction(const char* name) {
    static const HMODULE atl = LoadLibraryW(L"atl.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
}

// The container, with the control in it.
class AtlWindow {
public:
    explicit AtlWindow(HostWindow& host, const RECT& rect = {10, 50, 210, 76}) {
        static const BOOL ready = AtlFunction<BOOL WINAPI()>("AtlAxWinInit")();
        const auto get = AtlFunction<HRESULT WINAPI(HWND, IUnknown**)>("AtlAxGetControl");
        EXPECT_TRUE(ready);
        // No tab stop of its own: the focus is the control's.
        window_ = host.Child(L"AtlAxWin", kComboProgId, 0, WS_EX_CONTROLPARENT, rect);
        EXPECT_NE(nullptr, window_);
        ComPtr<IUnknown> control;
        EXPECT_SUCCEEDED(get(window_, &control));
        if (control)
            control.As(&combo_);
        EXPECT_NE(nullptr, combo_.Get());
    }
    HWND Window() const { return window_; }
    IDataCombo1* Combo() const { return combo_.Get(); }
    // Ends the embedding; what is left are the references of others.
    ULONG Destroy() {
        DestroyWindow(window_);
        return combo_.Reset();
    }

private:
    HWND window_ = nullptr;
    ComPtr<IDataCombo1> combo_;
};

constexpr wchar_t kFill[] = L"Sub Add(text, value)\n"
                            L"c.AddItem text : c.ItemData(c.NewIndex) = value\nEnd Sub\n"
                            L"Add \"Họ và tên\", \"FullName\"\n"
                            L"Add \"Ngày sinh\", \"BirthDay\"\n"
                            L"Add \"Địa chỉ\", \"Address\"\n";

std::wstring ValueOf(IDataCombo1* combo) {
    _bstr_t value;
    EXPECT_SUCCEEDED(combo->get_Value(value.GetAddress()));
    return {static_cast<const wchar_t*>(value) ? static_cast<const wchar_t*>(value) : L"",
            value.length()};
}

// The font is an object of its own, which tells the control of its changes.
ComPtr<IFont> FontOf(IDataCombo1* combo) {
    ComPtr<IFontDisp> given;
    ComPtr<IFont> font;
    EXPECT_SUCCEEDED(combo->get_Font(&given));
    EXPECT_SUCCEEDED(given.As(&font));
    return font;
}
void MakeBold(IDataCombo1* combo) {
    EXPECT_SUCCEEDED(FontOf(combo)->put_Bold(TRUE));
}
bool IsBold(IDataCombo1* combo) {
    BOOL bold = FALSE;
    EXPECT_SUCCEEDED(FontOf(combo)->get_Bold(&bold));
    return bold != FALSE;
}

class DataComboAtlTest : public testing::Test {
protected:
    void SetUp() override {
        host_.AddLast();
        script_.AddObject(L"c", atl_.Combo());
        script_.RunOk(kFill);
        list_ = ListIn(atl_.Window());
        ASSERT_NE(nullptr, list_);
        ComPtr<IDataCombo1>(atl_.Combo()).As(&host_.active);
    }
    void TearDown() override { host_.active.Reset(); }

    // What the item's hidden value is, read on the list itself: from any thread.
    int Selected() const { return ListSelection(list_); }
    void FocusList() { GiveFocus(host_.Frame(), list_); }

    HostWindow host_;
    AtlWindow atl_{host_};
    ScriptRunner script_;
    HWND list_ = nullptr;
};

TEST_F(DataComboAtlTest, IsShownWhereTheContainerPutsItAndFilledByAScript) {
    host_.Show();
    script_.RunOk(L"c.Value = \"BirthDay\"");
    host_.Play([&] {
        EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(list_) != FALSE; }));
        EXPECT_EQ((Lines{L"Họ và tên", L"Ngày sinh", L"Địa chỉ"}), ListTexts(list_));
        EXPECT_EQ(L"Ngày sinh", TextOf(list_));
        RECT outside, inside;
        GetWindowRect(atl_.Window(), &outside);
        GetWindowRect(list_, &inside);
        EXPECT_EQ(outside.left, inside.left);
        EXPECT_EQ(outside.top, inside.top);
        EXPECT_EQ(outside.right, inside.right);
    });
    SetWindowPos(atl_.Window(), nullptr, 10, 50, 300, 26, SWP_NOZORDER);
    RECT inside;
    GetWindowRect(list_, &inside);
    EXPECT_EQ(300, inside.right - inside.left) << "it follows its container";
    host_.Play([&] {
        FocusList();
        for (int i = 0; i < 3 && !SendMessageW(list_, CB_GETDROPPEDSTATE, 0, 0); ++i) {
            PressKey(VK_F4);
            WaitUntil([&] { return SendMessageW(list_, CB_GETDROPPEDSTATE, 0, 0) != 0; }, 1000);
        }
        RECT area;
        GetWindowRect(host_.Frame(), &area);
        EXPECT_NE(L"", SaveArea(area, L"data-combo"));
        SendMessageW(list_, CB_SHOWDROPDOWN, FALSE, 0);
    });
}

TEST_F(DataComboAtlTest, EachEventArrivesWithItsArguments) {
    script_.RunOk(L"Sub c_Click()\nEcho \"Click\", c.Value\nEnd Sub\n"
                  L"Sub c_DblClick()\nEcho \"DblClick\"\nEnd Sub\n"
                  L"Sub c_KeyDown(KeyCode, Shift)\nEcho \"KeyDown\", KeyCode, Shift\nEnd Sub\n"
                  L"Sub c_KeyPress(KeyAscii)\nEcho \"KeyPress\", KeyAscii\nEnd Sub\n"
                  L"Sub c_KeyUp(KeyCode, Shift)\nEcho \"KeyUp\", KeyCode, Shift\nEnd Sub\n"
                  L"Connect c, \"c_\"");
    const auto heard = [&](size_t lines) {
        EXPECT_TRUE(WaitUntil([&] { return script_.Lines().size() >= lines; }));
    };
    host_.Show();
    host_.Play([&] {
        FocusList();
        PressKey(VK_DOWN);
        heard(3);
        PressKey('N');
        heard(7);
        PressKey(VK_DELETE);
        heard(10);
    });
    EXPECT_EQ(
        (Lines{L"KeyDown 40 0", L"Click FullName", L"KeyUp 40 0", L"KeyDown 78 0", L"KeyPress 110",
               L"Click BirthDay", L"KeyUp 78 0", L"Click ", L"KeyDown 46 0", L"KeyUp 46 0"}),
        script_.Lines());
    EXPECT_EQ(-1, Selected());
    const size_t before = script_.Lines().size();
    host_.Play([&] {
        for (int i = 0; i < 3 && script_.Lines().size() == before; ++i) {
            DoubleClickWindow(list_);
            WaitUntil([&] { return script_.Lines().size() > before; }, 1000);
            SendMessageW(list_, CB_SHOWDROPDOWN, FALSE, 0);
        }
    });
    ASSERT_LT(before, script_.Lines().size());
    EXPECT_EQ(L"DblClick", script_.Lines()[before]);
}

TEST_F(DataComboAtlTest, HandlerChangesTheKeyByReference) {
    script_.RunOk(L"Sub c_KeyDown(KeyCode, Shift)\n"
                  L"If KeyCode = 38 Then KeyCode = 40 Else If KeyCode = 40 Then KeyCode = 0\n"
                  L"End Sub\n"
                  L"Sub c_KeyPress(KeyAscii)\nKeyAscii = Asc(\"N\")\nEnd Sub\n"
                  L"Sub c_KeyUp(KeyCode, Shift)\nEcho KeyCode\nEnd Sub\nConnect c, \"c_\"");
    const auto heard = [&](size_t lines) {
        EXPECT_TRUE(WaitUntil([&] { return script_.Lines().size() >= lines; }));
    };
    host_.Show();
    host_.Play([&] {
        FocusList();
        PressKey(VK_DOWN);
        heard(1);
        EXPECT_EQ(-1, Selected()) << "Down was kept from the list";
        PressKey(VK_UP);
        heard(2);
        EXPECT_EQ(0, Selected()) << "Up became Down";
        PressKey('X');
        heard(3);
        EXPECT_EQ(1, Selected()) << "X became N";
    });
    EXPECT_EQ((Lines{L"40", L"38", L"88"}), script_.Lines());
}

TEST_F(DataComboAtlTest, TabWalksThroughAndTheMouseChooses) {
    host_.Show();
    host_.Play([&] {
        const HWND frame = host_.Frame();
        EXPECT_TRUE(TabLeads(frame, host_.First(), list_));
        EXPECT_TRUE(TabLeads(frame, list_, host_.Last()));
        EXPECT_TRUE(TabLeads(frame, host_.Last(), list_, kShift));
        EXPECT_TRUE(TabLeads(frame, list_, host_.First(), kShift));
        COMBOBOXINFO info = {};
        info.cbSize = sizeof info;
        ASSERT_TRUE(GetComboBoxInfo(list_, &info));
        for (int i = 0; i < 3 && Selected() != 2; ++i) {
            SendMessageW(list_, CB_SHOWDROPDOWN, FALSE, 0);
            ClickWindow(list_);
            if (!WaitUntil([&] { return SendMessageW(list_, CB_GETDROPPEDSTATE, 0, 0) != 0; },
                           1000))
                continue;
            RECT item = {};
            SendMessageW(info.hwndList, LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&item));
            MapWindowPoints(info.hwndList, nullptr, reinterpret_cast<POINT*>(&item), 2);
            ClickAt({item.left + 10, (item.top + item.bottom) / 2});
            WaitUntil([&] { return Selected() == 2; }, 1000);
        }
    });
    EXPECT_EQ(L"Address", ValueOf(atl_.Combo()));
}

TEST_F(DataComboAtlTest, IsStoredAndReadBackWhileShown) {
    host_.Show();
    script_.RunOk(L"c.Value = \"Address\" : c.BackColor = RGB(255, 255, 192)\n"
                  L"c.Font.Bold = True");
    PropertyBag bag;
    ComPtr<IPersistPropertyBag> persist;
    ASSERT_SUCCEEDED(ComPtr<IDataCombo1>(atl_.Combo()).As(&persist));
    EXPECT_SUCCEEDED(persist->Save(&bag, TRUE, FALSE));
    EXPECT_EQ((Lines{L"BackColor", L"Font", L"Text", L"Value", L"ItemData"}), bag.written);
    EXPECT_EQ(_variant_t(L"Address"), bag.values[L"Value"]);

    const AtlWindow other(host_, {10, 130, 210, 156});
    ComPtr<IPersistPropertyBag> otherPersist;
    ASSERT_SUCCEEDED(ComPtr<IDataCombo1>(other.Combo()).As(&otherPersist));
    EXPECT_SUCCEEDED(otherPersist->Load(&bag, nullptr));
    OLE_COLOR color = 0;
    EXPECT_SUCCEEDED(other.Combo()->get_BackColor(&color));
    EXPECT_EQ(0xC0FFFFu, color);
    EXPECT_TRUE(IsBold(other.Combo()));
    EXPECT_EQ(L"", ValueOf(other.Combo()));

    ComPtr<IPersistStreamInit> stream, otherStream;
    ComPtr<IStream> memory;
    ASSERT_SUCCEEDED(persist.As(&stream));
    ASSERT_SUCCEEDED(otherPersist.As(&otherStream));
    ASSERT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &memory));
    EXPECT_SUCCEEDED(atl_.Combo()->put_BackColor(0xFFC0C0));
    // A font of its own: the bag has handed on the one of the first control.
    ComPtr<IFont> plain;
    ComPtr<IFontDisp> plainFont;
    EXPECT_SUCCEEDED(FontOf(other.Combo())->Clone(&plain));
    EXPECT_SUCCEEDED(plain->put_Bold(FALSE));
    EXPECT_SUCCEEDED(plain.As(&plainFont));
    EXPECT_SUCCEEDED(other.Combo()->putref_Font(plainFont.Get()));
    EXPECT_FALSE(IsBold(other.Combo()));
    EXPECT_SUCCEEDED(stream->Save(memory.Get(), TRUE));
    EXPECT_SUCCEEDED(memory->Seek({}, STREAM_SEEK_SET, nullptr));
    EXPECT_SUCCEEDED(otherStream->Load(memory.Get()));
    EXPECT_SUCCEEDED(other.Combo()->get_BackColor(&color));
    EXPECT_EQ(0xFFC0C0, color);
    EXPECT_TRUE(IsBold(other.Combo()));
}

TEST(DataComboAtlLeakTest, ControlsLeaveNothingBehind) {
    HostWindow host;
    host.Show();
    const auto round = [&] {
        AtlWindow atl(host);
        VARIANT missing = {};
        missing.vt = VT_ERROR;
        missing.scode = DISP_E_PARAMNOTFOUND;
        EXPECT_SUCCEEDED(atl.Combo()->AddItem(_bstr_t(L"Ngày sinh"), missing));
        EXPECT_SUCCEEDED(atl.Combo()->put_ItemData(0, _bstr_t(L"BirthDay")));
        ClickSink sink(atl.Combo());
        EXPECT_SUCCEEDED(atl.Combo()->put_ListIndex(0));
        EXPECT_EQ(1, sink.clicks);
        sink.StayConnected();
        MakeBold(atl.Combo());
        EXPECT_SUCCEEDED(atl.Combo()->put_BackColor(0x00FFFF));
        UpdateWindow(host.Frame());
        EXPECT_EQ(0u, atl.Destroy()) << "nobody holds the control any more";
        EXPECT_EQ(1u, sink.references) << "nor does it hold its sink";
    };
    ExpectNothingKept("controls", 10, Rounds(100, 1000), round);
}

} // namespace
} // namespace vndesk::test
