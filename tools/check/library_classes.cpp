// SPDX-License-Identifier: MIT
#include "check/library_classes.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "comkit/base/com_error.h"
#include "comkit/base/module.h"

namespace vndesk::check {

using Microsoft::WRL::ComPtr;

namespace {

std::wstring NameOf(ITypeLib* library, INT index) {
    BSTR name = nullptr;
    CheckHr(library->GetDocumentation(index, &name, nullptr, nullptr, nullptr));
    const std::wstring text(name ? name : L"");
    SysFreeString(name);
    return text;
}

} // namespace

OwnTypeLibrary ReadOwnTypeLibrary() {
    ComPtr<ITypeLib> library;
    CheckHr(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &library));
    TLIBATTR* attributes = nullptr;
    CheckHr(library->GetLibAttr(&attributes));
    OwnTypeLibrary own = {attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum, {}};
    library->ReleaseTLibAttr(attributes);
    const std::wstring prefix = NameOf(library.Get(), -1) + L".";
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        CheckHr(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_COCLASS)
            continue;
        ComPtr<ITypeInfo> type;
        TYPEATTR* typeAttributes = nullptr;
        CheckHr(library->GetTypeInfo(i, &type));
        CheckHr(type->GetTypeAttr(&typeAttributes));
        own.classes.push_back(
            {prefix + NameOf(library.Get(), static_cast<INT>(i)), typeAttributes->guid});
        type->ReleaseTypeAttr(typeAttributes);
    }
    return own;
}

} // namespace vndesk::check
