// SPDX-License-Identifier: MIT
// The registered type library: what early-bound hosts and calls between threads need.
#include "check/probes.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "check/machine.h"

namespace vndesk::check {

void ProbeTypeLibrary(const OwnTypeLibrary& own, const std::wstring& library, Findings& findings) {
    wchar_t version[16];
    swprintf(version, 16, L"%x.%x", own.major, own.minor);
    const std::wstring key =
        L"TypeLib\\" + GuidText(own.id) + L"\\" + version + L"\\0\\win" + kBitsText;
    const std::wstring path = Unquoted(RegistryText(HKEY_CLASSES_ROOT, key).value_or(L""));
    if (path.empty()) {
        findings.push_back({Id::TypeLibraryNotRegistered, {kBitsText}});
        return;
    }
    if (!FileExists(path)) {
        findings.push_back({Id::TypeLibraryFileMissing, {path}});
        return;
    }
    Microsoft::WRL::ComPtr<ITypeLib> loaded;
    const HRESULT hr = LoadRegTypeLib(own.id, own.major, own.minor, LOCALE_NEUTRAL, &loaded);
    if (FAILED(hr)) {
        findings.push_back({Id::TypeLibraryNotLoaded, {path, ErrorText(hr)}});
        return;
    }
    findings.push_back({Id::TypeLibraryRegistered, {path}});
    if (!library.empty() && !Same(path, library))
        findings.push_back({Id::TypeLibraryOtherFile, {path}});
}

} // namespace vndesk::check
