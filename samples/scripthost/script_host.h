// SPDX-License-Identifier: MIT
// A small Windows script host: runs VBScript or JScript text in this process. Scripts see the
// object WScript (Echo, Quit, Sleep, Arguments, CreateObject, ConnectObject) and the bare words
// Echo and Connect(object, prefix), which joins an object's events to procedures
// <prefix><event name>. A script may use these words for variables of its own.
#pragma once
#include <map>
#include <string>
#include <vector>
#include <windows.h>
#include <activscp.h>
#include <wrl/client.h>

#include "host_object.h"

namespace vndesk {

struct ScriptResult {
    HRESULT hr = S_OK;   // failed when the script could not be parsed or ended by an error
    int line = 0;        // from 1; 0 when there was no error
    HRESULT code = S_OK; // the error's own number
    std::wstring text;
    bool quit = false; // WScript.Quit was called
    int exitCode = 0;
};

class ScriptSite;

class ScriptHost {
public:
    using Echo = HostObject::Echo;
    using Quit = HostObject::Quit;

    // Throws std::runtime_error when there is no such engine. Without an onQuit of its own that
    // does not return, Quit ends the script by an error, which "On Error Resume Next" hides.
    ScriptHost(const wchar_t* language, Echo echo, Quit onQuit = nullptr);
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    void SetArguments(std::vector<std::wstring> arguments);
    // The script may use the object by this name.
    void AddObject(const wchar_t* name, IDispatch* object);
    ScriptResult Run(const std::wstring& source);

private:
    Microsoft::WRL::ComPtr<IActiveScript> engine_;
    Microsoft::WRL::ComPtr<IActiveScriptParse> parser_;
    Microsoft::WRL::ComPtr<ScriptSite> site_;
    Microsoft::WRL::ComPtr<HostObject> host_;
};

} // namespace vndesk
