# SPDX-License-Identifier: MIT
# Run at build time after a DLL has been linked: nothing of ours may run when it is loaded, and streams, locales and
# regular expressions stay out. What the compiler's run-time starts cannot be helped, but what is not known yet is told.
# cmake -DNM=... -DDLL=... -DMAP=... -P check_dll.cmake
execute_process(COMMAND "${NM}" "${DLL}" OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
if(NOT symbols MATCHES "DllGetClassObject")
    message(FATAL_ERROR "${DLL}: no symbols to check")
endif()
string(REGEX MATCHALL "_ZN?K?St(8ios_base|6locale|7__cxx1111basic_regex)[^ \n]*" streams "${symbols}")
foreach(found ${streams})
    message(SEND_ERROR "${DLL}: ${found} is linked into it")
endforeach()

# The linker's map names the file of each pointer to a start-up function. Files of the compiler have full paths, ours
# are relative to the build tree.
file(STRINGS "${MAP}" constructors REGEX "^ \\.ctors.* 0x0*[1-9a-f][0-9a-f]* +0x[0-9a-f]+ .")
if(NOT constructors MATCHES "crtend")
    message(FATAL_ERROR "${MAP}: no start-up functions to check")
endif()
foreach(line ${constructors})
    string(REGEX REPLACE "^.* 0x[0-9a-f]+ +" "" origin "${line}")
    if(NOT IS_ABSOLUTE "${origin}")
        message(SEND_ERROR "${DLL}: ${origin} has a static constructor")
    # The end of the list, the memory kept for exceptions, and with GCC 14 the names of system errors and its threads.
    elseif(NOT origin MATCHES "crtend\\.o|\\((eh_alloc|system_error|functexcept|future|libwinpthread_la-[a-z]+)\\.o\\)$")
        message(WARNING "${DLL}: the compiler's run-time brings a static constructor that is not known yet: ${origin}")
    endif()
endforeach()
