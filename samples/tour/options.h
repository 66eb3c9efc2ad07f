// SPDX-License-Identifier: MIT
// The command line: where the database is and how long the program stays.
#pragma once
#include <string>

struct Options {
    std::wstring connect; // what every call of the library is given
    std::wstring file;    // the embedded database, empty when it is another one
    bool once = false;    // leave after the logon
    std::wstring error;   // what is wrong with the command line, empty when it is right
};

Options ReadOptions(const wchar_t* commandLine);

// The connection string of an embedded database in a file.
std::wstring EmbeddedConnection(const std::wstring& file);
