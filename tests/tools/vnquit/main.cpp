// SPDX-License-Identifier: MIT
// vnquit FORM WAY CONNECTION: opens a form of the library (support/forms/each_form.h) and ends the
// process in the middle of it, with the exit code 42: "inside" a handler, from another "thread", or
// by "exit" of the C run-time. Whatever comes back from the form instead ends with 1.
#include <cstdlib>
#include <thread>

#include "support/text.h"
#include "support/forms/each_form.h"

namespace {

using namespace vndesk::test;

constexpr int kExitCode = 42;

void Quit(std::wstring_view way) {
    if (way == L"inside")
        ExitProcess(kExitCode);
    if (way == L"exit")
        exit(kExitCode);
    // While the form serves its messages.
    if (way == L"thread")
        std::thread([] { ExitProcess(kExitCode); }).detach();
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 4)
        return 2;
    testing::InitGoogleTest();
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 3;
    const HostMainWindow host;
    for (const EachForm& form : EveryForm()) {
        if (FromUtf8(form.name) != argv[1])
            continue;
        const AtLastForm last(form, [&](HWND) { Quit(argv[2]); });
        _bstr_t connect(argv[3]);
        form.open(&connect.GetBSTR());
    }
    return 1;
}
