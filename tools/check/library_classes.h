// SPDX-License-Identifier: MIT
// The classes that belong to the library, whether or not they are registered: from the type library
// that vndesk-check carries itself, so that the two cannot differ.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace vndesk::check {

struct LibraryClass {
    std::wstring progId; // "VnDesk.clsLogon"
    CLSID clsid;
};

struct OwnTypeLibrary {
    GUID id;
    WORD major;
    WORD minor;
    std::vector<LibraryClass> classes;
};

OwnTypeLibrary ReadOwnTypeLibrary();

} // namespace vndesk::check
