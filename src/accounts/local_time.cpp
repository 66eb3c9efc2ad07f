// SPDX-License-Identifier: MIT
#include "accounts/local_time.h"

#include <windows.h>

#include <oleauto.h>

#include <cwchar>

#include "text/tcvn3_literal.h"

namespace vndesk {

namespace {

// Up to the next whole minute: who is locked until 10:34:20 may try at 10:35.
constexpr double kAlmostAMinute = 59.0 / 86400;

} // namespace

std::wstring LocalTimeText(Moment utc) {
    constexpr auto kDay = L" ngày "_tcvn3;
    SYSTEMTIME time = {}, local = {}, today = {};
    VariantTimeToSystemTime(utc.days + kAlmostAMinute, &time);
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &time, &local))
        local = time;
    GetLocalTime(&today);
    wchar_t text[64];
    std::swprintf(text, 64, L"%d:%02d", local.wHour, local.wMinute);
    std::wstring shown = text;
    if (local.wDay != today.wDay || local.wMonth != today.wMonth || local.wYear != today.wYear) {
        std::swprintf(text, 64, L"%d/%d/%d", local.wDay, local.wMonth, local.wYear);
        shown.append(kDay).append(text);
    }
    return shown;
}

} // namespace vndesk
