// SPDX-License-Identifier: MIT
// Everything that an installation could change: the whole of HKLM\Software and HKCU\Software, both
// views, and the whole disk C:.
#pragma once
#include <map>
#include <string>
#include <vector>

namespace vndesk::test {

// Where something is -> what it is: values of the registry, sizes and times of files.
using Snapshot = std::map<std::string, std::string>;

// Takes the state of this moment. What the system changes by itself is left out.
Snapshot TakeSnapshot();

// One line for each difference, "- " for what has gone and "+ " for what has come; empty when
// alike.
std::string Differences(const Snapshot& before, const Snapshot& after);

} // namespace vndesk::test
