// SPDX-License-Identifier: MIT
#include "comkit/base/module.h"

#include <atomic>

namespace vndesk {

namespace {
HINSTANCE instance_;
std::atomic<long> objects_, locks_;
} // namespace

HINSTANCE ModuleInstance() noexcept {
    return instance_ ? instance_ : GetModuleHandleW(nullptr);
}

void SetModuleInstance(HINSTANCE instance) noexcept {
    instance_ = instance;
}

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(ModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

ModuleLock::ModuleLock() noexcept {
    ++objects_;
}
ModuleLock::~ModuleLock() {
    --objects_;
}

void LockModule() noexcept {
    ++locks_;
}

void UnlockModule() noexcept {
    long count = locks_;
    while (count > 0 && !locks_.compare_exchange_weak(count, count - 1))
        ;
}

bool IsModuleInUse() noexcept {
    return objects_ > 0 || locks_ > 0;
}

} // namespace vndesk
