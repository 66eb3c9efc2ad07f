// SPDX-License-Identifier: MIT
// main() of the test programs on Windows: a COM apartment, and a process that always ends by
// itself with a code that says why. 90 crash, 91 a test hangs, 92 a broken contract of the C
// run-time, 93 an exception that nobody caught.
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <gtest/gtest.h>
#include <windows.h>

#include "support/env.h"
#include "support/failure_picture.h"
#include "support/text.h"
#include "support/ui_windows.h"
#ifdef _MSC_VER
#include <crtdbg.h>
#endif

namespace {

using namespace vndesk::test;

enum ExitCode { kCrashed = 90, kHangs = 91, kContract = 92, kUncaught = 93 };

// Far below the runner's limit for a whole program, so that we can still say where it hangs, and
// far above what the longest test takes on a busy machine. VNDESK_TEST_SECONDS overrides it.
constexpr ULONGLONG kTestSeconds = 600;

std::atomic<ULONGLONG> testStart{0}; // 0 between tests
std::atomic<const testing::TestInfo*> currentTest{nullptr};
HANDLE mainThread = nullptr;

void Print(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    vfprintf(stderr, format, arguments);
    va_end(arguments);
    fflush(stderr);
}

// "module.dll+0x1234": addr2line turns it into a line of the source.
void PrintAddress(const char* what, const void* address) {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"?";
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           static_cast<const wchar_t*>(address), &module))
        GetModuleFileNameW(module, path, MAX_PATH);
    const std::wstring name = path;
    Print("%s %s+0x%llX\n", what, ToUtf8(name.substr(name.rfind(L'\\') + 1)).c_str(),
          static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(address) -
                                          reinterpret_cast<ULONG_PTR>(module)));
}

void PrintTest(const char* what) {
    const testing::TestInfo* test = currentTest;
    Print("%s in %s.%s\n", what, test ? test->test_suite_name() : "(no test)",
          test ? test->name() : "");
}

// Words on the stack that point into code of the program or its DLLs: a rough trace, but one that
// needs no debug information of the target.
void PrintStack(const CONTEXT& context) {
#ifdef _WIN64
    const auto address = context.Rip;
    auto stack = context.Rsp;
#else
    const auto address = context.Eip;
    auto stack = context.Esp;
#endif
    PrintAddress("  at", reinterpret_cast<const void*>(address));
    int printed = 0;
    for (int i = 0; i < 2000 && printed < 24; ++i, stack += sizeof(void*)) {
        void* word = nullptr;
        MEMORY_BASIC_INFORMATION page = {};
        if (!ReadProcessMemory(GetCurrentProcess(), reinterpret_cast<void*>(stack), &word,
                               sizeof word, nullptr))
            break;
        if (VirtualQuery(word, &page, sizeof page) && page.Type == MEM_IMAGE &&
            (page.Protect & (PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE))) {
            PrintAddress("  from", word);
            ++printed;
        }
    }
}

LONG WINAPI OnCrash(EXCEPTION_POINTERS* info) {
    Print("\ncrash 0x%08lX ", static_cast<unsigned long>(info->ExceptionRecord->ExceptionCode));
    PrintTest("");
    PrintStack(*info->ContextRecord);
    TerminateProcess(GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

void OnTerminate() {
    PrintTest("\nuncaught exception");
    try {
        if (std::current_exception())
            std::rethrow_exception(std::current_exception());
    } catch (const std::exception& error) {
        Print("  %s\n", error.what());
    } catch (...) {
        Print("  of an unknown type\n");
    }
    TerminateProcess(GetCurrentProcess(), kUncaught);
}

void __cdecl OnInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned,
                                uintptr_t) {
    PrintTest("\ninvalid argument for the C run-time");
    TerminateProcess(GetCurrentProcess(), kContract);
}

DWORD WINAPI Watch(void*) {
    const std::wstring wanted = EnvironmentText(L"VNDESK_TEST_SECONDS");
    const ULONGLONG limit = 1000 * (wanted.empty() ? kTestSeconds : wcstoul(wanted.c_str(), 0, 10));
    for (;;) {
        Sleep(200);
        const ULONGLONG start = testStart;
        if (!start || GetTickCount64() - start < limit)
            continue;
        PrintTest("\nhang");
        for (HWND window : TopWindows())
            Print("  open: %s\n", ToUtf8(DescribeWindow(window)).c_str());
        CONTEXT context = {};
        context.ContextFlags = CONTEXT_CONTROL | CONTEXT_INTEGER;
        if (SuspendThread(mainThread) != DWORD(-1) && GetThreadContext(mainThread, &context))
            PrintStack(context);
        // Saving a picture can need a lock that the stopped thread holds.
        ResumeThread(mainThread);
        Print("%s\n", PictureOfFailure().c_str());
        TerminateProcess(GetCurrentProcess(), kHangs);
    }
}

class Watchdog : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override {
        currentTest = &test;
        testStart = GetTickCount64();
    }
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed())
            Print("%s\n", PictureOfFailure().c_str());
    }
    void OnTestEnd(const testing::TestInfo&) override {
        testStart = 0;
        currentTest = nullptr;
    }
};

void GuardProcess() {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    SetUnhandledExceptionFilter(OnCrash);
    std::set_terminate(OnTerminate);
#ifdef _MSC_VER
    _set_invalid_parameter_handler(OnInvalidParameter);
    _set_abort_behavior(0, _WRITE_ABORT_MSG | _CALL_REPORTFAULT);
    for (const int kind : {_CRT_WARN, _CRT_ERROR, _CRT_ASSERT}) {
        _CrtSetReportMode(kind, _CRTDBG_MODE_FILE);
        _CrtSetReportFile(kind, _CRTDBG_FILE_STDERR);
    }
#else
    (void)OnInvalidParameter; // msvcrt.dll takes no handler
    _set_error_mode(_OUT_TO_STDERR);
#endif
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &mainThread, 0,
                    FALSE, DUPLICATE_SAME_ACCESS);
    CloseHandle(CreateThread(nullptr, 0, Watch, nullptr, 0, nullptr));
}

} // namespace

int main(int argc, char** argv) {
    SetProcessDPIAware(); // pixels are those of the screen, also for scripts/pictures
    setvbuf(stdout, nullptr, _IONBF, 0); // a killed process keeps what it has said
    SetConsoleOutputCP(CP_UTF8);
    GuardProcess();
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(com)) {
        Print("CoInitializeEx: %s\n", HrText(com).c_str());
        return kContract;
    }
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
