// SPDX-License-Identifier: MIT
// For tests and for hunting errors: with VNDESK_ADO_TRACE=file in the environment, every statement
// is appended to the file as the host gave it, one line each, in UTF-8.
#pragma once

#include <string_view>

namespace vndesk::ado {

void TraceStatement(std::wstring_view statement);

} // namespace vndesk::ado
