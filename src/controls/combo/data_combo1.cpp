// SPDX-License-Identifier: MIT
#include "controls/combo/data_combo1.h"

#include <olectl.h>

#include <optional>

#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "controls/combo/himetric.h"
#include "forms/look/theme_scope.h"

namespace vndesk {

namespace {

// DISPIDs of the members that have no standard one.
constexpr DISPID kListIndex1 = 1;
constexpr DISPID kValue = 2;
constexpr DISPID kItemData = 3;

static_assert(long{vnAccentSensitive} == static_cast<long>(Sensitivity::Sensitive) &&
              long{vnAccentSmart} == static_cast<long>(Sensitivity::Smart) &&
              long{vnAccentInsensitive} == static_cast<long>(Sensitivity::Insensitive));

// The index that AddItem is given, if any.
std::optional<long> PlaceFrom(const VARIANT& index) {
    if (V_VT(&index) == VT_ERROR && V_ERROR(&index) == DISP_E_PARAMNOTFOUND)
        return std::nullopt;
    _variant_t number = Resolved(index);
    if (V_VT(&number) == VT_EMPTY)
        return std::nullopt;
    if (FAILED(VariantChangeType(&number, &number, 0, VT_I4)))
        throw ComError(STD_CTL_SCODE(13), L"Type mismatch");
    return V_I4(&number);
}

short ToShort(long number) {
    return static_cast<short>(number);
}

} // namespace

DataCombo1::~DataCombo1() {
    if (!core_)
        return;
    const HWND window = core_->Window();
    core_->onDestroy = nullptr;
    core_->onFocus = nullptr;
    DestroyWindow(window);
}

void* DataCombo1::Find(REFIID iid) {
    // Interfaces that others inherit.
    if (iid == __uuidof(IDataCombo1))
        return static_cast<IDataCombo1*>(this);
    if (iid == __uuidof(IOleWindow))
        return static_cast<IOleWindow*>(static_cast<IOleInPlaceObject*>(this));
    if (iid == __uuidof(IViewObject))
        return static_cast<IViewObject*>(static_cast<IViewObject2*>(this));
    if (iid == __uuidof(IPersist))
        return static_cast<IPersist*>(static_cast<IPersistStreamInit*>(this));
    return EventObject::Find(iid);
}

std::vector<ConnectionPoint*> DataCombo1::ConnectionPoints() {
    auto points = EventObject::ConnectionPoints();
    points.push_back(&changes_);
    return points;
}

// --- the window and its events ---

DataCombo& DataCombo1::Core() {
    if (core_)
        return *core_;
    {
        const ThemeScope theme;
        // No container yet: HWND_MESSAGE is a parent that is never seen.
        core_ = &DataCombo::Create(HWND_MESSAGE);
    }
    HookEvents();
    core_->SetFont((CurrentFont(), font_.Handle()));
    SetWindowPos(core_->Window(), nullptr, 0, 0, FromHimetric(width_), core_->Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return *core_;
}

void DataCombo1::HookEvents() {
    core_->onClick = [this] {
        ViewChanged();
        Fire(DISPID_CLICK);
    };
    core_->onDoubleClick = [this] { Fire(DISPID_DBLCLICK); };
    core_->onKeyDown = [this](short& key, short& shift) {
        Fire(DISPID_KEYDOWN, {ByReference(key), ByReference(shift)});
    };
    core_->onKeyPress = [this](short& character) {
        Fire(DISPID_KEYPRESS, {ByReference(character)});
    };
    core_->onKeyUp = [this](short& key, short& shift) {
        Fire(DISPID_KEYUP, {ByReference(key), ByReference(shift)});
    };
    core_->onFocus = [this](bool has) { OnFocus(has); };
    core_->onDestroy = [this] { OnCoreDestroyed(); };
}

// No events at design time or while frozen.
void DataCombo1::Fire(DISPID event, std::initializer_list<_variant_t> arguments) {
    if (userMode_ && frozen_ == 0)
        EventObject::Fire(event, arguments);
}

void DataCombo1::RequestEdit(DISPID property) {
    bool allowed = true;
    changes_.ForEach<IPropertyNotifySink>(
        [&](IPropertyNotifySink* sink) { allowed &= sink->OnRequestEdit(property) != S_FALSE; });
    if (!allowed)
        throw ComError(CTL_E_SETNOTPERMITTED, L"Set not permitted");
}

void DataCombo1::Changed(DISPID property) {
    dirty_ = true;
    changes_.ForEach<IPropertyNotifySink>(
        [&](IPropertyNotifySink* sink) { sink->OnChanged(property); });
    ViewChanged();
}

// --- appearance ---

STDMETHODIMP DataCombo1::get_BackColor(OLE_COLOR* value) {
    return Get(value, [&] { return Core().BackColor(); });
}

STDMETHODIMP DataCombo1::put_BackColor(OLE_COLOR value) {
    return Let(DISPID_BACKCOLOR, [&] { Core().SetBackColor(value); });
}

STDMETHODIMP DataCombo1::get_ForeColor(OLE_COLOR* value) {
    return Get(value, [&] { return Core().ForeColor(); });
}

STDMETHODIMP DataCombo1::put_ForeColor(OLE_COLOR value) {
    return Let(DISPID_FORECOLOR, [&] { Core().SetForeColor(value); });
}

STDMETHODIMP DataCombo1::get_Enabled(VARIANT_BOOL* value) {
    return Get(value, [&] { return Core().Enabled() ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP DataCombo1::put_Enabled(VARIANT_BOOL value) {
    return Let(DISPID_ENABLED, [&] { Core().SetEnabled(value != VARIANT_FALSE); });
}

STDMETHODIMP DataCombo1::get_Font(IFontDisp** value) {
    return Guard([&] {
        IFontDisp*& font = ClearedOut(value);
        CheckHr(CurrentFont()->QueryInterface(IID_PPV_ARGS(&font)));
    });
}

STDMETHODIMP DataCombo1::putref_Font(IFontDisp* value) {
    if (!value)
        return Guard([] { throw ComError(E_POINTER); });
    return Let(DISPID_FONT, [&] {
        font_.Set(value);
        ownFont_ = true;
        ApplyFont();
    });
}

STDMETHODIMP DataCombo1::put_Font(IFontDisp* value) {
    return putref_Font(value);
}

STDMETHODIMP DataCombo1::get_BackStyle(short* value) {
    return Get(value, [&] { return backStyle_; });
}

STDMETHODIMP DataCombo1::put_BackStyle(short value) {
    return Let(DISPID_BACKSTYLE, [&] { backStyle_ = value; });
}

STDMETHODIMP DataCombo1::get_BorderStyle(short* value) {
    return Get(value, [&] { return borderStyle_; });
}

STDMETHODIMP DataCombo1::put_BorderStyle(short value) {
    return Let(DISPID_BORDERSTYLE, [&] { borderStyle_ = value; });
}

STDMETHODIMP DataCombo1::Refresh() {
    return Guard([&] { Core().Refresh(); });
}

// --- items ---

STDMETHODIMP DataCombo1::get_ListIndex(short* value) {
    return Get(value, [&] { return ToShort(Core().ListIndex()); });
}

STDMETHODIMP DataCombo1::put_ListIndex(short value) {
    return Let(DISPID_LISTINDEX, [&] { Core().SetListIndex(value); });
}

STDMETHODIMP DataCombo1::get_ListIndex1(short* value) {
    return Get(value, [&] { return ToShort(Core().ListIndex1()); });
}

STDMETHODIMP DataCombo1::put_ListIndex1(short value) {
    return Let(kListIndex1, [&] { Core().SetListIndex1(value); });
}

STDMETHODIMP DataCombo1::AddItem(BSTR item, VARIANT index) {
    return Guard([&] { Core().AddItem(FromBstr(item), PlaceFrom(index)); });
}

STDMETHODIMP DataCombo1::get_Text(BSTR* value) {
    return Get(value, [&] { return ToBstr(Core().Text()); });
}

STDMETHODIMP DataCombo1::put_Text(BSTR value) {
    return Let(DISPID_TEXT, [&] { Core().SetText(FromBstr(value)); });
}

STDMETHODIMP DataCombo1::get_Value(BSTR* value) {
    return Get(value, [&] { return ToBstr(Core().Value()); });
}

STDMETHODIMP DataCombo1::put_Value(BSTR value) {
    // No error, even if the container refuses: a value that no item has is none either.
    return Guard([&] {
        Trap([&] {
            RequestEdit(kValue);
            Core().SetValue(FromBstr(value));
            Changed(kValue);
        });
    });
}

STDMETHODIMP DataCombo1::get_ItemData(long index, BSTR* value) {
    return Get(value, [&] { return ToBstr(Core().ItemData(index)); });
}

STDMETHODIMP DataCombo1::put_ItemData(long index, BSTR value) {
    return Let(kItemData, [&] { Core().SetItemData(index, FromBstr(value)); });
}

STDMETHODIMP DataCombo1::Clear() {
    return Guard([&] { Core().Clear(); });
}

STDMETHODIMP DataCombo1::get_NewIndex(short* value) {
    return Get(value, [&] { return ToShort(Core().NewIndex()); });
}

STDMETHODIMP DataCombo1::get_ListCount(short* value) {
    return Get(value, [&] { return ToShort(Core().ListCount()); });
}

STDMETHODIMP DataCombo1::RemoveItem(short index) {
    return Guard([&] { Core().RemoveItem(index); });
}

STDMETHODIMP DataCombo1::get_List(short index, BSTR* value) {
    return Get(value, [&] { return ToBstr(Core().List(index)); });
}

STDMETHODIMP DataCombo1::put_List(short index, BSTR value) {
    return Let(DISPID_LIST, [&] { Core().SetList(index, FromBstr(value)); });
}

STDMETHODIMP DataCombo1::get_AccentSensitivity(AccentSensitivity* value) {
    return Get(value, [&] { return static_cast<AccentSensitivity>(Core().Accents()); });
}

STDMETHODIMP DataCombo1::put_AccentSensitivity(AccentSensitivity value) {
    return Guard([&] {
        if (value < vnAccentSensitive || value > vnAccentInsensitive)
            throw ComError(CTL_E_INVALIDPROPERTYVALUE, L"Invalid property value");
        Core().SetAccents(static_cast<Sensitivity>(value));
    });
}

} // namespace vndesk
