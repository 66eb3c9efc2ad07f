// SPDX-License-Identifier: MIT
#include "api/classes/help_call_back.h"

#include "comkit/base/bstr.h"

namespace vndesk {

namespace {

constexpr DISPID kMenuHelp = 1;

// The whole text, embedded zeros included.
_variant_t Text(BSTR text) {
    _variant_t value;
    V_BSTR(&value) = ToBstr(FromBstr(text));
    V_VT(&value) = VT_BSTR;
    return value;
}

} // namespace

STDMETHODIMP HelpCallBack::RaiseHelpEvent(BSTR menuText, BSTR menuHelp, VARIANT_BOOL enabled) {
    return Guard([&] {
        Fire(kMenuHelp, {Text(menuText), Text(menuHelp), _variant_t(enabled != VARIANT_FALSE)});
    });
}

} // namespace vndesk
