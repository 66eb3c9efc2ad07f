// SPDX-License-Identifier: MIT
// What another process holds at the moment, to compare before and after a long use of it.
#pragma once
#include <windows.h>

#include <cstddef>
#include <string>

namespace vndesk::test {

struct ProcessUse {
    long handles = 0; // of the kernel
    long threads = 0;
    long windows = 0;  // all of them, hidden and message-only ones too
    size_t memory = 0; // bytes in use
};

// Throws when there is no such process.
ProcessUse UseOf(DWORD process);
std::wstring TextOf(const ProcessUse& use);

} // namespace vndesk::test
