# SPDX-License-Identifier: MIT
# An in-process COM server.

# com_dll(name folder sources...): the DLL of that name. Its folder has <name>.idl, which add_idl() has compiled,
# <name>.rc, which embeds the type library, and <name>.def, which names the exports.
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
    file(GLOB manifests CONFIGURE_DEPENDS "${folder}/*.manifest")
    resource_depends("${rc}" ${manifests} "${CMAKE_BINARY_DIR}/generated/vndesk_version.h"
                     "${CMAKE_BINARY_DIR}/generated/${name}.tlb")
    target_include_directories(${name} PRIVATE "${folder}")
    target_sources(${name} PRIVATE "${rc}" "${folder}/${name}.def")
    set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS "${folder}/${name}.def")
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
