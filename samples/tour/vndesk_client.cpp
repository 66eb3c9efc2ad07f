// SPDX-License-Identifier: MIT
#include "vndesk_client.h"

#include <comutil.h>

#include "host_error.h"

namespace {

template <class Interface> void Create(const wchar_t* progId, Interface** object) {
    CLSID clsid;
    Check(CLSIDFromProgID(progId, &clsid));
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                           reinterpret_cast<void**>(object)));
}

std::wstring TextOf(const _bstr_t& text) {
    return text.length() ? static_cast<const wchar_t*>(text) : L"";
}

} // namespace

VnDeskClient::VnDeskClient() {
    Create(L"VnDesk.clsLogon", logon_.GetAddressOf());
}

void VnDeskClient::UseSettings() {
    constexpr long kTries = 5;
    Microsoft::WRL::ComPtr<ISettings> settings;
    Create(L"VnDesk.clsSettings", settings.GetAddressOf());
    Check(settings->UseRecommended());
    Check(settings->put_PasswordScheme(vnPasswordPbkdf2));
    Check(settings->put_LockAfter(kTries));
    Check(settings->put_Audit(VARIANT_TRUE));
    Check(logon_->putref_Settings(settings.Get()));
    settings_ = settings;
}

long VnDeskClient::ShowLogon(const std::wstring& connect) {
    // Texts go by reference, as Visual Basic passes them; a BSTR of our own is what is needed.
    _bstr_t text(connect.c_str());
    long code = 0;
    Check(logon_->ShowLogon(&text.GetBSTR(), &code));
    return code;
}

void VnDeskClient::ShowUser(const std::wstring& connect, const std::wstring& userName) {
    _bstr_t text(connect.c_str()), name(userName.c_str());
    Check(logon_->ShowUser(&text.GetBSTR(), &name.GetBSTR()));
}

void VnDeskClient::UserManager(const std::wstring& connect) {
    _bstr_t text(connect.c_str());
    Check(logon_->UserManager(&text.GetBSTR()));
}

void VnDeskClient::ShowGroup(const std::wstring& connect) {
    _bstr_t text(connect.c_str());
    Check(logon_->ShowGroup(&text.GetBSTR()));
}

std::wstring VnDeskClient::Search(const std::wstring& connect, const std::wstring& table,
                                  HWND owner) {
    Microsoft::WRL::ComPtr<ISearch2> search;
    Create(L"VnDesk.clsSearch", search.GetAddressOf());
    Check(search->putref_Settings(settings_.Get()));
    Check(search->put_ActiveConnection(_variant_t(connect.c_str())));
    Check(search->put_TableSearch(_bstr_t(table.c_str())));
    long modal = 1;
    // Window handles fit into a long.
    Check(search->Show(&modal, _variant_t(static_cast<long>(reinterpret_cast<LONG_PTR>(owner)))));
    _bstr_t condition;
    Check(search->get_Result(condition.GetAddress()));
    return TextOf(condition);
}

std::wstring VnDeskClient::MgBox(const std::wstring& message, Buttons buttons,
                                 const std::wstring& title, IconValue icon) {
    _bstr_t messageText(message.c_str()), titleText(title.c_str()), pressed;
    Check(logon_->MgBox(&messageText.GetBSTR(), buttons, &titleText.GetBSTR(), icon, VARIANT_FALSE,
                        pressed.GetAddress()));
    return TextOf(pressed);
}
