# SPDX-License-Identifier: MIT
# Manifests for use without registration, written from the IDL at build time. Included, it gives
# add_assembly(); run as a script (-P) with IDL, DLL, NAME, ARCH, VERSION, ASSEMBLY and CLIENT it writes the files.

# add_assembly(target dll idl client): <generated>/<dll>_assembly.manifest, which the DLL embeds, and the file
# `client`, which hosts copy.
set(ASSEMBLY_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")
function(add_assembly target dll idl client)
    set(assembly "${CMAKE_BINARY_DIR}/generated/${dll}_assembly.manifest")
    add_custom_command(OUTPUT "${assembly}" "${client}"
        COMMAND ${CMAKE_COMMAND} -DIDL=${idl} -DDLL=${dll}.dll -DNAME=${dll} -DARCH=${VNDESK_ARCH}
            -DVERSION=${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.0.0
            -DASSEMBLY=${assembly} -DCLIENT=${client} -P "${ASSEMBLY_SCRIPT}"
        DEPENDS "${idl}" "${ASSEMBLY_SCRIPT}" "${CMAKE_BINARY_DIR}/generated/vndesk_version.h"
        COMMENT "Manifests of ${dll}"
        VERBATIM)
    add_custom_target(${target} DEPENDS "${assembly}" "${client}")
endfunction()

if(NOT CMAKE_SCRIPT_MODE_FILE)
    return()
endif()

# The IDL without texts and comments; its brackets and semicolons would mean something to lists.
file(READ "${IDL}" idl)
string(REGEX REPLACE "\"([^\"\\]|\\\\.)*\"" "" idl "${idl}")
string(REGEX REPLACE "//[^\n]*" "" idl "${idl}")
string(REPLACE "[" "<" idl "${idl}")
string(REPLACE "]" ">" idl "${idl}")
string(REPLACE ";" "." idl "${idl}")

# The CLSIDs of oleaut32's marshalers: PSOAInterface for dual interfaces, PSDispatch for dispinterfaces.
set(proxy_interface "{00020424-0000-0000-C000-000000000046}")
set(proxy_dispinterface "{00020420-0000-0000-C000-000000000046}")
# The flags of the class table's controls, in the words of manifests.
set(control_status "recomposeonresize,cantlinkinside,insideout,activatewhenvisible,setclientsitefirst")

if(ARCH STREQUAL x64)
    set(processor amd64)
else()
    set(processor x86)
endif()
set(identity "type=\"win32\" name=\"${NAME}\" version=\"${VERSION}\" processorArchitecture=\"${processor}\"")
set(head "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n")
string(APPEND head "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n")

set(declared "<[^<>]*uuid\\(([0-9A-Fa-f-]+)\\)[^<>]*>[ \t\r\n]*(library|coclass|interface|dispinterface)[ ]+([A-Za-z0-9_]+)")
string(REGEX MATCHALL "${declared}" declarations "${idl}")
set(classes "")
set(interfaces "")
foreach(declaration IN LISTS declarations)
    string(REGEX MATCH "${declared}" declaration "${declaration}")
    set(guid "{${CMAKE_MATCH_1}}")
    set(kind ${CMAKE_MATCH_2})
    set(name ${CMAKE_MATCH_3})
    if(kind STREQUAL library)
        set(library ${name})
        set(tlbid ${guid})
        string(REGEX MATCH "version\\(([0-9.]+)\\)" ignored "${declaration}")
        set(typelib "    <typelib tlbid=\"${guid}\" version=\"${CMAKE_MATCH_1}\" helpdir=\"\"/>\n")
    elseif(kind STREQUAL coclass)
        set(status "")
        if(declaration MATCHES "[ ,]control[ ,>\r\n]")
            set(status "\n              miscStatusContent=\"${control_status}\"")
        endif()
        string(APPEND classes
            "    <comClass description=\"${library}.${name}\" clsid=\"${guid}\" threadingModel=\"Apartment\"\n"
            "              progid=\"${library}.${name}.1\" tlbid=\"${tlbid}\"${status}>\n"
            "      <progid>${library}.${name}</progid>\n"
            "    </comClass>\n")
    else()
        string(APPEND interfaces
            "  <comInterfaceExternalProxyStub name=\"${name}\" iid=\"${guid}\" tlbid=\"${tlbid}\"\n"
            "                                 proxyStubClsid32=\"${proxy_${kind}}\"/>\n")
    endif()
endforeach()

file(WRITE "${ASSEMBLY}" "${head}"
    "  <assemblyIdentity ${identity}/>\n"
    "  <file name=\"${DLL}\">\n${typelib}${classes}  </file>\n"
    "${interfaces}</assembly>\n")
file(WRITE "${CLIENT}" "${head}"
    "  <!-- Embed this in a program, or name it PROGRAM.exe.manifest beside it, and put ${DLL} into the\n"
    "       program's folder: its classes are then found without registration. -->\n"
    "  <dependency>\n    <dependentAssembly>\n"
    "      <assemblyIdentity ${identity}/>\n"
    "    </dependentAssembly>\n  </dependency>\n</assembly>\n")
