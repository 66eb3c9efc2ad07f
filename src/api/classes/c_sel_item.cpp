// SPDX-License-Identifier: MIT
#include "api/classes/c_sel_item.h"

#include <comutil.h>

#include "api/classes/window_handle.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "logon/session.h"

namespace vndesk {

namespace {

constexpr DISPID kChange = 1;

// A look-up opens the connection that the host has named, else runs on the session's.
bool OnDatabase(const std::wstring& connectionString, Settings settings,
                const std::function<void(const Database&)>& lookUp) {
    // The user is at a box: no call of the host waits for an error.
    if (settings.OnConnectionError == ConnectionErrors::Raise)
        settings.OnConnectionError = ConnectionErrors::ShowReason;
    if (connectionString.empty()) {
        Database database = CurrentDatabase();
        database.settings = settings;
        lookUp(database);
        return true;
    }
    const SessionConnection own(connectionString, settings);
    if (own.Ended())
        return false;
    lookUp(*own);
    return true;
}

} // namespace

SelItem::SelItem() : boxes_(SelectionBoxes::Make(OnDatabase)) {
    boxes_->Change = [this] { Fire(kChange); };
    boxes_->settings = [this] { return CurrentSettings(); };
}

// The boxes may be in the middle of a look-up that outlives this object: they go on alone.
SelItem::~SelItem() {
    boxes_->Unbind();
    boxes_->Change = nullptr;
    boxes_->settings = [last = CurrentSettings()] { return last; };
}

STDMETHODIMP SelItem::SetTextSel(long window) {
    return Guard([&] { boxes_->SetTextSel(ToWindow(window)); });
}

STDMETHODIMP SelItem::SetTextSelID(long window) {
    return Guard([&] { boxes_->SetTextSelID(ToWindow(window)); });
}

STDMETHODIMP SelItem::Clear() {
    return Guard([&] { boxes_->Clear(); });
}

STDMETHODIMP SelItem::get_SelName(BSTR* name) {
    return Get(name, [&] { return ToBstr(boxes_->SelName()); });
}

STDMETHODIMP SelItem::get_SelID(BSTR* code) {
    return Get(code, [&] { return ToBstr(boxes_->SelID()); });
}

STDMETHODIMP SelItem::get_SqlName(BSTR* statement) {
    return Get(statement, [&] { return ToBstr(boxes_->SqlName); });
}

STDMETHODIMP SelItem::put_SqlName(BSTR statement) {
    return Guard([&] { boxes_->SqlName = FromBstr(statement); });
}

STDMETHODIMP SelItem::get_SqlID(BSTR* statement) {
    return Get(statement, [&] { return ToBstr(boxes_->SqlID); });
}

STDMETHODIMP SelItem::put_SqlID(BSTR statement) {
    return Guard([&] { boxes_->SqlID = FromBstr(statement); });
}

STDMETHODIMP SelItem::get_SearchText(BSTR* text) {
    return Get(text, [&] { return ToBstr(boxes_->searchText); });
}

STDMETHODIMP SelItem::put_SearchText(BSTR text) {
    return Guard([&] { boxes_->searchText = FromBstr(text); });
}

STDMETHODIMP SelItem::get_ActiveConnection(VARIANT* connection) {
    return Guard([&] {
        VARIANT& result = ClearedOut(connection);
        V_BSTR(&result) = ToBstr(boxes_->connectionString);
        V_VT(&result) = VT_BSTR;
    });
}

STDMETHODIMP SelItem::put_ActiveConnection(VARIANT connection) {
    return Guard([&] {
        _variant_t text = Resolved(connection);
        CheckHr(VariantChangeType(&text, &text, 0, VT_BSTR));
        boxes_->connectionString = FromBstr(V_BSTR(&text));
    });
}

STDMETHODIMP SelItem::get_LookUpKeys(VARIANT_BOOL* value) {
    return Get(value, [&] { return boxes_->lookUpKeys ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP SelItem::put_LookUpKeys(VARIANT_BOOL value) {
    return Guard([&] { boxes_->lookUpKeys = value != VARIANT_FALSE; });
}

STDMETHODIMP SelItem::get_TabCommits(VARIANT_BOOL* value) {
    return Get(value, [&] { return boxes_->tabCommits ? VARIANT_TRUE : VARIANT_FALSE; });
}

STDMETHODIMP SelItem::put_TabCommits(VARIANT_BOOL value) {
    return Guard([&] { boxes_->tabCommits = value != VARIANT_FALSE; });
}

STDMETHODIMP SelItem::ShowPicker(VARIANT_BOOL* chosen) {
    return Get(chosen, [&] { return boxes_->ShowPicker() ? VARIANT_TRUE : VARIANT_FALSE; });
}

} // namespace vndesk
