// SPDX-License-Identifier: MIT
// Runs vndesk-convert.exe of the folder above the tests.
#pragma once
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/sample_database.h"
#include "support/temp_dir.h"
#include "support/text.h"
#include "text/encodings/convert.h"

namespace vndesk::test {

using Words = std::vector<std::wstring>;

inline std::wstring ConvertProgram() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path, std::wstring_view(path).rfind(L'\\')) + L"\\..\\vndesk-convert.exe";
}

// One run; what it says goes to a file.
class Conversion {
public:
    explicit Conversion(Words words) {
        words.insert(words.begin(), ConvertProgram());
        words.push_back(L"--en");
        program_ = std::make_unique<ChildProcess>(words, Output());
    }

    bool HasEnded() const { return program_->HasEnded(); }
    DWORD Code() const { return program_->ExitCode(120000); }
    // What it has said so far.
    std::wstring Said() const { return ReadUtf8File(Output()); }
    // At once, as the task manager does.
    void Kill() { program_.reset(); }

private:
    std::wstring Output() const { return folder_.File(L"output.txt"); }

    const TempDir folder_;
    std::unique_ptr<ChildProcess> program_;
};

inline Words OnTable(const SampleDatabase& database, const std::wstring& table,
                     const std::wstring& columns, const Words& more = {}) {
    Words words = {L"--connect", database.ConnectionString(), L"--table", table, L"--columns",
                   columns};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// A text as it stands in an old database, each byte as one character.
inline std::wstring Old(const std::wstring& text, Encoding encoding = Encoding::Tcvn3) {
    return ConvertEncoding(text, Encoding::Unicode, encoding).text;
}

// Between apostrophes.
inline std::wstring Literal(const std::wstring& text) {
    return L"'" + text + L"'";
}

} // namespace vndesk::test
