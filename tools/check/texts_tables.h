// SPDX-License-Identifier: MIT
// The tables behind texts.h, one source file per language. Rows are in the order of Id.
#pragma once

#include "check/texts.h"

namespace vndesk::check {

extern const Words kEnglish[kIdCount];
extern const Words kVietnamese[kIdCount];
extern const Words kFrench[kIdCount];
extern const Frame kEnglishFrame;
extern const Frame kVietnameseFrame;
extern const Frame kFrenchFrame;

} // namespace vndesk::check
