// SPDX-License-Identifier: MIT
// Forms that are opened and closed again and again in one process give back what they took.
#pragma once

#include <functional>

namespace vndesk::test {

// GDI and USER objects must be where they were. Of the heap a line is fitted over the rounds: it
// may rise by what the platform itself keeps of the same windows, and of as many bound columns,
// made without the library (Wine's themed labels and edit boxes keep some of it, newer versions'
// ODBC too, Windows nothing).
void ExpectFlat(const char* what, int warmUp, int rounds, const std::function<void()>& round);

// The same without windows to compare with: nothing at all may be kept.
void ExpectNothingKept(const char* what, int warmUp, int rounds,
                       const std::function<void()>& round);

} // namespace vndesk::test
