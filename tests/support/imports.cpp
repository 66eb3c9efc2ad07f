// SPDX-License-Identifier: MIT
#include "support/imports.h"

#include <cstring>

#include "support/text.h"

namespace vndesk::test {

std::vector<void**> ImportsFrom(HMODULE module, const char* dll) {
    const auto base = reinterpret_cast<BYTE*>(module);
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::vector<void**> slots;
    for (auto from =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         from->Name; ++from)
        if (_stricmp(reinterpret_cast<const char*>(base + from->Name), dll) == 0)
            for (auto slot = reinterpret_cast<void**>(base + from->FirstThunk); *slot; ++slot)
                slots.push_back(slot);
    return slots;
}

void SetImport(void** slot, void* function) {
    DWORD before = 0;
    if (!VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before))
        Fail(L"an import cannot be changed");
    *slot = function;
    VirtualProtect(slot, sizeof *slot, before, &before);
}

} // namespace vndesk::test
