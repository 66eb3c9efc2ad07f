# SPDX-License-Identifier: MIT
# Debian's mingw-w64 for 64-bit Windows, in the flavour with C++ threads.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(mingw_prefix x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
