// SPDX-License-Identifier: MIT
// What stands on the screen when a test fails.
#pragma once
#include <string>

namespace vndesk::test {

// Saves the desktop as failed-<suite>.<test>.png at the first call in each test. Returns a line
// with the path then, and nothing at further calls or where no picture can be taken.
std::string PictureOfFailure();

} // namespace vndesk::test
