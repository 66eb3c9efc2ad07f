// SPDX-License-Identifier: MIT
// Work in several threads at once, each in an apartment of its own.
#pragma once

#include <windows.h>
#include <objbase.h>

#include <functional>

namespace vndesk::test {

// Returns when all have ended; the calling thread serves its windows meanwhile. Longer than
// `patience`, in milliseconds, is a failure. Work is numbered from 0; its exceptions are failures.
void InThreads(int count, COINIT apartment, DWORD patience,
               const std::function<void(int number)>& work);

} // namespace vndesk::test
