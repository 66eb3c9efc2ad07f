// SPDX-License-Identifier: MIT
// Members as Visual Basic and C++ hosts write them.
#pragma once

#include <string>

#include "reference/idl.h"

namespace reference {

std::string BasicType(const Parameter& parameter);
// As in the object browser. `event`: how a form declares the handler.
std::string BasicDeclaration(const Member& member, bool event);
// One line for each accessor, without the object.
std::string CppDeclaration(const Member& member);

} // namespace reference
