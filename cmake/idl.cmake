# SPDX-License-Identifier: MIT
# Type library and C++ header from an IDL file.
if(WIN32 AND NOT MSVC)
    find_program(WIDL_PROGRAM widl NO_CMAKE_FIND_ROOT_PATH REQUIRED)
endif()
set(WINE_INCLUDE_DIR /usr/include/wine/wine/windows CACHE PATH "Wine's headers and IDL files")
if(MINGW AND NOT EXISTS "${WINE_INCLUDE_DIR}/oaidl.idl")
    message(FATAL_ERROR "Wine's IDL files are missing: install the package libwine-dev "
                        "or set WINE_INCLUDE_DIR.")
endif()
# The standard type library serves both architectures: only references to it are written.
if(MINGW)
    find_path(STDOLE_DIR stdole2.tlb NO_CMAKE_FIND_ROOT_PATH REQUIRED
        PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows)
endif()

# mingw has no ADO header that C++ accepts: Wine's is found after all of mingw's own.
add_library(wine_headers INTERFACE)
if(MINGW)
    target_compile_options(wine_headers INTERFACE
        "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-idirafter \"${WINE_INCLUDE_DIR}\">")
endif()

# add_idl(target name idl): whatever links `target` may include <name>_idl.h and embed <name>.tlb.
function(add_idl target name idl)
    set(folder "${CMAKE_BINARY_DIR}/generated")
    set(header "${folder}/${name}_idl.h")
    set(library "${folder}/${name}.tlb")
    file(MAKE_DIRECTORY "${folder}")
    if(MSVC)
        set(compile midl /nologo $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,/x64,/win32> /out "${folder}"
            /tlb ${name}.tlb /h ${name}_idl.h /iid ${name}_iid.c /proxy ${name}_proxy.c "${idl}")
        set(compile_header ${CMAKE_COMMAND} -E true)
    else()
        if(VNDESK_ARCH STREQUAL x64)
            set(bits --win64)
        else()
            set(bits --win32)
        endif()
        set(include -I "${CMAKE_CURRENT_SOURCE_DIR}" -I "${folder}" -I "${WINE_INCLUDE_DIR}"
            -L "${STDOLE_DIR}")
        set(compile ${WIDL_PROGRAM} ${bits} -t ${include} -o "${library}" "${idl}")
        set(compile_header ${WIDL_PROGRAM} ${bits} -h ${include} -o "${header}" "${idl}")
    endif()
    get_filename_component(idl_folder "${idl}" DIRECTORY)
    file(GLOB parts CONFIGURE_DEPENDS "${idl_folder}/*.idl")
    add_custom_command(OUTPUT "${library}" "${header}"
        COMMAND ${compile}
        COMMAND ${compile_header}
        DEPENDS ${parts}
        COMMENT "Type library and header of ${name}"
        VERBATIM)
    add_custom_target(${target}_files DEPENDS "${library}" "${header}")
    add_library(${target} INTERFACE)
    add_dependencies(${target} ${target}_files)
    target_include_directories(${target} INTERFACE "${folder}")
endfunction()
