// SPDX-License-Identifier: MIT
#include "help_call_back.h"

namespace vndesk {

namespace {

constexpr DISPID kMenuHelp = 1;

} // namespace

STDMETHODIMP HelpCallBack::RaiseHelpEvent(BSTR menuText, BSTR menuHelp, VARIANT_BOOL enabled) {
    return Guard([&] {
        Fire(kMenuHelp,
             {_variant_t(menuText ? menuText : L""), _variant_t(menuHelp ? menuHelp : L""),
              _variant_t(enabled != VARIANT_FALSE)});
    });
}

} // namespace vndesk
