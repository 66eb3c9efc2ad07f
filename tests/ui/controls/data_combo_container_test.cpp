// SPDX-License-Identifier: MIT
// What containers and the control DataCombo1 say to each other: activation, place, focus, keys,
// design and run time.
#include <gtest/gtest.h>
#include <olectl.h>

#include <algorithm>

#include "support/control_container.h"
#include "support/keys.h"
#include "ui/controls/data_combo_host.h"

namespace vndesk::test {
namespace {

using Microsoft::WRL::ComPtr;
using Calls = std::vector<std::wstring>;

class DataComboContainerTest : public testing::Test {
protected:
    void SetUp() override {
        VARIANT missing = {};
        missing.vt = VT_ERROR;
        missing.scode = DISP_E_PARAMNOTFOUND;
        for (const wchar_t* text : {L"Họ tên", L"Ngày sinh"})
            EXPECT_SUCCEEDED(combo_->AddItem(_bstr_t(text), missing));
        container_.Take(combo_.Get());
    }

    template <class Interface> ComPtr<Interface> As() {
        ComPtr<Interface> asked;
        EXPECT_SUCCEEDED(combo_.As(&asked));
        return asked;
    }
    HWND Window() {
        HWND window = nullptr;
        As<IOleInPlaceObject>()->GetWindow(&window);
        return window;
    }
    RECT RectOf(HWND window) {
        RECT rect;
        GetWindowRect(window, &rect);
        MapWindowPoints(nullptr, host_.Frame(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    short ListCount() {
        short count = 0;
        EXPECT_SUCCEEDED(combo_->get_ListCount(&count));
        return count;
    }

    HostWindow host_;
    ComPtr<IDataCombo1> combo_ = CreateCombo();
    ControlContainer container_{host_.Frame()};
};

TEST_F(DataComboContainerTest, IsActivatedInPlaceAndKeepsItsItems) {
    HWND window = nullptr;
    EXPECT_HR(E_FAIL, As<IOleInPlaceObject>()->GetWindow(&window));
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_TRUE(container_.Has(L"OnInPlaceActivate"));
    EXPECT_FALSE(container_.Has(L"OnUIActivate"));
    window = Window();
    ASSERT_NE(nullptr, window);
    EXPECT_EQ(host_.Frame(), GetParent(window));
    EXPECT_EQ(10, RectOf(window).left);
    EXPECT_EQ(210, RectOf(window).right);
    EXPECT_EQ(2u, ListTexts(ListIn(window)).size());
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_SHOW)) << "once more is no error";

    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_EQ(L"OnInPlaceDeactivate", container_.calls.back());
    EXPECT_FALSE(IsChild(host_.Frame(), window));
    EXPECT_EQ(2, ListCount());
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_EQ(2u, ListTexts(ListIn(Window())).size());
}

TEST_F(DataComboContainerTest, TellsTheContainerTheHeightOfItsList) {
    container_.rect = {10, 10, 210, 110};
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_TRUE(container_.Has(L"OnPosRectChange"));
    const RECT list = RectOf(ListIn(Window()));
    EXPECT_TRUE(EqualRect(&list, &container_.rect));
    EXPECT_GT(60, list.bottom);

    container_.calls.clear();
    container_.Move({20, 30, 320, container_.rect.bottom - container_.rect.top + 30});
    EXPECT_FALSE(container_.Has(L"OnPosRectChange")) << "the height is right already";
    EXPECT_EQ(300, RectOf(ListIn(Window())).right - 20);
    SIZEL size = {};
    EXPECT_SUCCEEDED(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size));
    const HDC screen = GetDC(nullptr);
    EXPECT_EQ(MulDiv(300, 2540, GetDeviceCaps(screen, LOGPIXELSX)), size.cx);
    ReleaseDC(nullptr, screen);

    container_.obeys = false;
    container_.Move({20, 30, 320, 230});
    EXPECT_LT(RectOf(Window()).bottom, 100) << "whatever the container does with it";
}

TEST_F(DataComboContainerTest, IsCutWhereTheContainerClipsIt) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    const RECT clip = {10, 10, 110, 40};
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->SetObjectRects(&container_.rect, &clip));
    RECT shown = {};
    EXPECT_EQ(SIMPLEREGION, GetWindowRgnBox(Window(), &shown));
    EXPECT_EQ(100, shown.right);
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->SetObjectRects(&container_.rect, &container_.rect));
    EXPECT_EQ(ERROR, GetWindowRgnBox(Window(), &shown)) << "whole again";
}

TEST_F(DataComboContainerTest, RefusedActivationLeavesItAsItWas) {
    container_.mayActivate = S_FALSE;
    EXPECT_FAILED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_EQ(nullptr, Window());
    EXPECT_FALSE(container_.Has(L"OnInPlaceActivate"));
    EXPECT_EQ(2, ListCount());
    EXPECT_HR(OLEOBJ_S_INVALIDVERB, container_.DoVerb(77));
    EXPECT_HR(E_NOTIMPL, container_.DoVerb(-77));
}

TEST_F(DataComboContainerTest, FocusMakesItActiveAndIsTold) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    host_.Show();
    // The host's window, when it became active, may have given the focus to any of its children.
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->UIDeactivate());
    container_.calls.clear();
    SetFocus(Window());
    EXPECT_EQ(ListIn(Window()), GetFocus());
    EXPECT_EQ((Calls{L"OnUIActivate", L"SetActiveObject", L"OnFocus"}), container_.calls);
    SetFocus(host_.First());
    EXPECT_EQ(L"OnFocus lost", container_.calls.back());
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->UIDeactivate());
    EXPECT_EQ(L"OnUIDeactivate", container_.calls.back());
    container_.calls.clear();
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_UIACTIVATE));
    EXPECT_EQ(ListIn(Window()), GetFocus());
    EXPECT_TRUE(container_.Has(L"OnUIActivate"));
}

TEST_F(DataComboContainerTest, KeepsTheKeysOfAListAndLeavesTheOthers) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_UIACTIVATE));
    host_.Show();
    const HWND list = ListIn(Window());
    const auto offer = [&](WPARAM key) {
        MSG message = {};
        message.hwnd = list;
        message.message = WM_KEYDOWN;
        message.wParam = key;
        message.lParam = 1;
        return As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
    };
    container_.calls.clear();
    EXPECT_HR(S_OK, offer(VK_DOWN));
    short index = -1;
    EXPECT_SUCCEEDED(combo_->get_ListIndex(&index));
    EXPECT_EQ(0, index);
    EXPECT_FALSE(container_.Has(L"TranslateAccelerator"));
    for (const WPARAM key : {VK_TAB, VK_RETURN, VK_ESCAPE}) {
        container_.calls.clear();
        EXPECT_HR(S_FALSE, offer(key)) << key;
        EXPECT_EQ(Calls{L"TranslateAccelerator"}, container_.calls) << key;
    }
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_HR(S_OK, offer(VK_RETURN)) << "it closes the open list";
    EXPECT_EQ(0, SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
}

TEST_F(DataComboContainerTest, RaisesNothingInADesignOrWhileFrozen) {
    ClickSink sink(combo_.Get());
    EXPECT_SUCCEEDED(combo_->put_ListIndex(0));
    EXPECT_EQ(1, sink.clicks) << "a container that does not say is running";
    const auto control = As<IOleControl>();
    container_.ambients[DISPID_AMBIENT_USERMODE] = false;
    EXPECT_SUCCEEDED(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE));
    EXPECT_SUCCEEDED(combo_->put_ListIndex(1));
    EXPECT_EQ(1, sink.clicks);
    container_.ambients[DISPID_AMBIENT_USERMODE] = true;
    EXPECT_SUCCEEDED(control->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_SUCCEEDED(control->FreezeEvents(TRUE));
    EXPECT_SUCCEEDED(control->FreezeEvents(TRUE));
    EXPECT_SUCCEEDED(control->FreezeEvents(FALSE));
    EXPECT_SUCCEEDED(combo_->put_ListIndex(0));
    EXPECT_EQ(1, sink.clicks) << "one freeze is left";
    EXPECT_SUCCEEDED(control->FreezeEvents(FALSE));
    EXPECT_SUCCEEDED(combo_->put_ListIndex(1));
    EXPECT_EQ(2, sink.clicks);
}

TEST_F(DataComboContainerTest, OwnFontSetsTheHeightInPlace) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    const LONG before = container_.rect.bottom;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(L"Arial");
    description.cySize.int64 = 240000;
    ComPtr<IFontDisp> font;
    ASSERT_SUCCEEDED(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    EXPECT_SUCCEEDED(combo_->putref_Font(font.Get()));
    EXPECT_LT(before, container_.rect.bottom);
    const RECT rect = RectOf(Window());
    EXPECT_EQ(container_.rect.bottom, rect.bottom);
}

TEST_F(DataComboContainerTest, LosesItsListButNotItsMindWithTheHostsWindow) {
    {
        const HWND page = host_.Child(L"STATIC", L"", 0, 0, {0, 0, 300, 100});
        ControlContainer container(page);
        container_.Close();
        container.Take(combo_.Get());
        EXPECT_SUCCEEDED(container.DoVerb(OLEIVERB_INPLACEACTIVATE));
        DestroyWindow(page);
        EXPECT_EQ(nullptr, Window());
        EXPECT_EQ(0, ListCount());
    }
    EXPECT_EQ(0u, combo_.Reset());
}

TEST_F(DataComboContainerTest, ContainerMayDeactivateItWholeOnceItIsNoLongerActive) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_UIACTIVATE));
    container_.onUIDeactivate = [&] {
        EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->InPlaceDeactivate());
    };
    EXPECT_SUCCEEDED(As<IOleInPlaceObject>()->InPlaceDeactivate());
    EXPECT_EQ(1,
              std::count(container_.calls.begin(), container_.calls.end(), L"OnInPlaceDeactivate"));
    EXPECT_EQ(nullptr, Window());
    EXPECT_EQ(2, ListCount());
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_INPLACEACTIVATE));
    EXPECT_NE(nullptr, Window());
}

TEST_F(DataComboContainerTest, ClosingReleasesTheContainer) {
    EXPECT_SUCCEEDED(container_.DoVerb(OLEIVERB_UIACTIVATE));
    EXPECT_LT(1u, container_.references);
    container_.Close();
    EXPECT_EQ(1u, container_.references);
    EXPECT_EQ(L"OnInPlaceDeactivate", container_.calls.back());
    EXPECT_EQ(0u, combo_.Reset());
}

} // namespace
} // namespace vndesk::test
