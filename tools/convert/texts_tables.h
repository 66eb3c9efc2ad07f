// SPDX-License-Identifier: MIT
// The tables behind texts.h, one source file per language. Rows are in the order of Message.
#pragma once

#include <cstddef>

#include "convert/texts.h"

namespace vndesk::convert {

inline constexpr std::size_t kMessages = static_cast<std::size_t>(Message::Count);

extern const wchar_t* const kEnglish[kMessages];
extern const wchar_t* const kVietnamese[kMessages];
extern const wchar_t* const kFrench[kMessages];

} // namespace vndesk::convert
