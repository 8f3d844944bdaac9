# What stands for the tests on Foundation where they cannot be built: a test that is skipped, and
# that fails where everything has to be there.
if("$ENV{CI}" STREQUAL "true")
    message(FATAL_ERROR "clang or GNUstep is missing; './dev setup' installs them")
endif()
message("skipped: clang or GNUstep is missing; './dev setup' installs them")
