// SPDX-License-Identifier: MIT
// Command.CreateParameter called late. The type library cannot hold the default of its size, a
// number as wide as pointers: ITypeInfo::Invoke would pass something else when it is left out.
#pragma once

#include <windows.h>

#include <msado15_backcompat.h>

namespace vndesk::ado {

HRESULT InvokeCreateParameter(_Command& command, const DISPPARAMS& given, VARIANT* result,
                              EXCEPINFO* exception) noexcept;

} // namespace vndesk::ado
