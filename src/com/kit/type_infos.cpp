// SPDX-License-Identifier: MIT
// The module's type library and the interface descriptions taken from it, kept for the life of the
// process or until COM unloads the DLL. No destructor runs at process end: by then the platform's
// own DLLs may be gone.
#include <windows.h>
#include <oleauto.h>

#include <mutex>

#include "dispatch.h"
#include "module.h"

namespace vndesk {

namespace {

struct Entry {
    GUID guid;
    ITypeInfo* type;
};

constexpr size_t kMost = 32;

std::mutex mutex_;
ITypeLib* library_;
Entry entries_[kMost];
size_t count_;

} // namespace

ITypeInfo* TypeInfoOf(REFGUID guid) {
    std::lock_guard hold(mutex_);
    for (size_t i = 0; i < count_; ++i)
        if (entries_[i].guid == guid)
            return entries_[i].type;
    if (count_ == kMost)
        throw ComError(E_OUTOFMEMORY);
    if (!library_)
        CheckHr(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library_));
    ITypeInfo* type = nullptr;
    CheckHr(library_->GetTypeInfoOfGuid(guid, &type));
    entries_[count_++] = {guid, type};
    return type;
}

void ReleaseTypeInfos() noexcept {
    std::lock_guard hold(mutex_);
    while (count_ > 0)
        entries_[--count_].type->Release();
    if (library_)
        library_->Release();
    library_ = nullptr;
}

} // namespace vndesk
