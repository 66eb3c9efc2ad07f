// SPDX-License-Identifier: MIT
// Every creatable class of the library, one row each: registration and the class objects read it.
// A new class is one row here and its interface in vndesk.idl.
#include <windows.h>
#include <comcat.h>
#include <objsafe.h>

#include "api/classes/c_sel_item.h"
#include "api/classes/cls_cool_menu.h"
#include "api/classes/cls_logon.h"
#include "api/classes/cls_message_box.h"
#include "api/classes/cls_registry.h"
#include "api/classes/cls_search.h"
#include "api/classes/cls_settings.h"
#include "api/classes/cls_text.h"
#include "api/classes/cls_varnok.h"
#include "api/classes/help_call_back.h"
#include "comkit/base/module.h"
#include "comkit/object/com_object.h"
#include "controls/combo/data_combo1.h"
#include "controls/combo/images.h"
#include "vndesk_idl.h"

namespace vndesk {

namespace {

constexpr const GUID* kDataComboCategories[] = {
    &CATID_Control,           &CATID_SafeForScripting,      &CATID_SafeForInitializing,
    &CATID_PersistsToStorage, &CATID_PersistsToPropertyBag, &CATID_PersistsToStreamInit};
constexpr ControlEntry kDataCombo = {DataCombo1::kMiscStatus, kBitmapDataCombo, L"1.0",
                                     kDataComboCategories};

constexpr ClassEntry kClasses[] = {
    {&__uuidof(clsLogon), Logon::kProgId, L"VnDesk logon", CreateInstanceOf<Logon>},
    {&__uuidof(::Varnok), Varnok::kProgId, L"VnDesk utilities", CreateInstanceOf<Varnok>},
    {&__uuidof(clsRegistry), Registry::kProgId, L"VnDesk registry and data sources",
     CreateInstanceOf<Registry>},
    {&__uuidof(::DataCombo1), DataCombo1::kProgId, L"VnDesk data combo",
     CreateInstanceOf<DataCombo1>, &kDataCombo},
    {&__uuidof(cSelItem), SelItem::kProgId, L"VnDesk selection boxes", CreateInstanceOf<SelItem>},
    {&__uuidof(clsSearch), Search::kProgId, L"VnDesk search", CreateInstanceOf<Search>},
    {&__uuidof(clsSettings), SettingsObject::kProgId, L"VnDesk settings",
     CreateInstanceOf<SettingsObject>},
    {&__uuidof(clsMessageBox), MessageBoxObject::kProgId, L"VnDesk message box",
     CreateInstanceOf<MessageBoxObject>},
    {&__uuidof(clsText), TextObject::kProgId, L"VnDesk Vietnamese text",
     CreateInstanceOf<TextObject>},
    {&__uuidof(clsCoolMenu), CoolMenu::kProgId, L"VnDesk menus", CreateInstanceOf<CoolMenu>},
    {&__uuidof(::HelpCallBack), HelpCallBack::kProgId, L"VnDesk menu help",
     CreateInstanceOf<HelpCallBack>},
};

} // namespace

const ModuleInfo moduleInfo = {kClasses, &LIBID_VnDesk, nullptr};

} // namespace vndesk
