# Every target of the project links this; that warnings are errors is the presets' choice.
add_library(tervale_warnings INTERFACE)
add_library(Tervale::Warnings ALIAS tervale_warnings)
target_compile_options(tervale_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Wcast-align -Wunused
    -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough -Wswitch-enum
    # A constructor's parameter may bear the name of the member that it sets, and a local variable that of a constant
    # of another source, where several are compiled as one.
    $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,$<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>>
    # GCC 12 takes the joining of a literal and a short string for an overlapping copy.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # Where several sources are compiled as one, it takes each for a header, in which nothing should be nameless.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
