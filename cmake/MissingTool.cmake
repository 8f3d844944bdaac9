# Stands in for a test whose tool is missing.
# Usage: cmake -DTOOL=<program> -P MissingTool.cmake
if("$ENV{CI}" STREQUAL "true")
    message(FATAL_ERROR "${TOOL} is missing")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E echo "skipped: ${TOOL} is missing")
