// SPDX-License-Identifier: MIT
// The classes of the bridge: ADO's identifiers and names, in Wine prefixes only.
#include "comkit/base/handles.h"
#include "comkit/base/module.h"

#include "ado/engine/wine_path.h"
#include "ado/objects/command_object.h"
#include "ado/objects/connection_object.h"
#include "ado/objects/parameter_object.h"
#include "ado/objects/recordset_object.h"

namespace vndesk {

namespace {

using namespace ado;

constexpr CLSID kConnectionClass = {
    0x00000514, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
constexpr CLSID kRecordsetClass = {
    0x00000535, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

constexpr CLSID kCommandClass = {
    0x00000507, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};
constexpr CLSID kParameterClass = {
    0x0000050B, 0x0000, 0x0010, {0x80, 0x00, 0x00, 0xAA, 0x00, 0x6D, 0x2E, 0xA4}};

constexpr ClassEntry kClasses[] = {
    {&kConnectionClass, L"ADODB.Connection", L"ADODB.Connection",
     CreateInstanceOf<ConnectionObject>},
    {&kRecordsetClass, L"ADODB.Recordset", L"ADODB.Recordset", CreateInstanceOf<RecordsetObject>},
    {&kCommandClass, L"ADODB.Command", L"ADODB.Command", CreateInstanceOf<CommandObject>},
    {&kParameterClass, L"ADODB.Parameter", L"ADODB.Parameter", CreateInstanceOf<ParameterObject>}};

// Windows' own ADO must stay.
bool MayRegister(std::wstring& reason) {
    if (RunsUnderWine())
        return true;
    reason = L"adobridge.dll serves Wine only: Windows has its own ADO.";
    return false;
}

bool IsRegistered(REFCLSID clsid) {
    wchar_t key[64] = L"CLSID\\";
    StringFromGUID2(clsid, key + 6, 40);
    return OpenKey(HKEY_CLASSES_ROOT, key, KEY_READ) != nullptr;
}

// Registration took these classes from Wine's own ADO: it gets them back.
void RestoreWineAdo() {
    if (!RunsUnderWine() || IsRegistered(kConnectionClass))
        return;
    wchar_t path[MAX_PATH];
    ExpandEnvironmentStringsW(L"%CommonProgramFiles%\\System\\ADO\\msado15.dll", path, MAX_PATH);
    const HMODULE wineAdo = LoadLibraryW(path);
    if (!wineAdo)
        return;
    const auto enroll =
        reinterpret_cast<HRESULT(WINAPI*)()>(GetProcAddress(wineAdo, "DllRegisterServer"));
    if (enroll)
        CheckHr(enroll());
    FreeLibrary(wineAdo);
}

} // namespace

// The interfaces are ADO's, and Wine's type library describes them: ours is for late binding only.
const ModuleInfo moduleInfo = {kClasses, nullptr, MayRegister, RestoreWineAdo};

} // namespace vndesk
