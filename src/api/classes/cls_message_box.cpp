// SPDX-License-Identifier: MIT
#include "api/classes/cls_message_box.h"

#include "api/classes/owner_window.h"
#include "comkit/base/bstr.h"
#include "msgbox/kept_answer.h"

namespace vndesk {

namespace {

// The numbers of the type library are those of the box.
static_assert(long{vnAnswerOK} == static_cast<long>(NoticeAnswer::Ok) &&
              long{vnAnswerNo} == static_cast<long>(NoticeAnswer::No));

NoticeAnswer ToAnswer(MessageAnswers value) {
    if (value < vnAnswerNone || value > vnAnswerNo)
        throw ComError(E_INVALIDARG, L"There is no such button.");
    return static_cast<NoticeAnswer>(value);
}

} // namespace

HRESULT MessageBoxObject::GetText(std::wstring Notice::*text, BSTR* value) {
    return Get(value, [&] { return ToBstr(notice_.*text); });
}

HRESULT MessageBoxObject::PutText(std::wstring Notice::*text, BSTR value) {
    return Guard([&] { notice_.*text = FromBstr(value); });
}

HRESULT MessageBoxObject::PutAnswer(NoticeAnswer Notice::*place, MessageAnswers value) {
    return Guard([&] { notice_.*place = ToAnswer(value); });
}

STDMETHODIMP MessageBoxObject::get_Text(BSTR* value) {
    return GetText(&Notice::text, value);
}
STDMETHODIMP MessageBoxObject::put_Text(BSTR value) {
    return PutText(&Notice::text, value);
}
STDMETHODIMP MessageBoxObject::get_Title(BSTR* value) {
    return GetText(&Notice::title, value);
}
STDMETHODIMP MessageBoxObject::put_Title(BSTR value) {
    return PutText(&Notice::title, value);
}
STDMETHODIMP MessageBoxObject::get_Heading(BSTR* value) {
    return GetText(&Notice::heading, value);
}
STDMETHODIMP MessageBoxObject::put_Heading(BSTR value) {
    return PutText(&Notice::heading, value);
}
STDMETHODIMP MessageBoxObject::get_Details(BSTR* value) {
    return GetText(&Notice::details, value);
}
STDMETHODIMP MessageBoxObject::put_Details(BSTR value) {
    return PutText(&Notice::details, value);
}

STDMETHODIMP MessageBoxObject::get_Buttons(::Buttons* value) {
    return Get(value, [&] { return static_cast<::Buttons>(notice_.buttons); });
}
STDMETHODIMP MessageBoxObject::put_Buttons(::Buttons value) {
    return Guard([&] { notice_.buttons = value; });
}
STDMETHODIMP MessageBoxObject::get_Icon(IconValue* value) {
    return Get(value, [&] { return static_cast<IconValue>(notice_.icon); });
}
STDMETHODIMP MessageBoxObject::put_Icon(IconValue value) {
    return Guard([&] { notice_.icon = value; });
}

STDMETHODIMP MessageBoxObject::get_DefaultButton(MessageAnswers* value) {
    return Get(value, [&] { return static_cast<MessageAnswers>(notice_.defaultButton); });
}
STDMETHODIMP MessageBoxObject::put_DefaultButton(MessageAnswers value) {
    return PutAnswer(&Notice::defaultButton, value);
}
STDMETHODIMP MessageBoxObject::get_CancelButton(MessageAnswers* value) {
    return Get(value, [&] { return static_cast<MessageAnswers>(notice_.cancelButton); });
}
STDMETHODIMP MessageBoxObject::put_CancelButton(MessageAnswers value) {
    return PutAnswer(&Notice::cancelButton, value);
}

STDMETHODIMP MessageBoxObject::SetCaption(MessageAnswers button, BSTR caption) {
    return Guard([&] {
        const NoticeAnswer answer = ToAnswer(button);
        if (answer == NoticeAnswer::None)
            throw ComError(E_INVALIDARG, L"There is no such button.");
        notice_.captions[static_cast<size_t>(answer)] = FromBstr(caption);
    });
}

STDMETHODIMP MessageBoxObject::get_CheckText(BSTR* value) {
    return GetText(&Notice::checkText, value);
}
STDMETHODIMP MessageBoxObject::put_CheckText(BSTR value) {
    return PutText(&Notice::checkText, value);
}
STDMETHODIMP MessageBoxObject::get_CheckValue(VARIANT_BOOL* value) {
    return Get(value, [&] { return notice_.checked ? VARIANT_TRUE : VARIANT_FALSE; });
}
STDMETHODIMP MessageBoxObject::put_CheckValue(VARIANT_BOOL value) {
    return Guard([&] { notice_.checked = value != VARIANT_FALSE; });
}

STDMETHODIMP MessageBoxObject::get_DontShowKey(BSTR* value) {
    return Get(value, [&] { return ToBstr(dontShowKey_); });
}
STDMETHODIMP MessageBoxObject::put_DontShowKey(BSTR value) {
    return Guard([&] { dontShowKey_ = FromBstr(value); });
}

STDMETHODIMP MessageBoxObject::ResetDontShow() {
    return Guard([&] {
        if (dontShowKey_.empty())
            throw ComError(E_INVALIDARG, L"DontShowKey is empty.");
        ForgetAnswer(dontShowKey_);
    });
}

STDMETHODIMP MessageBoxObject::get_TimeoutSeconds(long* value) {
    return Get(value, [&] { return notice_.timeoutSeconds; });
}
STDMETHODIMP MessageBoxObject::put_TimeoutSeconds(long value) {
    return Guard([&] {
        if (value < 0)
            throw ComError(E_INVALIDARG, L"TimeoutSeconds is 0 or a number of seconds.");
        notice_.timeoutSeconds = value;
    });
}

STDMETHODIMP MessageBoxObject::Show(VARIANT owner, long* answer) {
    return Guard([&] {
        long& result = ClearedOut(answer);
        // The host may change the object while the box is open.
        Notice shown = notice_;
        shown.owner = OwnerWindow(owner);
        const NoticeAnswer given =
            dontShowKey_.empty() ? ShowNotice(shown) : ShowUnlessAnswered(shown, dontShowKey_);
        notice_.checked = shown.checked;
        result = static_cast<long>(given);
    });
}

} // namespace vndesk
