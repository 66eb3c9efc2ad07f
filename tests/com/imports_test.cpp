// SPDX-License-Identifier: MIT
// What the system must load together with the library: each further import costs every host at its
// start, wanted or not.
#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <string>

#include "com/registered_dll.h"

namespace {

using namespace vndesk::test;

std::string LowerCase(std::string name) {
    CharLowerA(name.data());
    return name;
}

// The names in the import table of a loaded module.
std::set<std::string> ImportsOf(HMODULE module) {
    const auto* base = reinterpret_cast<const BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& table =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::set<std::string> names;
    for (auto* import =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
         import->Name != 0; ++import)
        names.insert(LowerCase(reinterpret_cast<const char*>(base + import->Name)));
    return names;
}

TEST(Imports, AreSystemLibrariesThatHostsHaveLoadedAnyway) {
    const HMODULE library = LoadLibraryW(RegisteredDllPath().c_str());
    ASSERT_NE(nullptr, library);
    const std::set<std::string> imports = ImportsOf(library);
    FreeLibrary(library);
    EXPECT_EQ(1u, imports.count("oleaut32.dll")) << "the table was not read";
    const std::set<std::string> usual = {"advapi32.dll", "gdi32.dll", "kernel32.dll",
                                         "msvcrt.dll",   "ole32.dll", "oleaut32.dll",
                                         "user32.dll"};
    for (const std::string& name : imports)
        EXPECT_EQ(1u, usual.count(name)) << name;
}

} // namespace
