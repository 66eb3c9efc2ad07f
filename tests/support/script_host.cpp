// SPDX-License-Identifier: MIT
#include "support/script_host.h"

#include <gtest/gtest.h>

#include "support/text.h"

namespace vndesk::test {

ScriptRunner::ScriptRunner(const wchar_t* language)
    : host_(language, [this](const std::wstring& line) { lines_.push_back(line); }) {}

void ScriptRunner::SetArguments(std::vector<std::wstring> arguments) {
    host_.SetArguments(std::move(arguments));
}

void ScriptRunner::RunOk(const std::wstring& source) {
    const ScriptResult result = Run(source);
    if (FAILED(result.hr))
        ADD_FAILURE() << "script line " << result.line << ": " << HrText(result.code) << ": "
                      << ToUtf8(result.text);
}

} // namespace vndesk::test
