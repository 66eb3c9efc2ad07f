// SPDX-License-Identifier: MIT
#include "ado/objects/property_objects.h"

#include "ado/objects/collection_index.h"
#include "ado/objects/enum_variant.h"

namespace vndesk::ado {

namespace {

constexpr LONG kReadable = 0x200; // ADO's adPropRead, which Wine's header lacks

} // namespace

std::vector<PropertyValue> PropertiesOf(const Session& session) {
    return {{L"DBMS Name", session.EngineName()},
            {L"DBMS Version", session.EngineVersion()},
            {L"Provider Name", L"adobridge.dll"}};
}

STDMETHODIMP PropertyObject::get_Value(VARIANT* value) {
    return Get(value, [&](VARIANT& out) {
        V_BSTR(&out) = ToBstr(property_.value);
        V_VT(&out) = VT_BSTR;
    });
}

STDMETHODIMP PropertyObject::get_Name(BSTR* name) {
    return Get(name, [&](BSTR& out) { out = ToBstr(property_.name); });
}

STDMETHODIMP PropertyObject::get_Type(DataTypeEnum* type) {
    return Get(type, [](DataTypeEnum& out) { out = adBSTR; });
}

STDMETHODIMP PropertyObject::get_Attributes(LONG* attributes) {
    return Get(attributes, [](LONG& out) { out = kReadable; });
}

STDMETHODIMP PropertiesObject::get_Count(LONG* count) {
    return Get(count, [&](LONG& out) { out = static_cast<LONG>(properties_.size()); });
}

STDMETHODIMP PropertiesObject::_NewEnum(IUnknown** enumerator) {
    return Get(enumerator, [&](IUnknown*& out) {
        std::vector<ComPtr<IDispatch>> properties;
        for (const PropertyValue& property : properties_)
            properties.push_back(MakeCom<PropertyObject>(property));
        out = EnumerateObjects(std::move(properties)).Detach();
    });
}

STDMETHODIMP PropertiesObject::get_Item(VARIANT index, Property** property) {
    return Get(property, [&](Property*& out) {
        const std::size_t found =
            FindItem(index, properties_.size(), [&](std::size_t i) { return properties_[i].name; });
        out = MakeCom<PropertyObject>(properties_[found]).Detach();
    });
}

} // namespace vndesk::ado
