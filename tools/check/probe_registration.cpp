// SPDX-License-Identifier: MIT
// Which registration of the library is in force, the file behind it, and each class through COM.
#include "check/probes.h"

#include <algorithm>

#include <wrl/client.h>

#include "check/machine.h"
#include "vndesk_version.h"

namespace vndesk::check {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";

std::wstring ServerKey(const LibraryClass& entry) {
    return L"CLSID\\" + GuidText(entry.clsid) + L"\\InprocServer32";
}

std::wstring Server(HKEY root, const std::wstring& key, REGSAM view = 0) {
    return Unquoted(RegistryText(root, key, nullptr, view).value_or(L""));
}

// What one class is registered as.
struct Registered {
    const LibraryClass* entry;
    std::wstring server; // what COM finds: the user's or the machine's
    std::wstring user;
    std::wstring machine;

    explicit Registered(const LibraryClass& wanted)
        : entry(&wanted), server(Server(HKEY_CLASSES_ROOT, ServerKey(wanted))),
          user(Server(HKEY_CURRENT_USER, kClasses + ServerKey(wanted))),
          machine(Server(HKEY_LOCAL_MACHINE, kClasses + ServerKey(wanted))) {}

    std::wstring Hive() const {
        const bool users = !user.empty() && Same(user, server);
        return std::wstring(users ? L"HKEY_CURRENT_USER" : L"HKEY_LOCAL_MACHINE") + L" (" +
               kBitsText + L")";
    }
};

void ProbeMissing(const LibraryClass& entry, Findings& findings) {
    // With a single view of the registry, the other view shows the same keys.
    const std::wstring other = Server(HKEY_LOCAL_MACHINE, kClasses + ServerKey(entry), kOtherView);
    if (other.empty())
        findings.push_back({Id::LibraryNotRegistered, {kBitsText}});
    else
        findings.push_back({Id::LibraryOtherBitnessOnly, {std::to_wstring(kOtherBits), other}});
}

// True when the file can be loaded by this program.
bool ProbeFile(const Registered& registered, Findings& findings) {
    const std::wstring& path = registered.server;
    if (!FileExists(path)) {
        findings.push_back({Id::LibraryFileMissing, {path}});
        return false;
    }
    const int bits = BitsOfFile(path);
    if (bits == 0) {
        findings.push_back({Id::LibraryNotALibrary, {path}});
        return false;
    }
    if (bits != kBits) {
        findings.push_back({Id::LibraryWrongBitness, {path, std::to_wstring(bits), kBitsText}});
        return false;
    }
    const std::wstring version = VersionOfFile(path);
    findings.push_back({Id::LibraryRegistered, {path, kBitsText, version, registered.Hive()}});
    if (version != VNDESK_WIDE_VERSION)
        findings.push_back({Id::LibraryVersionDiffers, {version, VNDESK_WIDE_VERSION}});
    return true;
}

void ProbeName(const std::wstring& name, const CLSID& wanted, Findings& findings) {
    CLSID found = {};
    const HRESULT hr = CLSIDFromProgID(name.c_str(), &found);
    if (FAILED(hr))
        findings.push_back({Id::ClassNameWrong, {name, ErrorText(hr)}});
    else if (found != wanted)
        findings.push_back({Id::ClassNameWrong, {name, GuidText(found)}});
}

bool ProbeCreation(const LibraryClass& entry, Findings& findings) {
    Microsoft::WRL::ComPtr<IDispatch> object;
    const HRESULT hr =
        CoCreateInstance(entry.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    if (FAILED(hr))
        findings.push_back({Id::ClassNotCreated, {entry.progId, ErrorText(hr)}});
    return SUCCEEDED(hr);
}

void ProbeClasses(const std::vector<Registered>& registered, bool loadable, Findings& findings) {
    std::size_t created = 0;
    for (const Registered& one : registered) {
        const LibraryClass& entry = *one.entry;
        if (one.server.empty()) {
            findings.push_back({Id::ClassNotRegistered, {entry.progId}});
            continue;
        }
        const std::wstring threading =
            RegistryText(HKEY_CLASSES_ROOT, ServerKey(entry), L"ThreadingModel").value_or(L"");
        if (!Same(threading, L"Apartment"))
            findings.push_back({Id::ClassThreading, {entry.progId, threading}});
        ProbeName(entry.progId, entry.clsid, findings);
        ProbeName(entry.progId + L".1", entry.clsid, findings);
        // The file that cannot be loaded is reported already; eight more errors would say the same.
        if (loadable && ProbeCreation(entry, findings))
            ++created;
    }
    if (created == registered.size())
        findings.push_back({Id::ClassesCreated, {std::to_wstring(created)}});
}

} // namespace

std::wstring ProbeRegistration(const OwnTypeLibrary& own, Findings& findings) {
    const std::vector<Registered> registered(own.classes.begin(), own.classes.end());
    const auto ignored = std::find_if(registered.begin(), registered.end(), [](const auto& one) {
        return !one.user.empty() && !Same(one.user, one.server);
    });
    if (ignored != registered.end())
        findings.push_back({Id::LibraryUserIgnored, {ignored->user}});
    const auto first = std::find_if(registered.begin(), registered.end(),
                                    [](const auto& one) { return !one.server.empty(); });
    if (first == registered.end()) {
        ProbeMissing(own.classes.front(), findings);
        return {};
    }
    if (!first->machine.empty() && !Same(first->server, first->machine))
        findings.push_back({Id::LibraryUserHidesMachine, {first->server, first->machine}});

    bool loadable = true;
    std::vector<std::wstring> servers;
    std::wstring all;
    for (const Registered& one : registered) {
        if (one.server.empty() ||
            std::any_of(servers.begin(), servers.end(),
                        [&](const std::wstring& known) { return Same(known, one.server); }))
            continue;
        servers.push_back(one.server);
        all += (all.empty() ? L"" : L"; ") + one.server;
        loadable &= ProbeFile(one, findings);
    }
    if (servers.size() > 1)
        findings.push_back({Id::LibrarySeveralCopies, {all}});
    ProbeClasses(registered, loadable, findings);
    return servers.front();
}

} // namespace vndesk::check
