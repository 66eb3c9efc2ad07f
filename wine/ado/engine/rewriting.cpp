// SPDX-License-Identifier: MIT
#include "ado/engine/rewriting.h"

#include <windows.h>

namespace vndesk::ado {

bool LeavesStatements() {
    wchar_t value[2] = L"";
    return GetEnvironmentVariableW(L"VNDESK_ADO_AS_WRITTEN", value, 2) == 1 && value[0] == L'1';
}

} // namespace vndesk::ado
