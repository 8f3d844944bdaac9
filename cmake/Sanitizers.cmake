set(TERVALE_SANITIZE "" CACHE STRING "Sanitizers for every target, such as address,undefined")
if(TERVALE_SANITIZE)
    add_compile_options(-fsanitize=${TERVALE_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    # What GCC warns of after it has optimized is often wrong in code that the sanitizers were put into.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:-Wno-maybe-uninitialized;-Wno-stringop-overflow>")
    endif()
    add_link_options(-fsanitize=${TERVALE_SANITIZE})
endif()
