// SPDX-License-Identifier: MIT
// Runs vndesk-check.exe beside the tests and reads what it has found.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/strict_json.h"
#include "support/temp_dir.h"
#include "support/text.h"

namespace vndesk::test {

constexpr DWORD kCheckLimit = 60000;

inline std::wstring BesideTests(const wchar_t* name) {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, std::wstring_view(path).rfind(L'\\')) + L"\\..\\" + name;
}

struct Printed {
    DWORD code;
    std::wstring text;
};

inline Printed RunCheck(std::vector<std::wstring> words) {
    const TempDir folder;
    const std::wstring output = folder.File(L"output.txt");
    words.insert(words.begin(), BesideTests(L"vndesk-check.exe"));
    ChildProcess program(words, output, ChildProcess::Errors::ToOurs);
    const DWORD code = program.ExitCode(kCheckLimit);
    return {code, ReadUtf8File(output)};
}

// The findings of one run, by name.
class Found {
public:
    explicit Found(std::vector<std::wstring> words = {}) {
        words.insert(words.end(), {L"--json", L"--en"});
        const Printed printed = RunCheck(words);
        json_ = JsonReader::Read(printed.text);
        EXPECT_EQ(static_cast<double>(printed.code), json_[L"exitCode"].number);
        code = printed.code;
        for (const Json& finding : json_[L"findings"].list) {
            byId_.emplace(finding[L"id"].text, finding);
            if (finding[L"state"].text == L"error" || finding[L"state"].text == L"warning")
                bad.insert(finding[L"id"].text);
        }
    }

    bool Has(const wchar_t* id) const { return byId_.count(id) != 0; }
    // The values of the first finding of that name.
    std::vector<std::wstring> Values(const wchar_t* id) const {
        std::vector<std::wstring> values;
        const auto at = byId_.find(id);
        EXPECT_NE(byId_.end(), at) << ToUtf8(id);
        if (at != byId_.end())
            for (const Json& value : at->second[L"values"].list)
                values.push_back(value.text);
        values.resize(8);
        return values;
    }
    const Json& All() const { return json_; }

    DWORD code;
    std::set<std::wstring> bad; // names of warnings and errors

private:
    Json json_;
    std::multimap<std::wstring, Json> byId_;
};

using Names = std::set<std::wstring>;

} // namespace vndesk::test
