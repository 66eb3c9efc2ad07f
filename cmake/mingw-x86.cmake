# SPDX-License-Identifier: MIT
# Debian's mingw-w64 for 32-bit Windows, in the flavour with C++ threads.
set(CMAKE_SYSTEM_PROCESSOR X86)
set(mingw_prefix i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

# SSE2: doubles round as they do on x64. Realigned stacks: 32-bit hosts promise 4 bytes only.
foreach(language C CXX)
    set(CMAKE_${language}_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
endforeach()
# The exported names carry no @n: the .def files and regsvr32 know the plain ones.
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wl,--enable-stdcall-fixup -Wl,--kill-at")
