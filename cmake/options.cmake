# SPDX-License-Identifier: MIT
# How every target of the project is compiled and linked: the library `vndesk_options`.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# Forms and statements gain nothing from -O3 but size.
string(REPLACE "-O3" "-O2" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")

find_program(CCACHE_PROGRAM ccache NO_CMAKE_FIND_ROOT_PATH)
if(CCACHE_PROGRAM AND CMAKE_HOST_UNIX)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_SOURCE_DIR}/cmake/launch.sh" ${CCACHE_PROGRAM})
endif()

add_library(vndesk_options INTERFACE)
target_include_directories(vndesk_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(MSVC)
    # MSVC: presets and flags are here but have not been tried yet.
    target_compile_options(vndesk_options INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:/W4 /utf-8 /permissive- /EHsc>)
else()
    target_compile_options(vndesk_options INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wno-unknown-pragmas>)
    # GCC 12 warns falsely inside its own std::string.
    add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
    # Line tables stay in the build tree, so that a backtrace can be read; dist/ gets stripped copies.
    add_compile_options($<$<AND:$<COMPILE_LANGUAGE:C,CXX>,$<CONFIG:Release>>:-g1>
                        $<$<COMPILE_LANGUAGE:C,CXX>:-ffunction-sections>
                        $<$<COMPILE_LANGUAGE:C,CXX>:-fdata-sections>)
    add_link_options(-Wl,--gc-sections)
endif()

if(NOT WIN32 AND NOT MSVC)
    option(VNDESK_SANITIZE "Native code stops at every wrong access to memory, leak and undefined step" ON)
    if(VNDESK_SANITIZE)
        set(checks -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all)
        if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
            # The counters by which the fuzz targets find new ways through the code.
            list(APPEND checks -fsanitize=fuzzer-no-link)
        endif()
        add_compile_options(${checks} -fno-omit-frame-pointer)
        add_compile_definitions(_GLIBCXX_ASSERTIONS)
        add_link_options(${checks})
    endif()
endif()

if(WIN32)
    # Windows 7 is the oldest system served.
    target_compile_definitions(vndesk_options INTERFACE
        UNICODE _UNICODE STRICT NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601 NTDDI_VERSION=0x06010000)
    target_link_libraries(vndesk_options INTERFACE
        ole32 oleaut32 uuid user32 gdi32 advapi32 shell32 comctl32 uxtheme version odbc32 odbccp32)
    if(MINGW)
        # One DLL needs no runtime DLLs beside it.
        add_link_options(-static)
        # GetProcAddress is always cast.
        target_compile_options(vndesk_options INTERFACE
            $<$<COMPILE_LANGUAGE:CXX>:-Wno-cast-function-type>)
    endif()
endif()
