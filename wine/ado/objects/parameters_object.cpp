// SPDX-License-Identifier: MIT
#include "ado/objects/parameters_object.h"

#include "ado/engine/parameter_value.h"
#include "ado/objects/collection_index.h"
#include "ado/objects/enum_variant.h"

namespace vndesk::ado {

std::size_t ParametersObject::IndexOf(const VARIANT& index) const {
    return FindItem(index, list_->entries.size(),
                    [&](std::size_t i) { return list_->entries[i].state->name; });
}

STDMETHODIMP ParametersObject::Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                      UINT* badArgument) {
    if (member != DISPID_VALUE || !(flags & DISPATCH_PROPERTYPUT) || !parameters ||
        parameters->cArgs != 2 || parameters->cNamedArgs != 1)
        return AdoObject::Invoke(member, iid, lcid, flags, parameters, result, exception,
                                 badArgument);
    _variant_t item;
    DISPPARAMS index = {&parameters->rgvarg[1], nullptr, 1, 0};
    const HRESULT found = AdoObject::Invoke(member, iid, lcid, DISPATCH_PROPERTYGET, &index, &item,
                                            exception, badArgument);
    if (FAILED(found))
        return found;
    DISPPARAMS value = {parameters->rgvarg, parameters->rgdispidNamedArgs, 1, 1};
    return V_DISPATCH(&item)->Invoke(DISPID_VALUE, iid, lcid, DISPATCH_PROPERTYPUT, &value, result,
                                     exception, badArgument);
}

STDMETHODIMP ParametersObject::get_Count(LONG* count) {
    return Get(count, [&](LONG& out) { out = static_cast<LONG>(list_->entries.size()); });
}

STDMETHODIMP ParametersObject::_NewEnum(IUnknown** enumerator) {
    return Get(enumerator, [&](IUnknown*& out) {
        std::vector<ComPtr<IDispatch>> parameters;
        for (const ParameterList::Entry& entry : list_->entries)
            parameters.push_back(entry.object);
        out = EnumerateObjects(std::move(parameters)).Detach();
    });
}

STDMETHODIMP ParametersObject::Append(IDispatch* parameter) {
    return Guard([&] {
        ParameterList::Entry entry;
        ComPtr<IParameterSource> source;
        if (!parameter || FAILED(parameter->QueryInterface(IID_PPV_ARGS(&source))) ||
            FAILED(parameter->QueryInterface(IID_PPV_ARGS(&entry.object))))
            ThrowMisuse(AdoMisuse::InvalidArgument);
        entry.state = source->State();
        if (entry.state->appended)
            ThrowMisuse(AdoMisuse::ObjectInCollection);
        if (entry.state->type == adEmpty || (IsSized(entry.state->type) && entry.state->size == 0))
            ThrowMisuse(AdoMisuse::ParameterUndefined);
        list_->entries.push_back(entry);
        entry.state->appended = true;
    });
}

STDMETHODIMP ParametersObject::Delete(VARIANT index) {
    return Guard([&] {
        const auto found = list_->entries.begin() + static_cast<std::ptrdiff_t>(IndexOf(index));
        const ParameterList::Entry removed = *found; // outlives its place in the list
        list_->entries.erase(found);
        removed.state->appended = false;
    });
}

STDMETHODIMP ParametersObject::get_Item(VARIANT index, _Parameter** parameter) {
    return Get(parameter, [&](_Parameter*& out) {
        CheckHr(list_->entries[IndexOf(index)].object.CopyTo(&out));
    });
}

} // namespace vndesk::ado
