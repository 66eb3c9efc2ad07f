// SPDX-License-Identifier: MIT
#include "comkit/object/member_table.h"

#include <wrl/client.h>

#include <algorithm>

namespace vndesk {

namespace {

// A TYPEATTR, released at the end.
class TypeAttributes {
public:
    explicit TypeAttributes(ITypeInfo* type) : type_(type) { type_->GetTypeAttr(&attributes_); }
    ~TypeAttributes() {
        if (attributes_)
            type_->ReleaseTypeAttr(attributes_);
    }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;

    // The type behind an alias; VT_EMPTY for other types.
    VARTYPE Aliased() const {
        return attributes_ && attributes_->typekind == TKIND_ALIAS ? attributes_->tdescAlias.vt
                                                                   : VARTYPE{VT_EMPTY};
    }

private:
    ITypeInfo* type_;
    TYPEATTR* attributes_ = nullptr;
};

// OLE_COLOR is an alias of VT_UI4.
bool IsUnsigned(ITypeInfo* type, const TYPEDESC& declared) {
    if (declared.vt != VT_USERDEFINED)
        return declared.vt == VT_UI4;
    Microsoft::WRL::ComPtr<ITypeInfo> named;
    return SUCCEEDED(type->GetRefTypeInfo(declared.hreftype, &named)) &&
           TypeAttributes(named.Get()).Aliased() == VT_UI4;
}

VARTYPE PassedType(ITypeInfo* info, const ELEMDESC& parameter) {
    if (parameter.tdesc.vt == VT_BSTR)
        return VT_BSTR;
    if (parameter.tdesc.vt != VT_PTR)
        return IsUnsigned(info, parameter.tdesc) ? VARTYPE{VT_UI4} : VARTYPE{VT_EMPTY};
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
        return static_cast<VARTYPE>(VT_BYREF | type);
    case VT_INT:
        return static_cast<VARTYPE>(VT_BYREF | VT_I4);
    default:
        return VT_EMPTY;
    }
}

// Arguments of a property without parameters go to the object that it returns.
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

Member Describe(ITypeInfo* type, const FUNCDESC& function) {
    Member member{function.memid,
                  static_cast<WORD>(function.invkind),
                  MostArguments(function),
                  {},
                  IsUnsigned(type, function.elemdescFunc.tdesc)};
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        // GetFuncDesc of a dual interface describes the result in elemdescFunc or in the retval
        // parameter: Windows and Wine differ.
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)
            member.unsignedResult =
                parameter.tdesc.vt == VT_PTR && IsUnsigned(type, *parameter.tdesc.lptdesc);
        member.passed.push_back(PassedType(type, parameter));
    }
    return member;
}

} // namespace

// All functions are listed, because Windows and Wine number them differently: GetFuncDesc of a dual
// interface counts those of IDispatch, or does not.
MemberTable::MemberTable(ITypeInfo* type) {
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
        struct Release {
            ITypeInfo* type;
            FUNCDESC* function;
            ~Release() { type->ReleaseFuncDesc(function); }
        } const release{type, function};
        members_.push_back(Describe(type, *function));
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
