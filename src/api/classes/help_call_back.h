// SPDX-License-Identifier: MIT
// HelpCallBack: fires the event that tells a host which menu item the user is on.
#pragma once

#include "comkit/object/connection_points.h"
#include "vndesk_idl.h"

namespace vndesk {

class HelpCallBack final
    : public EventObject<HelpCallBack, ::HelpCallBack, IHelpCallBack, DHelpCallBackEvents> {
public:
    static constexpr const wchar_t* kProgId = L"VnDesk.HelpCallBack";

    STDMETHODIMP RaiseHelpEvent(BSTR menuText, BSTR menuHelp, VARIANT_BOOL enabled) override;
};

} // namespace vndesk
