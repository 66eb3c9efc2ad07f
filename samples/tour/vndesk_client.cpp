// SPDX-License-Identifier: MIT
#include "vndesk_client.h"

#include <comutil.h>

#include "create.h"
#include "host_error.h"

namespace {

std::wstring TextOf(const _bstr_t& text) {
    return text.length() ? static_cast<const wchar_t*>(text) : L"";
}

// Window handles fit into a long.
_variant_t HandleOf(HWND window) {
    return static_cast<long>(reinterpret_cast<LONG_PTR>(window));
}

} // namespace

VnDeskClient::VnDeskClient() {
    logon_ = Create<ILogon2>(L"VnDesk.clsLogon");
}

void VnDeskClient::UseSettings() {
    constexpr long kTries = 5;
    const auto settings = Create<ISettings>(L"VnDesk.clsSettings");
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
    const auto search = Create<ISearch2>(L"VnDesk.clsSearch");
    Check(search->putref_Settings(settings_.Get()));
    Check(search->put_ActiveConnection(_variant_t(connect.c_str())));
    Check(search->put_TableSearch(_bstr_t(table.c_str())));
    long modal = 1;
    Check(search->Show(&modal, HandleOf(owner)));
    _bstr_t condition;
    Check(search->get_Result(condition.GetAddress()));
    return TextOf(condition);
}

void VnDeskClient::SetLogon(const LogonLook& look) {
    Check(logon_->put_Caption(_bstr_t(look.caption.c_str())));
    Check(logon_->put_Banner(_bstr_t(look.banner.c_str())));
    Check(logon_->put_RememberKey(_bstr_t(look.rememberKey.c_str())));
    Check(logon_->put_PickUser(VARIANT_TRUE));
}

void VnDeskClient::SetOwner(HWND window) {
    Check(logon_->put_Owner(HandleOf(window)));
}

long VnDeskClient::Ask(const std::wstring& text, Buttons buttons, IconValue icon,
                       const std::wstring& title) {
    long answer = 0;
    Check(logon_->Ask(_bstr_t(text.c_str()), buttons, icon, _bstr_t(title.c_str()), &answer));
    return answer;
}

bool VnDeskClient::Confirm(const Question& question, HWND owner) {
    const auto box = Create<IMessageBox>(L"VnDesk.clsMessageBox");
    Check(box->put_Heading(_bstr_t(question.heading)));
    Check(box->put_Text(_bstr_t(question.text)));
    Check(box->put_Details(_bstr_t(question.details.c_str())));
    Check(box->put_Buttons(vbOKCancel));
    Check(box->put_Icon(vbQuestion));
    Check(box->SetCaption(vnAnswerOK, _bstr_t(question.yes)));
    Check(box->put_CheckText(_bstr_t(question.dontAsk)));
    Check(box->put_DontShowKey(_bstr_t(question.dontAskKey)));
    long answer = 0;
    Check(box->Show(HandleOf(owner), &answer));
    return answer == vnAnswerOK;
}
