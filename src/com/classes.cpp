// SPDX-License-Identifier: MIT
// Every creatable class of the library, one row each: registration and the class objects read it.
// A new class is one row here and its interface in vndesk.idl.
#include "com/kit/com_object.h"
#include "com/kit/module.h"
#include "api/cls_varnok.h"
#include "api/cls_logon.h"
#include "api/cls_registry.h"
#include "vndesk_idl.h"

namespace vndesk {

namespace {

constexpr ClassEntry kClasses[] = {
    {&__uuidof(clsLogon), Logon::kProgId, L"VnDesk logon", CreateInstanceOf<Logon>},
    {&__uuidof(::Varnok), Varnok::kProgId, L"VnDesk utilities", CreateInstanceOf<Varnok>},
    {&__uuidof(clsRegistry), Registry::kProgId, L"VnDesk registry and data sources",
     CreateInstanceOf<Registry>},
};

} // namespace

const ModuleInfo moduleInfo = {kClasses, &LIBID_VnDesk, nullptr};

} // namespace vndesk
