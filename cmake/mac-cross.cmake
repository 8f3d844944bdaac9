# Builds for the Mac on a system that is none; `./dev mac` prepares what it needs.
set(CMAKE_SYSTEM_NAME Darwin)
# The Darwin of macOS 14.
set(CMAKE_SYSTEM_VERSION 23.0)
set(CMAKE_SYSTEM_PROCESSOR arm64)
# The compiler knows its own target and headers.
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")

set(tools ${CMAKE_CURRENT_LIST_DIR}/../build/mac-tools)
get_filename_component(tools ${tools} ABSOLUTE)
set(CMAKE_CXX_COMPILER ${CMAKE_CURRENT_LIST_DIR}/mac/c++)
set(CMAKE_OBJCXX_COMPILER ${CMAKE_CURRENT_LIST_DIR}/mac/c++)
find_program(CMAKE_AR NAMES llvm-ar llvm-ar-14 REQUIRED)
find_program(CMAKE_RANLIB NAMES llvm-ranlib llvm-ranlib-14 REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL NAMES llvm-install-name-tool llvm-install-name-tool-14 REQUIRED)

# CMake asks the system it runs on whether there are run paths yet.
set(CMAKE_SHARED_LIBRARY_RUNTIME_CXX_FLAG "-Wl,-rpath,")
set(CMAKE_SHARED_LIBRARY_RUNTIME_OBJCXX_FLAG "-Wl,-rpath,")
# Another run path after linking would spoil the signature.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)

set(CMAKE_FIND_ROOT_PATH ${tools}/sysroot)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(Qt6_DIR ${CMAKE_CURRENT_LIST_DIR}/mac/packages/Qt6 CACHE PATH "")
set(nlohmann_json_DIR ${CMAKE_CURRENT_LIST_DIR}/mac/packages/nlohmann_json CACHE PATH "")
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/mac/packages/GTest CACHE PATH "")
# The tests cannot be asked for their names here.
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)

# Apple's frameworks: the declarations and the symbols that the adapters use.
add_compile_options(SHELL:-isystem ${CMAKE_CURRENT_LIST_DIR}/mac/include)
# The compiler marks Objective-C++ for itself in two ways, and complains that it needs only one.
add_compile_options($<$<COMPILE_LANGUAGE:OBJCXX>:-Wno-unused-command-line-argument>)
add_link_options(-F${CMAKE_CURRENT_LIST_DIR}/mac/stubs)
