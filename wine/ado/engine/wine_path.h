// SPDX-License-Identifier: MIT
// Files as the machine around Wine knows them.
#pragma once

#include <string>

namespace vndesk::ado {

bool RunsUnderWine() noexcept;

// The Unix path of a Windows path; the path itself where there is none.
std::wstring UnixPath(const std::wstring& path);

} // namespace vndesk::ado
