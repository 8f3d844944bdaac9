# GoogleTest for the Mac, from the sources that this system has of it.
find_path(TERVALE_HOST_GTEST src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH
    NO_CMAKE_FIND_ROOT_PATH REQUIRED)
if(NOT TARGET GTest::gtest)
    add_library(tervale_mac_gtest STATIC EXCLUDE_FROM_ALL ${TERVALE_HOST_GTEST}/src/gtest-all.cc)
    target_include_directories(tervale_mac_gtest SYSTEM PUBLIC ${TERVALE_HOST_GTEST}/include)
    target_include_directories(tervale_mac_gtest PRIVATE ${TERVALE_HOST_GTEST})
    add_library(tervale_mac_gtest_main STATIC EXCLUDE_FROM_ALL ${TERVALE_HOST_GTEST}/src/gtest_main.cc)
    target_link_libraries(tervale_mac_gtest_main PUBLIC tervale_mac_gtest)
    set_target_properties(tervale_mac_gtest tervale_mac_gtest_main PROPERTIES
        COMPILE_WARNING_AS_ERROR OFF)
    add_library(GTest::gtest ALIAS tervale_mac_gtest)
    add_library(GTest::gtest_main ALIAS tervale_mac_gtest_main)
endif()
