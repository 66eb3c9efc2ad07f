// SPDX-License-Identifier: MIT
// vndesk-check: says in plain words whether VnDesk can be used on this machine, and what is wrong.
#include <windows.h>

#include "check/machine.h"
#include "check/options.h"
#include "check/probes.h"
#include "check/report.h"
#include "comkit/base/com_error.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk::check;

// A console gets Unicode, a file or pipe UTF-8.
void Print(DWORD stream, const std::wstring& text) {
    const HANDLE output = GetStdHandle(stream);
    DWORD mode = 0, written = 0;
    if (GetConsoleMode(output, &mode) &&
        WriteConsoleW(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
        return;
    const int length = static_cast<int>(text.size());
    std::string bytes(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

Language UserLanguage() {
    switch (PRIMARYLANGID(GetUserDefaultUILanguage())) {
    case LANG_VIETNAMESE:
        return Language::Vietnamese;
    case LANG_FRENCH:
        return Language::French;
    default:
        return Language::English;
    }
}

// The first line of the standard input, in UTF-8, so that no other user of the machine reads it in
// the list of processes.
std::wstring ConnectionStringOf(const std::wstring& word) {
    if (word != L"-")
        return word;
    std::string bytes;
    char byte = 0;
    DWORD read = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &read, nullptr) && read == 1 &&
           byte != '\n' && byte != '\r')
        bytes += byte;
    const int length = static_cast<int>(bytes.size());
    std::wstring text(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(),
                        static_cast<int>(text.size()));
    return text;
}

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
    const Language language = options.language.value_or(UserLanguage());
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
