// SPDX-License-Identifier: MIT
// The reference as Markdown: one page a class, one for the other types, and an index.
#pragma once

#include <map>
#include <string>

#include "reference/idl.h"

namespace reference {

// File names and what they hold.
using Pages = std::map<std::string, std::string>;

Pages MakePages(const Library& library);

// What the IDL leaves without a description: "Class.Member.Parameter".
std::vector<std::string> Undescribed(const Library& library);

} // namespace reference
