// SPDX-License-Identifier: MIT
// Lines on standard output. A program with windows has one only when it was given one.
#pragma once
#include <string>

// UTF-8, with a line end.
void PrintLine(const std::wstring& text);
