# SPDX-License-Identifier: MIT
# The part of the two mingw toolchains that differs in the prefix only.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${mingw_prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_prefix}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_prefix}-windres)
set(CMAKE_STRIP ${mingw_prefix}-strip)
set(CMAKE_RC_FLAGS_INIT "-c 65001")

set(CMAKE_FIND_ROOT_PATH /usr/${mingw_prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
