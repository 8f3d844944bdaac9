# A Qt for the Mac: the headers and tools of this system's, whose headers know the Mac too, with
# either the frameworks of a folder that is given or stubs of them, which bear the symbols that this
# system's libraries have.
include(${CMAKE_CURRENT_LIST_DIR}/HostQt.cmake)
set(TERVALE_QT_FRAMEWORKS "" CACHE PATH "Folder with Qt's frameworks for the Mac; stubs without one")

string(REPLACE . ";" parts ${TERVALE_HOST_QT_VERSION})
list(GET parts 0 Qt6Core_VERSION_MAJOR)
list(GET parts 1 Qt6Core_VERSION_MINOR)
list(GET parts 2 Qt6Core_VERSION_PATCH)
set(QT_VERSION_MAJOR ${Qt6Core_VERSION_MAJOR})

foreach(tool moc rcc uic)
    find_program(TERVALE_HOST_${tool} ${tool} PATHS /usr/lib/qt6/libexec
        NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    if(NOT TARGET Qt6::${tool})
        add_executable(Qt6::${tool} IMPORTED)
        set_target_properties(Qt6::${tool} PROPERTIES IMPORTED_LOCATION ${TERVALE_HOST_${tool}})
    endif()
endforeach()

find_program(TERVALE_NM NAMES llvm-nm llvm-nm-14 nm NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(uses_Core "")
set(uses_Gui Core)
set(uses_Svg Gui)
set(uses_Test Core)
set(uses_Widgets Gui)
foreach(module Core Gui Svg Test Widgets)
    if(TARGET Qt6::${module})
        continue()
    endif()
    if(TERVALE_QT_FRAMEWORKS)
        set(library ${TERVALE_QT_FRAMEWORKS}/Qt${module}.framework/Versions/A/Qt${module})
        if(NOT EXISTS ${library})
            message(FATAL_ERROR "There is no ${library}")
        endif()
    else()
        set(library ${PROJECT_BINARY_DIR}/qt-stubs/Qt${module}.tbd)
        set(original ${TERVALE_HOST_QT_LIBRARIES}/libQt6${module}.so)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
            ${original} ${CMAKE_CURRENT_LIST_DIR}/MakeStub.cmake)
        execute_process(COMMAND ${CMAKE_COMMAND} -DNM=${TERVALE_NM} -DLIBRARY=${original}
            -DNAME=Qt${module} -DVERSION=${TERVALE_HOST_QT_VERSION} -DSTUB=${library}
            -P ${CMAKE_CURRENT_LIST_DIR}/MakeStub.cmake COMMAND_ERROR_IS_FATAL ANY)
    endif()
    add_library(Qt6::${module} UNKNOWN IMPORTED)
    string(TOUPPER ${module} capitals)
    set_target_properties(Qt6::${module} PROPERTIES
        IMPORTED_LOCATION ${library}
        INTERFACE_COMPILE_DEFINITIONS "QT_${capitals}_LIB;$<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>"
        INTERFACE_INCLUDE_DIRECTORIES
            "${TERVALE_HOST_QT_HEADERS};${TERVALE_HOST_QT_HEADERS}/Qt${module}")
    foreach(used IN LISTS uses_${module})
        target_link_libraries(Qt6::${module} INTERFACE Qt6::${used})
    endforeach()
endforeach()

foreach(component IN LISTS Qt6_FIND_COMPONENTS)
    set(Qt6_${component}_FOUND FALSE)
    if(TARGET Qt6::${component})
        set(Qt6_${component}_FOUND TRUE)
    endif()
endforeach()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qt6 HANDLE_COMPONENTS VERSION_VAR TERVALE_HOST_QT_VERSION
    REQUIRED_VARS TERVALE_HOST_QT_HEADERS)
