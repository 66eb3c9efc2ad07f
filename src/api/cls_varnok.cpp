// SPDX-License-Identifier: MIT
#include "cls_varnok.h"

#include "com/kit/bstr.h"
#include "data/values.h"
#include "find/find_dialog.h"
#include "find/number_display.h"
#include "forms/keys.h"
#include "logon/session.h"

namespace vndesk {

namespace {

// The calls below fill at most this many characters.
constexpr DWORD kBuffer = 255;

// The wide calls take every letter of Vietnamese; the results are those of the ANSI ones for plain
// text.
template <class Read> BSTR ReadName(Read read) {
    wchar_t name[kBuffer] = L"";
    DWORD size = kBuffer;
    read(name, &size);
    return ToBstr(name);
}

// A path beyond the platform's limit names no file; not every platform survives the attempt.
std::wstring Path(BSTR text) {
    constexpr size_t kLongest = 32767;
    constexpr wchar_t kNoFile[] = L"?";
    std::wstring path = FromBstr(text);
    return path.size() <= kLongest ? path : kNoFile;
}

long Copy(BSTR existing, BSTR target, BOOL failIfExists) {
    return ::CopyFileW(Path(existing).c_str(), Path(target).c_str(), failIfExists);
}

} // namespace

STDMETHODIMP Varnok::GetUSName(BSTR* name) {
    return Guard([&] { SetOut(name, [&] { return ReadName(GetUserNameW); }); });
}

STDMETHODIMP Varnok::GetPCName(BSTR* name) {
    return Guard([&] { SetOut(name, [&] { return ReadName(GetComputerNameW); }); });
}

STDMETHODIMP Varnok::BackUpData(BSTR pathData, BSTR fileName, long* done) {
    return Guard([&] { SetOut(done, [&] { return Copy(pathData, fileName, FALSE); }); });
}

STDMETHODIMP Varnok::ESendKey(long key, long keyEvent) {
    return Guard([&] { vndesk::ESendKey(key, keyEvent); });
}

STDMETHODIMP Varnok::Gui_Phim(long key, long shift) {
    return Guard([&] { vndesk::Gui_Phim(key, shift); });
}

STDMETHODIMP Varnok::CopyFile(BSTR existing, BSTR target, long failIfExists, long* done) {
    return Guard([&] { SetOut(done, [&] { return Copy(existing, target, failIfExists != 0); }); });
}

STDMETHODIMP Varnok::WinHelp(long window, BSTR helpFile, long command, long data, long* done) {
    return Guard([&] {
        // Window handles fit into 32 bits and are sign-extended.
        const auto owner = reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
        SetOut(done, [&] {
            return ::WinHelpW(owner, Path(helpFile).c_str(), static_cast<UINT>(command),
                              static_cast<ULONG_PTR>(static_cast<LONG_PTR>(data)));
        });
    });
}

STDMETHODIMP Varnok::WriteRegA(BSTR section, BSTR key, BSTR value, BSTR fileName) {
    return Guard([&] {
        WritePrivateProfileStringW(FromBstr(section).c_str(), FromBstr(key).c_str(),
                                   FromBstr(value).c_str(), Path(fileName).c_str());
    });
}

STDMETHODIMP Varnok::ReadRegVlA(BSTR section, BSTR key, BSTR fileName, BSTR* value) {
    return Guard([&] {
        BSTR& result = ClearedOut(value);
        wchar_t text[kBuffer] = L"";
        GetPrivateProfileStringW(FromBstr(section).c_str(), FromBstr(key).c_str(), L"", text,
                                 kBuffer, Path(fileName).c_str());
        result = ToBstr(text);
    });
}

STDMETHODIMP Varnok::Sign(BSTR text, BSTR* sign) {
    return Guard([&] { SetOut(sign, [&] { return ToBstr(vndesk::Sign(FromBstr(text))); }); });
}

STDMETHODIMP Varnok::CvNStr(VARIANT number, BSTR* text) {
    return Guard([&] { SetOut(text, [&] { return ToBstr(vndesk::CvNStr(NullToText(number))); }); });
}

STDMETHODIMP Varnok::CvTextToN(BSTR text, double* number) {
    return Guard([&] { SetOut(number, [&] { return vndesk::CvTextToN(FromBstr(text)); }); });
}

STDMETHODIMP Varnok::Mid1(BSTR text, long position, BSTR* character) {
    return Guard(
        [&] { SetOut(character, [&] { return ToBstr(vndesk::Mid1(FromBstr(text), position)); }); });
}

STDMETHODIMP Varnok::FindShow(VARIANT connection, BSTR table, BSTR* condition) {
    return Guard([&] {
        BSTR& result = ClearedOut(condition);
        const SessionConnection session(NullToText(connection));
        result = ToBstr(ShowFindDialog(FromBstr(table), nullptr));
    });
}

} // namespace vndesk
