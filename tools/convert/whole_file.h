// SPDX-License-Identifier: MIT
// Files that are there as a whole or not at all.
#pragma once

#include <string>

namespace vndesk::convert {

// Throws ComError with the system's words, as the other does.
std::string ReadWhole(const std::wstring& path);

// Written beside it under another name, which is then changed. What stood there before stays until
// then.
void WriteWhole(const std::wstring& path, const std::string& bytes);

} // namespace vndesk::convert
