// SPDX-License-Identifier: MIT
// The imports of a loaded module, whose calls a test may lead elsewhere for a while.
#pragma once
#include <vector>
#include <windows.h>

namespace vndesk::test {

// The slots of a module's imports from a DLL.
std::vector<void**> ImportsFrom(HMODULE module, const char* dll);
void SetImport(void** slot, void* function);

} // namespace vndesk::test
