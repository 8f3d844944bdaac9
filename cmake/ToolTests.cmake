# tervale_add_tool_test(<test> TOOL <program> COMMAND <program> <argument>...)
# A test that a tool carries out which not every machine has. Without it the test is skipped, and says so;
# with CI=true in the environment it then fails.
function(tervale_add_tool_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TOOL" "COMMAND")
    find_program(TERVALE_TOOL_${arg_TOOL} ${arg_TOOL})
    if(TERVALE_TOOL_${arg_TOOL})
        add_test(NAME ${name} COMMAND ${arg_COMMAND})
    else()
        add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -DTOOL=${arg_TOOL}
            -P ${PROJECT_SOURCE_DIR}/cmake/MissingTool.cmake)
        set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "^skipped: ")
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${TERVALE_TEST_TIMEOUT})
endfunction()
