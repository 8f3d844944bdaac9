# What people run fails early when its memory is misused, and is harder to lead astray. Builds without
# optimisation go without; sanitizers see more, and come instead.
if(TERVALE_SANITIZE OR NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
    return()
endif()

include(CheckCXXCompilerFlag)
set(hardening -fstack-protector-strong)
if(NOT APPLE)
    list(APPEND hardening -fstack-clash-protection -fcf-protection=full -mbranch-protection=standard)
endif()
foreach(flag IN LISTS hardening)
    string(MAKE_C_IDENTIFIER "TERVALE_HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        add_compile_options(${flag})
    endif()
endforeach()
if(NOT APPLE)
    # A distribution's compiler may bring a choice of its own.
    add_compile_options(-fPIC -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    add_link_options(-pie LINKER:-z,relro,-z,now,-z,noexecstack)
endif()
