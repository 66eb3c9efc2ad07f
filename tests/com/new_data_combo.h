// SPDX-License-Identifier: MIT
// The registered control DataCombo1 as an early-bound host makes it, and its other interfaces.
#pragma once

#include <wrl/client.h>

#include "support/check_hr.h"
#include "support/new_object.h"
#include "vndesk_idl.h"

namespace vndesk::test {

using Microsoft::WRL::ComPtr;

inline ComPtr<IDataCombo1> Create() {
    return NewObject<IDataCombo1>(L"VnDesk.DataCombo1");
}

template <class Interface> ComPtr<Interface> As(const ComPtr<IDataCombo1>& combo) {
    ComPtr<Interface> asked;
    EXPECT_SUCCEEDED(combo.As(&asked));
    return asked;
}

} // namespace vndesk::test
