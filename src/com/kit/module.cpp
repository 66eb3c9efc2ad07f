// SPDX-License-Identifier: MIT
#include "module.h"

#include <atomic>

namespace vndesk {

namespace {
HINSTANCE instance_;
std::atomic<long> lockCount_;
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
    Add();
}
ModuleLock::~ModuleLock() {
    Remove();
}
void ModuleLock::Add() noexcept {
    ++lockCount_;
}
void ModuleLock::Remove() noexcept {
    --lockCount_;
}
long ModuleLock::Count() noexcept {
    return lockCount_;
}

} // namespace vndesk
