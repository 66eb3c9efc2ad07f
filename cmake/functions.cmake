# SPDX-License-Identifier: MIT
# Small helpers of the folders' CMakeLists.

# static_library(name sources...): a static library with the project's options.
function(static_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC vndesk_options)
endfunction()

# put_into_dist(target [subfolder]): a copy of the result in dist/<arch>/, stripped for Windows.
function(put_into_dist target)
    set(folder "${VNDESK_DIST}")
    if(ARGN)
        string(APPEND folder "/${ARGN}")
    endif()
    if(CMAKE_STRIP AND WIN32 AND NOT MSVC AND NOT CMAKE_BUILD_TYPE STREQUAL Debug)
        set(copy ${CMAKE_STRIP} -o "${folder}/$<TARGET_FILE_NAME:${target}>" $<TARGET_FILE:${target}>)
    else()
        set(copy ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:${target}> "${folder}/")
    endif()
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
        COMMAND ${copy}
        VERBATIM)
endfunction()

# resource_depends(rc files...): rebuild the resource when a file that it embeds changes.
function(resource_depends rc)
    set_property(SOURCE "${rc}" APPEND PROPERTY OBJECT_DEPENDS "${ARGN}")
endfunction()

# unicode_entry(target sources...): the entry point the sources define decides console or window.
function(unicode_entry target)
    foreach(source ${ARGN})
        if(NOT source MATCHES "\\.cpp$")
            continue()
        endif()
        file(STRINGS "${source}" entry REGEX "(wWinMain|WinMain|wmain)[ ]*\\(")
        if(entry MATCHES "WinMain")
            set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
        endif()
        if(entry MATCHES "wWinMain|wmain" AND MINGW)
            target_link_options(${target} PRIVATE -municode)
        endif()
    endforeach()
endfunction()

# What nearly every source includes, and nearly every one for Windows.
set(COMMON_HEADERS <algorithm> <functional> <memory> <optional> <string> <string_view> <utility> <vector>)
set(WINDOWS_HEADERS <windows.h> <commctrl.h> <comutil.h> <olectl.h> <wrl/client.h>)

# precompile_headers(target [from]): they are read once, for this target or for `from`, whose options must be the same:
# the optimisation is that of the headers. A source does not rely on it: it names what it uses.
function(precompile_headers target)
    # GCC forgets of precompiled headers which warnings libstdc++ has switched off in them.
    target_compile_options(${target} PRIVATE
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-array-bounds;-Wno-stringop-overread>)
    if(ARGN)
        target_precompile_headers(${target} REUSE_FROM ${ARGN})
    else()
        target_precompile_headers(${target} PRIVATE ${WINDOWS_HEADERS} ${COMMON_HEADERS})
    endif()
endfunction()

# code_of_page(target page language count): a target that writes the page's blocks of code in a language to
# generated/pages/<target>1.inc and so on, so that what a document shows can be compiled and run.
function(code_of_page target page language count)
    set(prefix "${CMAKE_BINARY_DIR}/generated/pages/${target}")
    set(script "${CMAKE_SOURCE_DIR}/cmake/code_of_page.cmake")
    set(blocks "")
    foreach(number RANGE 1 ${count})
        list(APPEND blocks "${prefix}${number}.inc")
    endforeach()
    add_custom_command(OUTPUT ${blocks}
        COMMAND ${CMAKE_COMMAND} "-DPAGE=${CMAKE_SOURCE_DIR}/${page}" -DLANGUAGE=${language} -DCOUNT=${count}
                "-DOUT=${prefix}" -P "${script}"
        DEPENDS "${CMAKE_SOURCE_DIR}/${page}" "${script}"
        VERBATIM)
    add_custom_target(${target} DEPENDS ${blocks})
endfunction()
