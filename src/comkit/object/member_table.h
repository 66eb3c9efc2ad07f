// SPDX-License-Identifier: MIT
// What the coercing layer must know of an interface's members, read from the type library once:
// asking for a function's description costs as much as the whole call.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <vector>

namespace vndesk {

struct Member {
    DISPID id;
    WORD kind;          // one INVOKE_ flag
    UINT mostArguments; // UINT_MAX: as many as the host likes
    // For each parameter the type that an argument is converted to, or VT_EMPTY where
    // ITypeInfo::Invoke converts it well.
    std::vector<VARTYPE> passed;
    // The result is an unsigned 32-bit number, which scripts do not know.
    bool unsignedResult;
};

class MemberTable {
public:
    explicit MemberTable(ITypeInfo* type);

    // The member that a call with these flags means, or null.
    const Member* Find(DISPID id, WORD flags) const;

private:
    std::vector<Member> members_; // by id
};

} // namespace vndesk
