# SPDX-License-Identifier: MIT
# Run at build time after a DLL has been linked: nothing may run when it is loaded but the run-time's own
# start, and streams, locales and regular expressions stay out.
# cmake -DNM=... -DDLL=... -P check_dll.cmake
execute_process(COMMAND "${NM}" "${DLL}" OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
if(NOT symbols MATCHES "DllGetClassObject")
    message(FATAL_ERROR "${DLL}: no symbols to check")
endif()
string(REGEX MATCHALL "_GLOBAL__sub_I_[^ \n]*" constructors "${symbols}")
# The memory that the run-time keeps for exceptions.
list(FILTER constructors EXCLUDE REGEX "9__freeresEv$")
string(REGEX MATCHALL "_ZN?K?St(8ios_base|6locale|7__cxx1111basic_regex)[^ \n]*" streams "${symbols}")
foreach(found ${constructors} ${streams})
    message(SEND_ERROR "${DLL}: ${found} is linked into it")
endforeach()
