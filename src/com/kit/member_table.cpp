// SPDX-License-Identifier: MIT
#include "member_table.h"

#include <algorithm>

namespace vndesk {

namespace {

VARTYPE ReferredType(const ELEMDESC& parameter) {
    if (parameter.tdesc.vt != VT_PTR)
        return VT_EMPTY;
    switch (const VARTYPE type = parameter.tdesc.lptdesc->vt) {
    case VT_BSTR:
    case VT_BOOL:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_UI1:
        return type;
    case VT_INT:
        return VT_I4;
    default:
        return VT_EMPTY;
    }
}

// A property without parameters may have some arguments: they go to what it returns.
UINT MostArguments(const FUNCDESC& function) {
    if (function.invkind != INVOKE_FUNC || function.cParamsOpt < 0)
        return UINT_MAX;
    UINT count = 0;
    for (SHORT i = 0; i < function.cParams; ++i)
        if (!(function.lprgelemdescParam[i].paramdesc.wParamFlags &
              (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)))
            ++count;
    return count;
}

Member Describe(const FUNCDESC& function) {
    Member member{function.memid, static_cast<WORD>(function.invkind), MostArguments(function), {}};
    for (SHORT i = 0; i < function.cParams; ++i)
        member.referred.push_back(ReferredType(function.lprgelemdescParam[i]));
    return member;
}

} // namespace

// Walked, not asked for by member: of a dual interface the platforms count that index from
// different functions, with those of IDispatch or without.
MemberTable::MemberTable(ITypeInfo* type) {
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
        struct Release {
            ITypeInfo* type;
            FUNCDESC* function;
            ~Release() { type->ReleaseFuncDesc(function); }
        } const release{type, function};
        members_.push_back(Describe(*function));
    }
    std::stable_sort(members_.begin(), members_.end(),
                     [](const Member& left, const Member& right) { return left.id < right.id; });
}

const Member* MemberTable::Find(DISPID id, WORD flags) const {
    auto member =
        std::lower_bound(members_.begin(), members_.end(), id,
                         [](const Member& known, DISPID wanted) { return known.id < wanted; });
    for (; member != members_.end() && member->id == id; ++member)
        if (member->kind & flags)
            return &*member;
    return nullptr;
}

} // namespace vndesk
