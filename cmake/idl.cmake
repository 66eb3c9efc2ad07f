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
        set(include -I "${CMAKE_CURRENT_SOURCE_DIR}" -I "${WINE_INCLUDE_DIR}"
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

# com_dll(name idl_name folder sources...): an in-process COM server with resources, exports and
# type library named after its folder's <name>.rc and <name>.def.
function(com_dll name folder)
    add_library(${name} SHARED ${ARGN})
    set_target_properties(${name} PROPERTIES PREFIX "" OUTPUT_NAME ${name})
    if(MINGW)
        # Sections that begin at a page of the file too are mapped, not read.
        target_link_options(${name} PRIVATE -Wl,--file-alignment,4096)
        # Uncaught exceptions end the process without a word: the run-time's would bring a demangler of 45 KB.
        set(under $<$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>:_>)
        target_link_options(${name} PRIVATE
            -Wl,--defsym,${under}_ZN9__gnu_cxx27__verbose_terminate_handlerEv=${under}abort)
        # What the run-time holds is given back when the DLL goes (comkit/server/run_time.cpp).
        if(CMAKE_SIZEOF_VOID_P EQUAL 4)
            target_link_options(${name} PRIVATE -Wl,-e,_vndesk_entry@12
                "-Wl,--defsym,\"__imp__TlsAlloc@0\"=_vndesk_take_slot")
        else()
            target_link_options(${name} PRIVATE -Wl,-e,vndesk_entry
                -Wl,--defsym,__imp_TlsAlloc=vndesk_take_slot)
        endif()
    elseif(MSVC)
        # The manifests are among the resources.
        target_link_options(${name} PRIVATE /MANIFEST:NO)
    endif()
    set(rc "${folder}/${name}.rc")
    if(EXISTS "${rc}")
        target_sources(${name} PRIVATE "${rc}")
        file(GLOB embedded CONFIGURE_DEPENDS "${folder}/*.manifest" "${folder}/*.ico" "${folder}/*.bmp"
             "${folder}/*.cur")
        resource_depends("${rc}" "${CMAKE_BINARY_DIR}/generated/vndesk_version.h" ${embedded})
        if(EXISTS "${folder}/${name}.idl")
            resource_depends("${rc}" "${CMAKE_BINARY_DIR}/generated/${name}.tlb")
        endif()
        target_include_directories(${name} PRIVATE "${folder}")
    endif()
    if(EXISTS "${folder}/${name}.def")
        target_sources(${name} PRIVATE "${folder}/${name}.def")
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${folder}/${name}.def")
    endif()
    if(MINGW)
        set(map "${CMAKE_CURRENT_BINARY_DIR}/${name}.map")
        target_link_options(${name} PRIVATE "-Wl,-Map,${map}")
        add_custom_command(TARGET ${name} POST_BUILD
            COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DDLL=$<TARGET_FILE:${name}> -DMAP=${map}
                    -P "${CMAKE_SOURCE_DIR}/cmake/check_dll.cmake"
            VERBATIM)
    endif()
    put_into_dist(${name})
endfunction()
