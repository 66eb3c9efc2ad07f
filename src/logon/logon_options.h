// SPDX-License-Identifier: MIT
// What the host of one clsLogon sets for its logon dialog, and what it is told by it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include <ocidl.h>
#include <wrl/client.h>

namespace vndesk {

struct LogonOptions {
    std::wstring caption = {};                     // instead of "Login"
    std::wstring banner = {};                      // a line above the boxes; empty: none
    Microsoft::WRL::ComPtr<IPicture> picture = {}; // instead of the padlock
    std::wstring helpFile = {};
    std::wstring rememberKey = {}; // below HKEY_CURRENT_USER; empty: no name is kept
    bool pickUser = false;
    long maxTries = 0; // 0: no limit

    // The host answers a call for help itself.
    std::function<bool()> helped = {};
    // A name and its password have been refused, for the how manyth time.
    std::function<void(std::wstring_view name, long refusals)> refused = {};
};

} // namespace vndesk
