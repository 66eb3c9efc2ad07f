// SPDX-License-Identifier: MIT
// Methods that the interface already has and this version does not do yet. A method that works is
// taken out of this list: the tests see that it was left in.
#pragma once
#include <string>
#include <vector>

namespace vndesk::test {

struct UnavailableMethod {
    const wchar_t* progId;
    const wchar_t* method;
    int arguments;
};

inline const std::vector<UnavailableMethod> kUnavailable = {
    {L"VnDesk.Varnok", L"FindShow", 2},
};

inline bool IsUnavailable(const std::wstring& progId, const std::wstring& method) {
    for (const UnavailableMethod& entry : kUnavailable)
        if (progId == entry.progId && method == entry.method)
            return true;
    return false;
}

} // namespace vndesk::test
