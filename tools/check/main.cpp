// SPDX-License-Identifier: MIT
// vndesk-check: says in plain words whether VnDesk can be used on this machine, and what is wrong.
#include <windows.h>

#include "check/machine.h"
#include "check/options.h"
#include "check/probes.h"
#include "check/report.h"
#include "comkit/base/com_error.h"
#include "console/console.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk::check;
using vndesk::console::ConnectionStringOf;
using vndesk::console::Print;

Findings Check(const Options& options) {
    Findings findings;
    const OwnTypeLibrary own = ReadOwnTypeLibrary();
    ProbeSystem(findings);
    const std::wstring library = ProbeRegistration(own, findings);
    ProbeTypeLibrary(own, library, findings);
    ProbeAdo(findings);
    ProbeOdbc(findings);
    ProbeControls(findings);
    ProbeFonts(findings);
    if (options.connectionString)
        ProbeDatabase(ConnectionStringOf(*options.connectionString), findings);
    return findings;
}

int Run(const Options& options, Language language) {
    // The library's objects live in a single-threaded apartment.
    vndesk::CheckHr(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    const Findings findings = Check(options);
    CoUninitialize();
    const auto report = options.json ? JsonReport : TextReport;
    Print(STD_OUTPUT_HANDLE, report(findings, {VNDESK_WIDE_VERSION, kBits}, language));
    return ExitCode(findings);
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const Options options = ParseOptions({argv + 1, argv + argc});
    const Language language = options.language.value_or(vndesk::console::UserLanguage());
    const std::wstring usage = FrameOf(language).usage;
    if (!options.wrong.empty()) {
        Print(STD_ERROR_HANDLE, L"vndesk-check: " + options.wrong + L"?\n\n" + usage);
        return kCouldNotCheck;
    }
    if (options.action == Action::Help) {
        Print(STD_OUTPUT_HANDLE, usage);
        return 0;
    }
    if (options.action == Action::Version) {
        Print(STD_OUTPUT_HANDLE, L"vndesk-check " VNDESK_WIDE_VERSION L"\n");
        return 0;
    }
    int code = kCouldNotCheck;
    const vndesk::ErrorState error = vndesk::Trap([&] { code = Run(options, language); });
    if (error)
        Print(STD_ERROR_HANDLE, L"vndesk-check: " + ErrorText(error.code) + L"\n");
    return code;
}
