set(TERVALE_SANITIZE "" CACHE STRING "Sanitizers for every target, such as address,undefined")
if(TERVALE_SANITIZE)
    add_compile_options(-fsanitize=${TERVALE_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TERVALE_SANITIZE})
endif()
