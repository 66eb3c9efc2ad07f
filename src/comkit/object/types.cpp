// SPDX-License-Identifier: MIT
// The module's type library and the descriptions taken from it, kept for the life of the process or
// until COM unloads the DLL. No destructor runs at process end: oleaut32.dll may be gone by then.
#include <windows.h>
#include <oleauto.h>

#include "comkit/base/lock.h"
#include "comkit/base/module.h"
#include "comkit/object/dispatch.h"

namespace vndesk {

namespace {

constexpr size_t kMaxTypes = 32;

// Late-bound calls take it for reading: they do not wait for each other.
SRWLOCK lock_ = SRWLOCK_INIT;
ITypeLib* library_;
const TypeDescription* types_[kMaxTypes];
size_t count_;

const TypeDescription* Known(REFGUID guid) {
    for (size_t i = 0; i < count_; ++i)
        if (types_[i]->guid == guid)
            return types_[i];
    return nullptr;
}

} // namespace

const TypeDescription& TypeOf(REFGUID guid) {
    {
        const Reading reading(lock_);
        if (const TypeDescription* known = Known(guid))
            return *known;
    }
    const Writing writing(lock_);
    if (const TypeDescription* known = Known(guid))
        return *known;
    if (count_ == kMaxTypes)
        throw ComError(E_OUTOFMEMORY);
    if (!library_)
        CheckHr(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library_));
    Microsoft::WRL::ComPtr<ITypeInfo> info;
    CheckHr(library_->GetTypeInfoOfGuid(guid, &info));
    types_[count_] = new TypeDescription{guid, info, MemberTable(info.Get())};
    return *types_[count_++];
}

// A type is used only while some object lives. Without objects nobody uses one, and nobody gets one
// while the lock is held.
bool ReleaseTypes() noexcept {
    const Writing writing(lock_);
    if (IsModuleInUse())
        return false;
    while (count_ > 0)
        delete types_[--count_];
    if (library_)
        library_->Release();
    library_ = nullptr;
    return true;
}

} // namespace vndesk
