// SPDX-License-Identifier: MIT
#include "host_object.h"

#include <iterator>

namespace vndesk {
namespace {

using Microsoft::WRL::ComPtr;

std::wstring Text(VARIANT* value) {
    if (value->vt == VT_NULL)
        return L"Null";
    VARIANT text;
    VariantInit(&text);
    if (FAILED(VariantChangeType(&text, value, VARIANT_ALPHABOOL, VT_BSTR)))
        return L"(object)";
    std::wstring result(text.bstrVal ? text.bstrVal : L"", SysStringLen(text.bstrVal));
    VariantClear(&text);
    return result;
}

long Number(VARIANT* value) {
    VARIANT number;
    VariantInit(&number);
    return SUCCEEDED(VariantChangeType(&number, value, 0, VT_I4)) ? number.lVal : 0;
}

void SetNumber(VARIANT* result, size_t number) {
    result->vt = VT_I4;
    result->lVal = static_cast<LONG>(number);
}

// Events and windows of this thread must go on while the script sleeps.
void SleepPumping(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now; (now = GetTickCount64()) < end;) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

class ArgumentList final : public ScriptObject {
public:
    explicit ArgumentList(std::vector<std::wstring> items) : items_(std::move(items)) {}

private:
    enum : DISPID { kItem = DISPID_VALUE, kCount = 1 };

    std::pair<const Member*, size_t> Members() const override {
        static constexpr Member kMembers[] = {
            {L"Item", kItem}, {L"Count", kCount}, {L"Length", kCount}};
        return {kMembers, std::size(kMembers)};
    }

    HRESULT Call(DISPID id, const Arguments& arguments, VARIANT* result,
                 std::wstring& error) override {
        if (id == kCount) {
            SetNumber(result, items_.size());
            return S_OK;
        }
        if (id != kItem)
            return DISP_E_MEMBERNOTFOUND;
        const long index = arguments.empty() ? -1 : Number(arguments[0]);
        if (index < 0 || static_cast<size_t>(index) >= items_.size()) {
            error = L"The program was given " + std::to_wstring(items_.size()) + L" arguments";
            return DISP_E_BADINDEX;
        }
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(items_[index].c_str());
        return S_OK;
    }

    std::vector<std::wstring> items_;
};

enum : DISPID { kEcho = 1, kQuit, kSleep, kArguments, kCreateObject, kConnect };

} // namespace

STDMETHODIMP ScriptObject::QueryInterface(REFIID iid, void** object) {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *object = known ? this : nullptr;
    if (known)
        AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) ScriptObject::AddRef() {
    return InterlockedIncrement(&references_);
}

STDMETHODIMP_(ULONG) ScriptObject::Release() {
    const ULONG left = InterlockedDecrement(&references_);
    if (!left)
        delete this;
    return left;
}

STDMETHODIMP ScriptObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP ScriptObject::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return DISP_E_BADINDEX;
}

STDMETHODIMP ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN; // no member has named arguments
    const auto [members, size] = Members();
    for (size_t i = 0; i < size; ++i)
        if (count && lstrcmpiW(members[i].name, names[0]) == 0)
            ids[0] = members[i].id;
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ScriptObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT*) {
    Arguments arguments;
    for (UINT i = parameters->cArgs; i-- > 0;) {
        VARIANT* argument = &parameters->rgvarg[i];
        arguments.push_back(argument->vt == (VT_BYREF | VT_VARIANT) ? argument->pvarVal : argument);
    }
    VARIANT value;
    VariantInit(&value);
    std::wstring error;
    const HRESULT hr = Call(id, arguments, &value, error);
    if (result)
        *result = value;
    else
        VariantClear(&value);
    if (SUCCEEDED(hr) || error.empty() || !exception)
        return hr;
    *exception = {};
    exception->scode = hr;
    exception->bstrSource = SysAllocString(L"WScript");
    exception->bstrDescription = SysAllocString(error.c_str());
    return DISP_E_EXCEPTION;
}

void HostObject::Disconnect() {
    for (EventConnection& connection : connections_)
        connection.Disconnect();
    connections_.clear();
}

std::pair<const ScriptObject::Member*, size_t> HostObject::Members() const {
    static constexpr Member kMembers[] = {
        {L"Echo", kEcho},
        {L"Quit", kQuit},
        {L"Sleep", kSleep},
        {L"Arguments", kArguments},
        {L"Connect", kConnect},
        {L"ConnectObject", kConnect},
        {L"CreateObject", kCreateObject},
    };
    return {kMembers, std::size(kMembers)};
}

HRESULT HostObject::Call(DISPID id, const Arguments& arguments, VARIANT* result,
                         std::wstring& error) {
    switch (id) {
    case kEcho: {
        std::wstring line;
        for (VARIANT* argument : arguments)
            line += (argument == arguments[0] ? L"" : L" ") + Text(argument);
        echo_(line);
        return S_OK;
    }
    case kQuit:
        quit_ = true;
        exitCode_ = arguments.empty() ? 0 : Number(arguments[0]);
        if (onQuit_)
            onQuit_(exitCode_);
        error = L"Quit";
        return kQuitting;
    case kSleep:
        SleepPumping(arguments.empty() ? 0 : static_cast<DWORD>(Number(arguments[0])));
        return S_OK;
    case kArguments: {
        ComPtr<IDispatch> list;
        *list.GetAddressOf() = new ArgumentList(arguments_);
        if (!arguments.empty()) { // Arguments(i)
            VARIANT index = *arguments[0];
            DISPPARAMS parameters = {&index, nullptr, 1, 0};
            EXCEPINFO exception = {};
            const HRESULT hr = list->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET,
                                            &parameters, result, &exception, nullptr);
            if (exception.bstrDescription)
                error = exception.bstrDescription;
            SysFreeString(exception.bstrSource);
            SysFreeString(exception.bstrDescription);
            return hr == DISP_E_EXCEPTION ? exception.scode : hr;
        }
        result->vt = VT_DISPATCH;
        result->pdispVal = list.Detach();
        return S_OK;
    }
    case kCreateObject: // CreateObject(progId [, prefix])
        return arguments.empty() ? DISP_E_BADPARAMCOUNT : Create(arguments, result, error);
    case kConnect: // Connect(object, prefix)
        return arguments.size() != 2 ? DISP_E_BADPARAMCOUNT
                                     : Join(arguments[0], Text(arguments[1]), error);
    }
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT HostObject::Create(const Arguments& arguments, VARIANT* result, std::wstring& error) {
    const std::wstring progId = Text(arguments[0]);
    CLSID clsid;
    IDispatch* object = nullptr;
    HRESULT hr = CLSIDFromProgID(progId.c_str(), &clsid);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    if (FAILED(hr)) {
        error = L"Cannot create " + progId;
        return hr;
    }
    result->vt = VT_DISPATCH;
    result->pdispVal = object;
    if (arguments.size() > 1)
        hr = Join(result, Text(arguments[1]), error);
    if (FAILED(hr))
        VariantClear(result);
    return hr;
}

HRESULT HostObject::Join(VARIANT* object, const std::wstring& prefix, std::wstring& error) {
    const VARTYPE type = object->vt & ~VT_BYREF;
    if (type != VT_DISPATCH && type != VT_UNKNOWN)
        return DISP_E_TYPEMISMATCH;
    IUnknown* source = object->vt & VT_BYREF ? *object->ppunkVal : object->punkVal;
    ComPtr<IDispatch> script;
    EventConnection connection;
    HRESULT hr = engine_->GetScriptDispatch(nullptr, &script);
    if (SUCCEEDED(hr))
        hr = EventConnection::Connect(source, script.Get(), prefix, connection);
    if (FAILED(hr))
        error = L"The object has no events";
    else
        connections_.push_back(connection);
    return hr;
}

} // namespace vndesk
