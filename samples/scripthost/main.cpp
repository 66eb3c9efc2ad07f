// SPDX-License-Identifier: MIT
// vnscript FILE.vbs|FILE.js [arguments]: runs a script as cscript does, but reads and writes
// UTF-8, reports every error (exit code 3) and knows events. See script_host.h.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "script_host.h"

namespace {

constexpr int kUsage = 2, kScriptError = 3;

std::string Utf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

void Print(FILE* stream, const std::wstring& line) {
    fprintf(stream, "%s\n", Utf8(line).c_str());
    fflush(stream);
}

bool ReadSource(const wchar_t* path, std::wstring& source) {
    FILE* file = _wfopen(path, L"rb");
    if (!file)
        return false;
    std::string bytes;
    char part[4096];
    for (size_t read; (read = fread(part, 1, sizeof part, file)) > 0;)
        bytes.append(part, read);
    fclose(file);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    source.resize(bytes.size());
    source.resize(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()),
                                      source.data(), static_cast<int>(source.size())));
    return true;
}

int Run(const std::wstring& path, std::vector<std::wstring> arguments) {
    std::wstring source;
    if (!ReadSource(path.c_str(), source)) {
        Print(stderr, L"cannot read " + path);
        return kUsage;
    }
    const bool jscript = path.ends_with(L".js") || path.ends_with(L".JS");
    // Quit must not be caught by "On Error Resume Next", so it really ends the program.
    vndesk::ScriptHost host(
        jscript ? L"JScript" : L"VBScript", [](const std::wstring& line) { Print(stdout, line); },
        [](int code) { ExitProcess(static_cast<UINT>(code)); });
    host.SetArguments(std::move(arguments));
    const vndesk::ScriptResult result = host.Run(source);
    if (SUCCEEDED(result.hr))
        return 0;
    wchar_t place[64];
    swprintf(place, 64, L"(%d): 0x%08lX: ", result.line, static_cast<unsigned long>(result.code));
    Print(stderr, path + place + result.text);
    return kScriptError;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc < 2) {
        Print(stderr, L"usage: vnscript FILE.vbs|FILE.js [arguments]");
        return kUsage;
    }
    SetConsoleOutputCP(CP_UTF8);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return kScriptError;
    int code = kScriptError;
    try {
        code = Run(argv[1], {argv + 2, argv + argc});
    } catch (const std::exception& error) {
        fprintf(stderr, "%s\n", error.what());
    }
    CoUninitialize();
    return code;
}
