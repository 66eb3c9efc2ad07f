// SPDX-License-Identifier: MIT
#include "api/classes/cls_registry.h"

#include "comkit/base/bstr.h"
#include "data/stores/data_source.h"
#include "data/stores/registry.h"

namespace vndesk {

namespace {

// HKEY_CLASSES_ROOT and its like are 32-bit numbers, sign-extended.
HKEY Handle(REGToolRootTypes root) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
}

} // namespace

STDMETHODIMP Registry::GetKeyValue(REGToolRootTypes root, BSTR* key, BSTR* name, BSTR* data,
                                   VARIANT_BOOL* opened) {
    return Guard([&] {
        VARIANT_BOOL& result = ClearedOut(opened);
        if (!data)
            throw ComError(E_POINTER);
        const auto value = ReadRegistry(Handle(root), FromReference(key), FromReference(name));
        if (!value)
            return;
        const BSTR replaced = ToBstr(*value);
        SysFreeString(*data);
        *data = replaced;
        result = VARIANT_TRUE;
    });
}

STDMETHODIMP Registry::WriteRegEdit(REGToolRootTypes root, BSTR* key, BSTR* name, BSTR* text,
                                    long* result) {
    return Guard([&] {
        ClearedOut(result);
        WriteRegistry(Handle(root), FromReference(key), FromReference(name), FromReference(text));
    });
}

STDMETHODIMP Registry::Create_DSN(BSTR* name, BSTR* description, BSTR* database, BSTR* server,
                                  BSTR* title, long* result) {
    return Guard([&] {
        ClearedOut(result);
        const std::wstring texts[] = {FromReference(name), FromReference(description),
                                      FromReference(database), FromReference(server),
                                      FromReference(title)};
        CreateDataSource(SqlServerSource{texts[0], texts[1], texts[2], texts[3], texts[4]});
    });
}

STDMETHODIMP Registry::Create_DSN_EXL(BSTR* name, BSTR* defaultFolder, BSTR* workbook,
                                      BSTR* fileType, BSTR* driverId, long* result) {
    return Guard([&] {
        ClearedOut(result);
        const std::wstring texts[] = {FromReference(name), FromReference(defaultFolder),
                                      FromReference(workbook), FromReference(fileType),
                                      FromReference(driverId)};
        CreateDataSource(ExcelSource{texts[0], texts[1], texts[2], texts[3], texts[4]});
    });
}

} // namespace vndesk
