// SPDX-License-Identifier: MIT
// The findings as text for people and as JSON for programs.
#pragma once

#include <string>

#include "check/findings.h"
#include "check/texts.h"

namespace vndesk::check {

struct About {
    std::wstring version;
    int bits;
};

std::wstring TextReport(const Findings& findings, const About& about, Language language);

// One object; all its texts are escaped, its lines end with \n.
std::wstring JsonReport(const Findings& findings, const About& about, Language language);

} // namespace vndesk::check
