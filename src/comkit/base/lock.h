// SPDX-License-Identifier: MIT
// A slim reader/writer lock, held while one of these lives. SRWLOCK_INIT needs no constructor,
// which would run when the DLL is loaded.
#pragma once

#include <windows.h>

namespace vndesk {

template <void(WINAPI* Acquire)(SRWLOCK*), void(WINAPI* Release)(SRWLOCK*)> class Locked {
public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { Acquire(&lock_); }
    ~Locked() { Release(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

private:
    SRWLOCK& lock_;
};

using Reading = Locked<AcquireSRWLockShared, ReleaseSRWLockShared>;
using Writing = Locked<AcquireSRWLockExclusive, ReleaseSRWLockExclusive>;

} // namespace vndesk
