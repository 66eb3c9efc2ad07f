// SPDX-License-Identifier: MIT
// The Properties of a connection: what the engine says of itself, to be read only.
#pragma once

#include <string>
#include <vector>

#include "ado/engine/session.h"
#include "ado/objects/ado_object.h"

namespace vndesk::ado {

struct PropertyValue {
    const wchar_t* name;
    std::wstring value;
};

// Those of an open connection.
std::vector<PropertyValue> PropertiesOf(const Session& session);

class PropertyObject final : public AdoObject<PropertyObject, Property, InterfaceList<IDispatch>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Property";

    explicit PropertyObject(PropertyValue property) : property_(std::move(property)) {}

    STDMETHODIMP get_Value(VARIANT* value) override;
    ADO_REFUSED(put_Value, VARIANT)
    STDMETHODIMP get_Name(BSTR* name) override;
    STDMETHODIMP get_Type(DataTypeEnum* type) override;
    STDMETHODIMP get_Attributes(LONG* attributes) override;
    ADO_REFUSED(put_Attributes, LONG)

private:
    const PropertyValue property_;
};

class PropertiesObject final
    : public AdoObject<PropertiesObject, Properties, InterfaceList<_Collection>> {
public:
    static constexpr const wchar_t* kProgId = L"ADODB.Properties";

    explicit PropertiesObject(std::vector<PropertyValue> properties)
        : properties_(std::move(properties)) {}

    STDMETHODIMP get_Count(LONG* count) override;
    STDMETHODIMP _NewEnum(IUnknown** enumerator) override;
    STDMETHODIMP Refresh() override { return S_OK; }
    STDMETHODIMP get_Item(VARIANT index, Property** property) override;

private:
    const std::vector<PropertyValue> properties_;
};

} // namespace vndesk::ado
