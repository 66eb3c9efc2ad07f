// SPDX-License-Identifier: MIT
// ADO and the OLE DB providers that connection strings name.
#include "check/probes.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "check/machine.h"

namespace vndesk::check {

using Microsoft::WRL::ComPtr;

namespace {

std::wstring ServerOf(const CLSID& clsid) {
    return Unquoted(
        RegistryText(HKEY_CLASSES_ROOT, L"CLSID\\" + GuidText(clsid) + L"\\InprocServer32")
            .value_or(L""));
}

template <class Interface> HRESULT Create(const wchar_t* progId, CLSID& clsid, Interface** object) {
    const HRESULT hr = CLSIDFromProgID(progId, &clsid);
    return FAILED(hr)
               ? hr
               : CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(object));
}

// "6.1"; empty where the object has no version.
std::wstring VersionOf(IDispatch* object) {
    auto* name = const_cast<LPOLESTR>(L"Version");
    DISPID id = DISPID_UNKNOWN;
    DISPPARAMS none = {};
    VARIANT value;
    VariantInit(&value);
    std::wstring text;
    if (SUCCEEDED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_NEUTRAL, &id)) &&
        SUCCEEDED(object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none, &value,
                                 nullptr, nullptr)) &&
        value.vt == VT_BSTR && value.bstrVal)
        text = value.bstrVal;
    VariantClear(&value);
    return text;
}

bool EndsWith(const std::wstring& path, const std::wstring& name) {
    return path.size() >= name.size() && Same(path.substr(path.size() - name.size()), name);
}

// True when the bridge for Wine serves, which needs no providers.
bool ProbeObjects(Findings& findings) {
    CLSID clsid = {};
    ComPtr<IDispatch> connection, recordset;
    HRESULT hr = Create(L"ADODB.Recordset", clsid, recordset.GetAddressOf());
    if (FAILED(hr)) {
        findings.push_back({Id::AdoMissing, {L"ADODB.Recordset", ErrorText(hr)}});
        return false;
    }
    const std::wstring recordsetServer = ServerOf(clsid);
    hr = Create(L"ADODB.Connection", clsid, connection.GetAddressOf());
    if (FAILED(hr)) {
        findings.push_back({Id::AdoMissing, {L"ADODB.Connection", ErrorText(hr)}});
        return false;
    }
    const std::wstring server = ServerOf(clsid);
    if (WineVersion().empty()) {
        findings.push_back({Id::AdoReady, {VersionOf(connection.Get()), server}});
        return false;
    }
    for (const std::wstring& path : {server, recordsetServer})
        if (!EndsWith(path, L"\\adobridge.dll")) {
            findings.push_back({Id::AdoBridgeMissing, {path, kBitsText}});
            return false;
        }
    findings.push_back({Id::AdoBridge, {VersionOfFile(server), server}});
    return true;
}

enum class Serves { Jet, SqlServer, Odbc };

struct Provider {
    const wchar_t* progId;
    Serves serves;
};

constexpr Provider kProviders[] = {
    {L"Microsoft.Jet.OLEDB.4.0", Serves::Jet},  {L"Microsoft.ACE.OLEDB.12.0", Serves::Jet},
    {L"Microsoft.ACE.OLEDB.16.0", Serves::Jet}, {L"SQLOLEDB", Serves::SqlServer},
    {L"SQLNCLI11", Serves::SqlServer},          {L"MSOLEDBSQL", Serves::SqlServer},
    {L"MSOLEDBSQL19", Serves::SqlServer},       {L"MSDASQL", Serves::Odbc},
};

} // namespace

void ProbeAdo(Findings& findings) {
    const bool bridge = ProbeObjects(findings);
    std::wstring present;
    bool jet = false, sqlServer = false;
    for (const Provider& provider : kProviders) {
        CLSID clsid = {};
        ComPtr<IUnknown> object;
        if (FAILED(CLSIDFromProgID(provider.progId, &clsid)))
            continue;
        const HRESULT hr = Create(provider.progId, clsid, object.GetAddressOf());
        if (FAILED(hr)) {
            const std::wstring server = ServerOf(clsid);
            const bool missing = !server.empty() && !FileExists(server);
            findings.push_back(
                {Id::ProviderBroken,
                 {provider.progId, ErrorText(hr) + (missing ? L" " + server : L"")}});
            continue;
        }
        present += (present.empty() ? L"" : L", ") + std::wstring(provider.progId);
        jet |= provider.serves == Serves::Jet;
        sqlServer |= provider.serves == Serves::SqlServer;
    }
    if (!present.empty())
        findings.push_back({Id::ProvidersPresent, {kBitsText, present}});
    if (bridge)
        return;
    if (present.empty())
        findings.push_back({Id::ProviderNone, {kBitsText}});
    else if (!jet)
        findings.push_back({Id::ProviderNoJet, {kBitsText}});
    if (!present.empty() && !sqlServer)
        findings.push_back({Id::ProviderNoSqlServer, {kBitsText}});
}

} // namespace vndesk::check
