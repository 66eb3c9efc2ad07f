// SPDX-License-Identifier: MIT
// clsMessageBox: a message with heading, details, own captions, a check box and a limit of time.
#pragma once

#include "comkit/object/dispatch.h"
#include "msgbox/notice_box.h"
#include "vndesk_idl.h"

namespace vndesk {

class MessageBoxObject final : public ClassObject<MessageBoxObject, clsMessageBox, IMessageBox> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.clsMessageBox";

    STDMETHODIMP get_Text(BSTR* value) override;
    STDMETHODIMP put_Text(BSTR value) override;
    STDMETHODIMP get_Title(BSTR* value) override;
    STDMETHODIMP put_Title(BSTR value) override;
    STDMETHODIMP get_Heading(BSTR* value) override;
    STDMETHODIMP put_Heading(BSTR value) override;
    STDMETHODIMP get_Details(BSTR* value) override;
    STDMETHODIMP put_Details(BSTR value) override;
    STDMETHODIMP get_Buttons(::Buttons* value) override;
    STDMETHODIMP put_Buttons(::Buttons value) override;
    STDMETHODIMP get_Icon(IconValue* value) override;
    STDMETHODIMP put_Icon(IconValue value) override;
    STDMETHODIMP get_DefaultButton(MessageAnswers* value) override;
    STDMETHODIMP put_DefaultButton(MessageAnswers value) override;
    STDMETHODIMP get_CancelButton(MessageAnswers* value) override;
    STDMETHODIMP put_CancelButton(MessageAnswers value) override;
    STDMETHODIMP SetCaption(MessageAnswers button, BSTR caption) override;
    STDMETHODIMP get_CheckText(BSTR* value) override;
    STDMETHODIMP put_CheckText(BSTR value) override;
    STDMETHODIMP get_CheckValue(VARIANT_BOOL* value) override;
    STDMETHODIMP put_CheckValue(VARIANT_BOOL value) override;
    STDMETHODIMP get_DontShowKey(BSTR* value) override;
    STDMETHODIMP put_DontShowKey(BSTR value) override;
    STDMETHODIMP ResetDontShow() override;
    STDMETHODIMP get_TimeoutSeconds(long* value) override;
    STDMETHODIMP put_TimeoutSeconds(long value) override;
    STDMETHODIMP Show(VARIANT owner, long* answer) override;

private:
    HRESULT GetText(std::wstring Notice::*text, BSTR* value);
    HRESULT PutText(std::wstring Notice::*text, BSTR value);
    HRESULT PutAnswer(NoticeAnswer Notice::*place, MessageAnswers value);

    Notice notice_;
    std::wstring dontShowKey_;
};

} // namespace vndesk
