// SPDX-License-Identifier: MIT
// The parameters of a command. The command and its Parameters share the list; each Parameter shares
// its own state with it.
#pragma once

#include <windows.h>
#include <comutil.h>

#include <memory>
#include <string>
#include <vector>

#include <msado15_backcompat.h>

#include "comkit/object/com_object.h"

namespace vndesk::ado {

struct ParameterState {
    std::wstring name;
    DataTypeEnum type = adEmpty;
    ParameterDirectionEnum direction = adParamInput;
    ADO_LONGPTR size = 0;
    BYTE precision = 0;
    BYTE scale = 0;
    LONG attributes = 0;
    _variant_t value; // plain
    bool appended = false;
};

struct ParameterList {
    struct Entry {
        ComPtr<_Parameter> object;
        std::shared_ptr<ParameterState> state;
    };

    ParameterList() = default;
    ~ParameterList() {
        for (const Entry& entry : entries)
            entry.state->appended = false;
    }
    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;

    std::vector<Entry> entries;
};

// How a collection finds the state of a Parameter, and that it is one of ours.
MIDL_INTERFACE("6f0b7d21-45c9-4a3e-8e52-1d7c9a60b3f8")
IParameterSource : public IUnknown {
public:
    virtual std::shared_ptr<ParameterState> State() = 0;
};

} // namespace vndesk::ado

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(vndesk::ado::IParameterSource, 0x6f0b7d21, 0x45c9, 0x4a3e, 0x8e, 0x52, 0x1d, 0x7c,
                0x9a, 0x60, 0xb3, 0xf8)
#endif
