// SPDX-License-Identifier: MIT
// Published interfaces never change: a host built with other ones would call past the end of this
// DLL's tables, or the wrong member.
#include <gtest/gtest.h>
#include <olectl.h>

#include <map>
#include <string>

#include "com/registered_dll.h"
#include "support/text.h"
#include "vndesk_idl.h"

namespace {

using namespace vndesk::test;

// Identifier, then the members in the order of the table with their numbers. An accessor is a
// member by itself: < reads, > writes, & writes an object.
const std::map<std::wstring, std::wstring> kPublished = {
    {L"DDataCombo1Events",
     L"{7659BAAB-B73D-4D0E-8D68-C9878BCC4BDF} Click:-600 DblClick:-601 KeyDown:-602 "
     L"KeyPress:-603 KeyUp:-604"},
    {L"DHelpCallBackEvents", L"{B1D7F950-C47B-49AD-BAEC-F1ACB16628B7} MenuHelp:1"},
    {L"DSelItemEvents", L"{D19ECD9D-F8AE-4D73-BD7D-195A622484E5} Change:1"},
    {L"ICoolMenu", L"{94941B7B-34B9-4FE5-ABF3-B86DECCACACE} Install:1 FontName:2 FontSize:3 "
                   L"ForeColor:4 SelectColor:5 ComplexChecks:6 ColorEmbossed:7 RightToLeft:8 "
                   L"FullSelect:9 Uninstall:10 MDIChildMenu:11"},
    {L"IDataCombo1",
     L"{2DA3D6CA-C346-49C5-8E11-11023CE77C7C} BackColor<:-501 BackColor>:-501 "
     L"ForeColor<:-513 ForeColor>:-513 Enabled<:-514 Enabled>:-514 Font<:-512 "
     L"Font&:-512 Font>:-512 BackStyle<:-502 BackStyle>:-502 BorderStyle<:-504 "
     L"BorderStyle>:-504 Refresh:-550 ListIndex<:-526 ListIndex>:-526 ListIndex1<:1 "
     L"ListIndex1>:1 AddItem:-553 Text<:-517 Text>:-517 Value<:2 Value>:2 ItemData<:3 "
     L"ItemData>:3 Clear:-554 NewIndex<:4 ListCount<:-531 RemoveItem:-555 List<:-528 "
     L"List>:-528"},
    {L"IHelpCallBack", L"{F3C021B9-71C9-4AC6-85D2-0F61B9F12E5C} RaiseHelpEvent:1"},
    {L"ILogon", L"{285B6855-94FD-4438-994D-74236EF28704} ShowLogon:1 ShowUser:2 UserManager:3 "
                L"ShowGroup:4 MgBox:5 SetDfFont:6"},
    {L"IRegistry",
     L"{AA8EE642-C5F4-4261-8306-1026DD14E60C} GetKeyValue:1 WriteRegEdit:2 Create_DSN:3 "
     L"Create_DSN_EXL:4"},
    {L"ISearch", L"{8C4E9CCF-CEF0-4A44-BCAC-404F3457937A} ActiveConnection<:1 ActiveConnection>:1 "
                 L"TableSearch<:2 TableSearch>:2 Result<:3 Show:4"},
    {L"ISelItem", L"{E51C19D3-5192-4171-92BE-885E30CACB3E} SetTextSel:1 SetTextSelID:2 Clear:3 "
                  L"SelName<:4 SelID<:5 SqlName<:6 SqlName>:6 SqlID<:7 SqlID>:7 SearchText<:8 "
                  L"SearchText>:8 ActiveConnection<:9 ActiveConnection>:9"},
    {L"IVarnok", L"{07CAEEE2-CFA9-45D1-944D-6DFB6B57EE3D} GetUSName:1 GetPCName:2 BackUpData:3 "
                 L"ESendKey:4 Gui_Phim:5 CopyFile:6 WinHelp:7 WriteRegA:8 ReadRegVlA:9 Sign:10 "
                 L"CvNStr:11 CvTextToN:12 Mid1:13 FindShow:14"},
};

std::wstring Kind(INVOKEKIND kind) {
    switch (kind) {
    case INVOKE_PROPERTYGET:
        return L"<";
    case INVOKE_PROPERTYPUT:
        return L">";
    case INVOKE_PROPERTYPUTREF:
        return L"&";
    default:
        return L"";
    }
}

std::wstring NameOf(ITypeInfo* type, MEMBERID id) {
    BSTR name = nullptr;
    EXPECT_HRESULT_SUCCEEDED(type->GetDocumentation(id, &name, nullptr, nullptr, nullptr));
    const std::wstring copy(name ? name : L"", SysStringLen(name));
    SysFreeString(name);
    return copy;
}

// An interface as kPublished writes it.
std::wstring Described(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    EXPECT_HRESULT_SUCCEEDED(type->GetTypeAttr(&attributes));
    std::wstring text = GuidText(attributes->guid);
    std::map<short, std::wstring> byPlace;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_HRESULT_SUCCEEDED(type->GetFuncDesc(i, &function));
        // Events have no table.
        const short place =
            attributes->typekind == TKIND_DISPATCH ? static_cast<short>(i) : function->oVft;
        byPlace[place] = L" " + NameOf(type, function->memid) + Kind(function->invkind) + L":" +
                         std::to_wstring(function->memid);
        type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
    for (const auto& [place, member] : byPlace)
        text += member;
    return text;
}

// Every interface of the type library by name; of dual ones the table's side.
std::map<std::wstring, std::wstring> Interfaces() {
    std::map<std::wstring, std::wstring> found;
    const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        EXPECT_HRESULT_SUCCEEDED(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_DISPATCH && kind != TKIND_INTERFACE)
            continue;
        ComPtr<ITypeInfo> type;
        EXPECT_HRESULT_SUCCEEDED(library->GetTypeInfo(i, &type));
        HREFTYPE table = 0;
        if (SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &table))) {
            ComPtr<ITypeInfo> other;
            EXPECT_HRESULT_SUCCEEDED(type->GetRefTypeInfo(table, &other));
            type = other;
        }
        found[NameOf(type.Get(), MEMBERID_NIL)] = Described(type.Get());
    }
    return found;
}

TEST(PublishedInterfaces, AreAsTheyWerePublished) {
    const auto found = Interfaces();
    for (const auto& [name, text] : kPublished) {
        const auto at = found.find(name);
        ASSERT_NE(found.end(), at) << ToUtf8(name);
        EXPECT_EQ(ToUtf8(text), ToUtf8(at->second)) << ToUtf8(name);
    }
}

TEST(PublishedInterfaces, AreAnsweredByTheirClasses) {
    for (const RegisteredClass& entry : RegisteredClasses())
        for (const auto& [name, text] : kPublished) {
            if (name != L"I" + entry.name && name != L"I" + entry.name.substr(3) &&
                name != L"I" + entry.name.substr(1))
                continue;
            IID iid = {};
            ASSERT_HRESULT_SUCCEEDED(IIDFromString(text.substr(0, 38).c_str(), &iid));
            ComPtr<IUnknown> object;
            EXPECT_HRESULT_SUCCEEDED(entry.Create(iid, &object)) << ToUtf8(name);
        }
}

// The colours of the control are the platform's own type, by which designers know them.
TEST(PublishedInterfaces, ColoursAreThoseOfTheStandardLibrary) {
    const ComPtr<ITypeLib> library = RegisteredTypeLibrary();
    ComPtr<ITypeInfo> combo;
    ASSERT_HRESULT_SUCCEEDED(library->GetTypeInfoOfGuid(__uuidof(IDataCombo1), &combo));
    int colours = 0;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(combo->GetFuncDesc(i, &function)); ++i) {
        const TYPEDESC* type = nullptr;
        if (function->memid == DISPID_BACKCOLOR || function->memid == DISPID_FORECOLOR) {
            type = function->cParams ? &function->lprgelemdescParam[0].tdesc
                                     : &function->elemdescFunc.tdesc;
            if (type->vt == VT_PTR)
                type = type->lptdesc;
            ASSERT_EQ(VT_USERDEFINED, type->vt);
            ComPtr<ITypeInfo> colour;
            ASSERT_HRESULT_SUCCEEDED(combo->GetRefTypeInfo(type->hreftype, &colour));
            EXPECT_EQ("OLE_COLOR", ToUtf8(NameOf(colour.Get(), MEMBERID_NIL)));
            ComPtr<ITypeLib> owner;
            UINT index = 0;
            ASSERT_HRESULT_SUCCEEDED(colour->GetContainingTypeLib(&owner, &index));
            TLIBATTR* attributes = nullptr;
            ASSERT_HRESULT_SUCCEEDED(owner->GetLibAttr(&attributes));
            EXPECT_EQ(L"{00020430-0000-0000-C000-000000000046}", GuidText(attributes->guid));
            owner->ReleaseTLibAttr(attributes);
            ++colours;
        }
        combo->ReleaseFuncDesc(function);
    }
    EXPECT_EQ(4, colours);
}

} // namespace
