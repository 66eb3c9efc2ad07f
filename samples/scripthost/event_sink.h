// SPDX-License-Identifier: MIT
// Joins the events of an object to procedures of a script, <prefix><event name>.
#pragma once
#include <string>
#include <vector>
#include <windows.h>
#include <ocidl.h>
#include <wrl/client.h>

namespace vndesk {

// One connection; Disconnect() ends it.
class EventConnection {
public:
    // The script's procedures are looked up by name at each event; a missing one is not an error.
    static HRESULT Connect(IUnknown* source, IDispatch* script, const std::wstring& prefix,
                           EventConnection& connection);
    void Disconnect();

private:
    Microsoft::WRL::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

} // namespace vndesk
