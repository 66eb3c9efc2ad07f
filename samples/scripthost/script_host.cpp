// SPDX-License-Identifier: MIT
#include "script_host.h"

#include <stdexcept>

#include "bare_words.h"
#include "host_object.h"

namespace vndesk {

using Microsoft::WRL::ComPtr;

// What the engine asks of its host: the named objects, and where errors go.
class ScriptSite final : public IActiveScriptSite, public IActiveScriptSiteWindow {
public:
    void AddObject(const std::wstring& name, IDispatch* object) { objects_[name] = object; }
    void Clear() { objects_.clear(); }
    void Reset() { result_ = {}; }
    const ScriptResult& Result() const { return result_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IActiveScriptSite)
            *object = static_cast<IActiveScriptSite*>(this);
        else if (iid == IID_IActiveScriptSiteWindow)
            *object = static_cast<IActiveScriptSiteWindow*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&references_); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = InterlockedDecrement(&references_);
        if (!left)
            delete this;
        return left;
    }

    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; } // the user's own
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item,
                             ITypeInfo** info) override {
        if (info)
            *info = nullptr;
        const auto found = objects_.find(name);
        if (found == objects_.end())
            return TYPE_E_ELEMENTNOTFOUND;
        if (wanted & SCRIPTINFO_IUNKNOWN)
            found->second.CopyTo(reinterpret_cast<IDispatch**>(item));
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO info = {};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&info);
        error->GetSourcePosition(&context, &line, &column);
        if (info.pfnDeferredFillIn)
            info.pfnDeferredFillIn(&info);
        result_.hr = DISP_E_EXCEPTION;
        result_.line = static_cast<int>(line) + 1;
        result_.code = info.scode ? info.scode : MAKE_HRESULT(1, FACILITY_CONTROL, info.wCode);
        result_.text = info.bstrDescription ? info.bstrDescription : L"";
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SysFreeString(info.bstrHelpFile);
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    STDMETHODIMP GetWindow(HWND* window) override { // MsgBox of the script
        *window = nullptr;
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

private:
    ~ScriptSite() = default;

    LONG references_ = 1;
    std::map<std::wstring, ComPtr<IDispatch>> objects_;
    ScriptResult result_;
};

ScriptHost::ScriptHost(const wchar_t* language, Echo echo, Quit onQuit) {
    CLSID clsid;
    HRESULT hr = CLSIDFromProgID(language, &clsid);
    if (SUCCEEDED(hr))
        hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&engine_));
    if (SUCCEEDED(hr))
        hr = engine_.As(&parser_);
    if (SUCCEEDED(hr))
        hr = parser_->InitNew();
    // Not by Attach: mingw-w64's adds a reference of its own.
    *site_.GetAddressOf() = new ScriptSite;
    *host_.GetAddressOf() = new HostObject(std::move(echo), std::move(onQuit));
    if (SUCCEEDED(hr))
        hr = engine_->SetScriptSite(site_.Get());
    if (FAILED(hr))
        throw std::runtime_error("this script language is not installed");
    host_->SetEngine(engine_.Get());
    site_->AddObject(L"WScript", host_.Get());
    engine_->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE);
    ComPtr<IDispatch> words;
    *words.GetAddressOf() = new BareWords(host_.Get());
    site_->AddObject(L"BareWords", words.Get());
    engine_->AddNamedItem(L"BareWords", SCRIPTITEM_GLOBALMEMBERS);
}

ScriptHost::~ScriptHost() {
    if (host_)
        host_->Disconnect();
    if (engine_)
        engine_->Close();
    if (site_)
        site_->Clear();
}

void ScriptHost::SetArguments(std::vector<std::wstring> arguments) {
    host_->SetArguments(std::move(arguments));
}

void ScriptHost::AddObject(const wchar_t* name, IDispatch* object) {
    site_->AddObject(name, object);
    engine_->AddNamedItem(name, SCRIPTITEM_ISVISIBLE);
}

ScriptResult ScriptHost::Run(const std::wstring& source) {
    site_->Reset();
    EXCEPINFO exception = {};
    HRESULT hr = parser_->ParseScriptText(source.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                          SCRIPTTEXT_ISVISIBLE, nullptr, &exception);
    if (SUCCEEDED(hr))
        hr = engine_->SetScriptState(SCRIPTSTATE_CONNECTED);
    ScriptResult result = site_->Result();
    if (SUCCEEDED(result.hr) && FAILED(hr)) // an engine that reports no details
        result.hr = result.code = hr;
    result.quit = host_->HasQuit();
    result.exitCode = host_->ExitCode();
    if (result.quit && result.code == kQuitting)
        result.hr = S_OK;
    return result;
}

} // namespace vndesk
