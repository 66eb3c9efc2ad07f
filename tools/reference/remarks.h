// SPDX-License-Identifier: MIT
// The "///" lines above a declaration: paragraphs of Markdown, and "Error NUMBER: when".
#pragma once

#include <string>
#include <vector>

#include "reference/idl.h"

namespace reference {

// `lines` without their slashes. A line of an error goes on with four blanks.
Remarks ReadRemarks(const std::vector<std::string>& lines);

} // namespace reference
