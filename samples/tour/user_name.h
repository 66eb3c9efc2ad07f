// SPDX-License-Identifier: MIT
// The library returns the user's Code; what else the host wants to know, it reads from its own
// database.
#pragma once
#include <string>

// [Name] of the row of [User] with that Code, empty when there is none. Throws HostError.
std::wstring ReadUserName(const std::wstring& connect, long code);
