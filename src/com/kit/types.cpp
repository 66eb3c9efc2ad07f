// SPDX-License-Identifier: MIT
// The module's type library and the descriptions taken from it, kept for the life of the process or
// until COM unloads the DLL. No destructor runs at process end: by then the platform's own DLLs may
// be gone.
#include <windows.h>
#include <oleauto.h>

#include "dispatch.h"
#include "module.h"

namespace vndesk {

namespace {

constexpr size_t kMost = 32;

SRWLOCK lock_ = SRWLOCK_INIT;
ITypeLib* library_;
const TypeDescription* types_[kMost];
size_t count_;

// Every late-bound call comes here: they do not wait for each other.
class Reading {
public:
    Reading() { AcquireSRWLockShared(&lock_); }
    ~Reading() { ReleaseSRWLockShared(&lock_); }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
};

class Writing {
public:
    Writing() { AcquireSRWLockExclusive(&lock_); }
    ~Writing() { ReleaseSRWLockExclusive(&lock_); }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
};

const TypeDescription* Known(REFGUID guid) {
    for (size_t i = 0; i < count_; ++i)
        if (types_[i]->guid == guid)
            return types_[i];
    return nullptr;
}

} // namespace

const TypeDescription& TypeOf(REFGUID guid) {
    {
        const Reading reading;
        if (const TypeDescription* known = Known(guid))
            return *known;
    }
    const Writing writing;
    if (const TypeDescription* known = Known(guid))
        return *known;
    if (count_ == kMost)
        throw ComError(E_OUTOFMEMORY);
    if (!library_)
        CheckHr(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library_));
    Microsoft::WRL::ComPtr<ITypeInfo> info;
    CheckHr(library_->GetTypeInfoOfGuid(guid, &info));
    types_[count_] = new TypeDescription{guid, info, MemberTable(info.Get())};
    return *types_[count_++];
}

void ReleaseTypes() noexcept {
    const Writing writing;
    while (count_ > 0)
        delete types_[--count_];
    if (library_)
        library_->Release();
    library_ = nullptr;
}

} // namespace vndesk
