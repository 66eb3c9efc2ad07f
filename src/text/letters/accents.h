// SPDX-License-Identifier: MIT
// Text without accents.
#pragma once

#include <string>
#include <string_view>

namespace vndesk {

// Đường becomes Duong. Latin letters of other languages lose their marks, too; đ and ð become d.
std::wstring RemoveAccents(std::wstring_view text);

} // namespace vndesk
