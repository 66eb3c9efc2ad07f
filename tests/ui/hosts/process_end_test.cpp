// SPDX-License-Identifier: MIT
// A host that ends its process in the middle of a form: at once, with its own exit code, and
// without a word, whoever asks for it.
#include "support/forms/each_form.h"

#include "support/reliability.h"
#include "support/forms/host_process.h"

namespace vndesk::test {
namespace {

constexpr DWORD kExitCode = 42; // of tests/tools/vnquit
constexpr DWORD kPrompt = 20000;

class ProcessEnd : public testing::TestWithParam<EachForm> {
protected:
    void SetUp() override { Upgrade(database_, L"accounts"); }

    void ExpectEnds(const wchar_t* way) {
        const ULONGLONG start = GetTickCount64();
        ChildProcess host({OwnFolder() + L"vnquit.exe", FromUtf8(GetParam().name), way,
                           database_.ConnectionString()});
        EXPECT_EQ(kExitCode, host.ExitCode(kProcessStart));
        EXPECT_GT(kPrompt, GetTickCount64() - start);
    }

private:
    static std::wstring OwnFolder() {
        wchar_t path[MAX_PATH] = L"";
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        return std::wstring(path, std::wstring_view(path).rfind(L'\\') + 1);
    }

    const SampleDatabase database_ = SampleDatabase::Embedded();
};
INSTANTIATE_TEST_SUITE_P(Forms, ProcessEnd, testing::ValuesIn(EveryForm()),
                         [](const auto& info) { return std::string(info.param.name); });

// From inside the form, from another thread, with the destructors of the program; the short form
// takes one of them for each form.
TEST_P(ProcessEnd, InTheMiddleOfTheFormIsPromptAndHasTheHostsCode) {
    const wchar_t* const ways[] = {L"inside", L"thread", L"exit"};
    for (size_t i = 0; i < std::size(ways); ++i)
        if (FullRun() || i == strlen(GetParam().name) % std::size(ways))
            ExpectEnds(ways[i]);
}

} // namespace
} // namespace vndesk::test
