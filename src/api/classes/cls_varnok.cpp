// SPDX-License-Identifier: MIT
#include "api/classes/cls_varnok.h"

#include <comutil.h>

#include <cmath>

#include "api/classes/window_handle.h"
#include "comkit/base/bstr.h"
#include "comkit/base/variant.h"
#include "data/connect/values.h"
#include "data/text/number_text.h"
#include "find/find_dialog.h"
#include "find/text/number_display.h"
#include "forms/keys/enter_moves_on.h"
#include "forms/keys/keys.h"
#include "logon/session.h"

namespace vndesk {

namespace {

// The calls below fill at most this many characters.
constexpr DWORD kBuffer = 255;

// The W functions keep every Vietnamese letter; for ASCII they give what the A functions give.
template <class Read> BSTR ReadName(Read read) {
    wchar_t name[kBuffer] = L"";
    DWORD size = kBuffer;
    read(name, &size);
    return ToBstr(name);
}

// No path is longer; Wine's file functions overrun the stack over one that is.
const wchar_t* Path(BSTR text) {
    constexpr UINT kLongest = 32767;
    constexpr const wchar_t* kNoFile = L"?";
    return SysStringLen(text) <= kLongest ? text : kNoFile;
}

// A null text is an empty one where the call below needs a path.
const wchar_t* NeededPath(BSTR text) {
    return text ? Path(text) : L"";
}

long Copy(BSTR existing, BSTR target, BOOL failIfExists) {
    return ::CopyFileW(NeededPath(existing), NeededPath(target), failIfExists);
}

// VariantChangeType writes small numbers with an exponent (Windows and Wine from different sizes
// on), whose digits would be grouped.
std::wstring NumberText(const VARIANT& number) {
    _variant_t value;
    if (!IsSound(number) || FAILED(VariantCopyInd(&value, const_cast<VARIANT*>(&number))))
        return {};
    if (V_VT(&value) == VT_R8 && std::isfinite(V_R8(&value)))
        return ToDecimals(V_R8(&value), kDoubleDigits);
    if (V_VT(&value) == VT_R4 && std::isfinite(V_R4(&value)))
        return ToDecimals(V_R4(&value), kSingleDigits);
    return NullToText(value);
}

} // namespace

STDMETHODIMP Varnok::GetUSName(BSTR* name) {
    return Get(name, [&] { return ReadName(GetUserNameW); });
}

STDMETHODIMP Varnok::GetPCName(BSTR* name) {
    return Get(name, [&] { return ReadName(GetComputerNameW); });
}

STDMETHODIMP Varnok::BackUpData(BSTR pathData, BSTR fileName, long* done) {
    return Get(done, [&] { return Copy(pathData, fileName, FALSE); });
}

STDMETHODIMP Varnok::ESendKey(long key, long keyEvent) {
    return Guard([&] { vndesk::ESendKey(key, keyEvent); });
}

STDMETHODIMP Varnok::Gui_Phim(long key, long shift) {
    return Guard([&] { vndesk::Gui_Phim(key, shift); });
}

STDMETHODIMP Varnok::CopyFile(BSTR existing, BSTR target, long failIfExists, long* done) {
    return Get(done, [&] { return Copy(existing, target, failIfExists != 0); });
}

STDMETHODIMP Varnok::WinHelp(long window, BSTR helpFile, long command, long data, long* done) {
    return Get(done, [&] {
        return ::WinHelpW(ToWindow(window), NeededPath(helpFile), static_cast<UINT>(command),
                          static_cast<ULONG_PTR>(static_cast<LONG_PTR>(data)));
    });
}

// Null texts have meanings of their own to the profile functions: they delete, and list names.
STDMETHODIMP Varnok::WriteRegA(BSTR section, BSTR key, BSTR value, BSTR fileName) {
    return Guard([&] { WritePrivateProfileStringW(section, key, value, Path(fileName)); });
}

STDMETHODIMP Varnok::ReadRegVlA(BSTR section, BSTR key, BSTR fileName, BSTR* value) {
    return Guard([&] {
        BSTR& result = ClearedOut(value);
        wchar_t text[kBuffer] = L"";
        GetPrivateProfileStringW(section, key, L"", text, kBuffer, Path(fileName));
        result = ToBstr(text);
    });
}

STDMETHODIMP Varnok::Sign(BSTR text, BSTR* sign) {
    return Get(sign, [&] { return ToBstr(vndesk::Sign(FromBstr(text))); });
}

STDMETHODIMP Varnok::CvNStr(VARIANT number, BSTR* text) {
    return Get(text, [&] { return ToBstr(vndesk::CvNStr(NumberText(number))); });
}

STDMETHODIMP Varnok::CvTextToN(BSTR text, double* number) {
    return Get(number, [&] { return vndesk::CvTextToN(FromBstr(text)); });
}

STDMETHODIMP Varnok::Mid1(BSTR text, long position, BSTR* character) {
    return Get(character, [&] { return ToBstr(vndesk::Mid1(FromBstr(text), position)); });
}

STDMETHODIMP Varnok::FindShow(VARIANT connection, BSTR table, BSTR* condition) {
    return Guard([&] {
        BSTR& result = ClearedOut(condition);
        const SessionConnection session(NullToText(connection));
        result = ToBstr(ShowFindDialog(*session, FromBstr(table), nullptr).text);
    });
}

STDMETHODIMP Varnok::EnterMovesOn(long window, VARIANT_BOOL on) {
    return Guard([&] { SetEnterMovesOn(ToWindow(window), on != VARIANT_FALSE); });
}

} // namespace vndesk
