// SPDX-License-Identifier: MIT
// Where the samples are that the tests play.
#pragma once
#include "support/setup.h"
#include "support/env.h"

namespace vndesk::test {

// In the installation where there is one, else in the sources.
inline std::wstring ScriptFolder() {
    const std::wstring installed = EntryText(AllUsers(), L"InstallLocation");
    return (installed.empty() ? SourceDir() : installed) + L"\\samples\\";
}

} // namespace vndesk::test
