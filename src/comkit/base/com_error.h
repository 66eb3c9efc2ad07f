// SPDX-License-Identifier: MIT
// Errors inside are exceptions; this is where they become HRESULT + IErrorInfo, and where failed
// calls become exceptions.
#pragma once

#include <windows.h>

#include <exception>
#include <string>
#include <utility>

namespace vndesk {

// An error with its own HRESULT. The description is what a script reads in Err.Description.
class ComError : public std::exception {
public:
    explicit ComError(HRESULT code, std::wstring description = {})
        : code_(code), description_(std::move(description)) {}

    HRESULT Code() const noexcept { return code_; }
    const std::wstring& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return "COM error"; }

private:
    HRESULT code_;
    std::wstring description_;
};

// A caught error as plain data, for places that judge errors instead of passing them on.
struct ErrorState {
    HRESULT code = S_OK;
    std::wstring description;
    explicit operator bool() const noexcept { return FAILED(code); }
};

// The exception now being handled, as data. Only inside a catch block. Its description is empty
// where memory is too short for it.
ErrorState CurrentError() noexcept;

// FormatMessage's text for an error code, without line ends.
std::wstring SystemMessage(HRESULT code);

void CheckHr(HRESULT code);

// As CheckHr, with the description that the failed object left (ISupportErrorInfo).
void CheckCall(HRESULT code, IUnknown* object, REFIID iid);

// Sets IErrorInfo from the exception now being handled and returns its HRESULT.
HRESULT ReportCurrentError(REFIID iid, const wchar_t* source) noexcept;

// Runs the steps. The first error ends them and is returned, not thrown.
template <class Steps> ErrorState Trap(Steps&& steps) noexcept {
    try {
        steps();
        return {};
    } catch (...) {
        return CurrentError();
    }
}

// The same where only the number is asked for: members of interfaces without error information.
template <class Steps> HRESULT ToHresult(Steps&& steps) noexcept {
    return Trap(steps).code;
}

} // namespace vndesk
