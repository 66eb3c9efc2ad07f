// SPDX-License-Identifier: MIT
#include "comkit/base/com_error.h"

#include <olectl.h>
#include <windows.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <memory>
#include <new>
#include <stdexcept>

namespace vndesk {

using Microsoft::WRL::ComPtr;

namespace {

// Visual Basic's error 9, for which olectl.h has no name.
constexpr HRESULT kSubscriptOutOfRange = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, 9);

} // namespace

std::wstring SystemMessage(HRESULT code) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    const std::unique_ptr<wchar_t, decltype(&LocalFree)> owner(text, LocalFree);
    std::wstring message(text ? text : L"", length);
    while (!message.empty() && message.back() <= L' ')
        message.pop_back();
    return message;
}

ErrorState CurrentError() noexcept {
    ErrorState error;
    // Where memory is too short for the description, the number alone is kept.
    const auto tell = [&error](HRESULT code, auto&& description) {
        error.code = code;
        try {
            error.description = description();
        } catch (...) {
        }
    };
    const auto system = [&](HRESULT code) { tell(code, [code] { return SystemMessage(code); }); };
    try {
        throw;
    } catch (const ComError& thrown) {
        tell(thrown.Code(), [&] {
            return thrown.Description().empty() ? SystemMessage(thrown.Code())
                                                : thrown.Description();
        });
    } catch (const std::overflow_error&) {
        tell(CTL_E_OVERFLOW, [] { return L"Overflow"; });
    } catch (const std::invalid_argument&) {
        tell(CTL_E_ILLEGALFUNCTIONCALL, [] { return L"Invalid procedure call or argument"; });
    } catch (const std::out_of_range&) {
        tell(kSubscriptOutOfRange, [] { return L"Subscript out of range"; });
    } catch (const std::bad_alloc&) {
        system(E_OUTOFMEMORY);
    } catch (const std::length_error&) {
        system(E_OUTOFMEMORY);
    } catch (...) {
        system(E_UNEXPECTED);
    }
    return error;
}

void CheckHr(HRESULT code) {
    if (FAILED(code))
        throw ComError(code);
}

void CheckCall(HRESULT code, IUnknown* object, REFIID iid) {
    if (SUCCEEDED(code))
        return;
    ComPtr<ISupportErrorInfo> support;
    ComPtr<IErrorInfo> info;
    std::wstring description;
    // Only ISupportErrorInfo tells that the object has set the error information: without it, what
    // is pending may be another object's.
    if (object && SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&support))) &&
        support->InterfaceSupportsErrorInfo(iid) == S_OK && GetErrorInfo(0, &info) == S_OK) {
        BSTR text = nullptr;
        if (SUCCEEDED(info->GetDescription(&text)) && text)
            description.assign(text, SysStringLen(text));
        SysFreeString(text);
    }
    throw ComError(code, std::move(description));
}

HRESULT ReportCurrentError(REFIID iid, const wchar_t* source) noexcept {
    ErrorState error = CurrentError();
    ComPtr<ICreateErrorInfo> create;
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(&create)) && SUCCEEDED(create.As(&info))) {
        create->SetGUID(iid);
        create->SetSource(const_cast<wchar_t*>(source));
        create->SetDescription(error.description.data());
        SetErrorInfo(0, info.Get());
    }
    return error.code;
}

} // namespace vndesk
