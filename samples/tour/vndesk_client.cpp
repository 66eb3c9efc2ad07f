// SPDX-License-Identifier: MIT
#include "vndesk_client.h"

#include <comutil.h>

#include "host_error.h"

VnDeskClient::VnDeskClient() {
    CLSID clsid;
    Check(CLSIDFromProgID(L"VnDesk.clsLogon", &clsid));
    Check(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&logon_)));
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

std::wstring VnDeskClient::MgBox(const std::wstring& message, Buttons buttons,
                                 const std::wstring& title, IconValue icon) {
    _bstr_t messageText(message.c_str()), titleText(title.c_str()), pressed;
    Check(logon_->MgBox(&messageText.GetBSTR(), buttons, &titleText.GetBSTR(), icon, VARIANT_FALSE,
                        pressed.GetAddress()));
    return pressed.length() ? static_cast<const wchar_t*>(pressed) : L"";
}
