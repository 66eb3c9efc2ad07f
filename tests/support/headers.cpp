// SPDX-License-Identifier: MIT
// Compiles the headers that all test programs read precompiled (tests/CMakeLists.txt).
