# Writes a stub of one of Qt's frameworks, whose symbols are those of the library of this system:
# the names of C++ are made alike on both, with an underscore before them on the Mac.
# Usage: cmake -DNM=<nm> -DLIBRARY=<ELF library> -DNAME=<QtCore> -DVERSION=<6.4.2> -DSTUB=<out>
#        -P MakeStub.cmake
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} OUTPUT_VARIABLE listing
    COMMAND_ERROR_IS_FATAL ANY)
# What is not promised to programs is left out, and so are the names of the versions themselves. Some
# modules have no versions.
string(REGEX MATCHALL "[ ][BDRTVWu] [^@\n]+(@@?Qt_6[.0-9]*)?\n" lines "${listing}")
set(symbols "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^ . ([^@\n]+).*" "_\\1" symbol "${line}")
    list(APPEND symbols ${symbol})
endforeach()
# The library of C++ has other names on the Mac, and its strings no tag.
list(TRANSFORM symbols REPLACE "B5cxx11" "")
list(TRANSFORM symbols REPLACE
    "^__ZN9QGradient8setStopsERK5QListISt4pairId6QColorEE$"
    "__ZN9QGradient8setStopsERK5QListINSt3__14pairId6QColorEEE")
list(TRANSFORM symbols REPLACE
    "^__ZN9QMetaType25registerConverterFunctionERKSt8functionIFbPKvPvEES_S_$"
    "__ZN9QMetaType25registerConverterFunctionERKNSt3__18functionIFbPKvPvEEES_S_")
list(LENGTH symbols count)
if(count LESS 100)
    message(FATAL_ERROR "Only ${count} symbols in ${LIBRARY}")
endif()
list(SORT symbols)
list(JOIN symbols ", " symbols)
file(WRITE ${STUB}
"--- !tapi-tbd
tbd-version:     4
targets:         [ arm64-macos ]
install-name:    '@rpath/${NAME}.framework/Versions/A/${NAME}'
current-version: ${VERSION}
compatibility-version: 6.0.0
exports:
  - targets:         [ arm64-macos ]
    symbols:         [ ${symbols} ]
...
")
