// SPDX-License-Identifier: MIT
// The objects that scripts know as WScript and WScript.Arguments.
#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>
#include <activscp.h>

#include "event_sink.h"

namespace vndesk {

// What Quit raises to stop the script.
constexpr HRESULT kQuitting = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, 0x0260);

// IDispatch over a list of names: what the host's own objects share.
class ScriptObject : public IDispatch {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrong) override;

    struct Member {
        const wchar_t* name;
        DISPID id;
    };
    using Arguments = std::vector<VARIANT*>; // in the order of the call

    virtual std::pair<const Member*, size_t> Members() const = 0;
    // A failure's text goes into `error`; `result` is never null.
    virtual HRESULT Call(DISPID id, const Arguments& arguments, VARIANT* result,
                         std::wstring& error) = 0;

protected:
    virtual ~ScriptObject() = default;

private:
    LONG references_ = 1;
};

class HostObject final : public ScriptObject {
public:
    using Echo = std::function<void(const std::wstring& line)>;
    using Quit = std::function<void(int exitCode)>;

    HostObject(Echo echo, Quit onQuit) : echo_(std::move(echo)), onQuit_(std::move(onQuit)) {}

    void SetEngine(IActiveScript* engine) { engine_ = engine; }
    void SetArguments(std::vector<std::wstring> arguments) { arguments_ = std::move(arguments); }
    void Disconnect(); // ends all event connections
    bool HasQuit() const { return quit_; }
    int ExitCode() const { return exitCode_; }

private:
    std::pair<const Member*, size_t> Members() const override;
    HRESULT Call(DISPID id, const Arguments& arguments, VARIANT* result,
                 std::wstring& error) override;
    HRESULT Create(const Arguments& arguments, VARIANT* result, std::wstring& error);
    HRESULT Join(VARIANT* object, const std::wstring& prefix, std::wstring& error);

    Echo echo_;
    Quit onQuit_;
    IActiveScript* engine_ = nullptr; // holds us, so not counted
    std::vector<std::wstring> arguments_;
    std::vector<EventConnection> connections_;
    bool quit_ = false;
    int exitCode_ = 0;
};

} // namespace vndesk
