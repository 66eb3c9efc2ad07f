// SPDX-License-Identifier: MIT
// Runs script text for a test: the sample script host's core, with its output collected.
#pragma once
#include <string>
#include <vector>
#include <windows.h>

#include "../../samples/scripthost/script_host.h"

namespace vndesk::test {

class ScriptRunner {
public:
    // L"VBScript" or L"JScript". Throws when the engine is not installed.
    explicit ScriptRunner(const wchar_t* language = L"VBScript");

    void AddObject(const wchar_t* name, IDispatch* object) { host_.AddObject(name, object); }
    void SetArguments(std::vector<std::wstring> arguments);
    ScriptResult Run(const std::wstring& source) { return host_.Run(source); }
    // Runs and reports an error of the script as a failure of the test.
    void RunOk(const std::wstring& source);

    const std::vector<std::wstring>& Lines() const { return lines_; } // what Echo was given

private:
    std::vector<std::wstring> lines_;
    ScriptHost host_;
};

} // namespace vndesk::test
