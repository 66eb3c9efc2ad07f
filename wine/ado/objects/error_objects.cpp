// SPDX-License-Identifier: MIT
#include "ado/objects/error_objects.h"

#include "ado/engine/ado_error.h"
#include "ado/objects/enum_variant.h"

namespace vndesk::ado {

STDMETHODIMP ErrorObject::get_Number(LONG* number) {
    return Get(number, [&](LONG& out) { out = entry_.diagnostic.code; });
}

STDMETHODIMP ErrorObject::get_Source(BSTR* source) {
    return Get(source, [&](BSTR& out) { out = ToBstr(entry_.source); });
}

STDMETHODIMP ErrorObject::get_Description(BSTR* description) {
    return Get(description, [&](BSTR& out) { out = ToBstr(entry_.diagnostic.description); });
}

STDMETHODIMP ErrorObject::get_HelpFile(BSTR* file) {
    return Get(file, [](BSTR& out) { out = ToBstr(L""); });
}

STDMETHODIMP ErrorObject::get_HelpContext(LONG* context) {
    return Get(context, [](LONG& out) { out = 0; });
}

STDMETHODIMP ErrorObject::get_SQLState(BSTR* state) {
    return Get(state, [&](BSTR& out) { out = ToBstr(entry_.diagnostic.sqlState); });
}

STDMETHODIMP ErrorObject::get_NativeError(LONG* number) {
    return Get(number, [&](LONG& out) { out = entry_.diagnostic.nativeError; });
}

STDMETHODIMP ErrorsObject::get_Count(LONG* count) {
    return Get(count, [&](LONG& out) { out = static_cast<LONG>(log_->Entries().size()); });
}

STDMETHODIMP ErrorsObject::_NewEnum(IUnknown** enumerator) {
    return Get(enumerator, [&](IUnknown*& out) {
        std::vector<ComPtr<IDispatch>> errors;
        for (const ErrorEntry& entry : log_->Entries())
            errors.push_back(MakeCom<ErrorObject>(entry));
        out = EnumerateObjects(std::move(errors)).Detach();
    });
}

STDMETHODIMP ErrorsObject::get_Item(VARIANT index, Error** error) {
    return Get(error, [&](Error*& out) {
        const long number = Argument(index).Number();
        if (number < 0 || number >= static_cast<long>(log_->Entries().size()))
            ThrowMisuse(AdoMisuse::ItemNotFound);
        out = MakeCom<ErrorObject>(log_->Entries()[number]).Detach();
    });
}

STDMETHODIMP ErrorsObject::Clear() {
    return Guard([&] { log_->Clear(); });
}

} // namespace vndesk::ado
