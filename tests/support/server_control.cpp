// SPDX-License-Identifier: MIT
#include "support/server_control.h"

#include <windows.h>

#include <algorithm>

#include "support/env.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr DWORD kPatienceWithServers = 60000;

std::wstring Pipe() {
    return L"Z:" + EnvironmentText(L"VNDESK_SERVER_CONTROL");
}

// How many orders have been carried out.
std::ptrdiff_t Done() {
    const std::wstring file = Pipe() + L".done";
    if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES)
        return 0;
    return std::ranges::count(ReadUtf8File(file), L'\n');
}

} // namespace

bool ServerControl::Available() {
    return !EnvironmentText(L"VNDESK_SERVER_CONTROL").empty();
}

bool ServerControl::HasStandby() {
    return Available() && !EnvironmentText(L"VNDESK_PG_STANDBY").empty();
}

void ServerControl::Give(const std::string& order) {
    const std::ptrdiff_t before = Done();
    const HANDLE pipe =
        CreateFileW(Pipe().c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::string line = order + "\n";
    DWORD written = 0;
    const bool given =
        pipe != INVALID_HANDLE_VALUE &&
        WriteFile(pipe, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(pipe);
    if (!given || !WaitUntil([&] { return Done() > before; }, kPatienceWithServers))
        Fail(L"nobody obeys: " + FromUtf8(order));
}

} // namespace vndesk::test
